#include "shell/options.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace ebtq::shell {
namespace {

TEST(Options, AreReadInBothSpellings)
{
    for (const QStringList &given :
         {QStringList{QStringLiteral("--db=a.db"), QStringLiteral("--tour=t"), QStringLiteral("--dark")},
          QStringList{QStringLiteral("--db"), QStringLiteral("a.db"), QStringLiteral("--tour"),
                      QStringLiteral("t"), QStringLiteral("--dark")}}) {
        const Options options = readOptions(QStringList(QStringLiteral("ebtq")) + given);
        EXPECT_EQ(options.database, u"a.db");
        EXPECT_EQ(options.tour, u"t");
        EXPECT_TRUE(options.dark);
        EXPECT_EQ(options.user, QString());
    }
}

TEST(Options, MistakesAreToldInChinese)
{
    const struct
    {
        QStringList given;
        QString told;
    } cases[] = {
        {{QStringLiteral("--dbb=x")}, QStringLiteral("没有选项“dbb”。\n用 --help 查看各选项。")},
        {{QStringLiteral("--dark"), QStringLiteral("--user")},
         QStringLiteral("选项 --user 后缺少用户名。\n用 --help 查看各选项。")},
        {{QStringLiteral("--dark=1")}, QStringLiteral("不带值的选项后多了值。\n用 --help 查看各选项。")},
        {{QStringLiteral("a.db")}, QStringLiteral("多余的参数：a.db")},
    };
    for (const auto &each : cases) {
        try {
            (void)readOptions(QStringList(QStringLiteral("ebtq")) + each.given);
            ADD_FAILURE() << each.told.toStdString();
        } catch (const std::runtime_error &failure) {
            EXPECT_EQ(QString::fromUtf8(failure.what()), each.told);
        }
    }
}

} // namespace
} // namespace ebtq::shell
