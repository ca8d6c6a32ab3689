#include "shell/options.h"

#include "support/messages.h"

#include <gtest/gtest.h>

namespace ebtq::shell {
namespace {

TEST(Options, MistakesAreToldInChinese)
{
    const std::pair<QStringList, QString> cases[] = {
        {{u"--dbb=x"_qs}, u"没有选项“dbb”。\n用 --help 查看各选项。"_qs},
        {{u"--dark"_qs, u"--user"_qs}, u"选项 --user 后缺少用户名。\n用 --help 查看各选项。"_qs},
        {{u"--dark=1"_qs}, u"不带值的选项后多了值。\n用 --help 查看各选项。"_qs},
        {{u"a.db"_qs}, u"多余的参数：a.db"_qs},
        {{u"postgresql://wang:s3cret@db/office"_qs}, u"多余的参数：postgresql://wang@db/office"_qs},
    };
    for (const auto &[given, told] : cases)
        EXPECT_EQ(test::messageOf([&] { (void)readOptions(QStringList(u"ebtq"_qs) + given); }),
                  told.toStdString());
}

} // namespace
} // namespace ebtq::shell
