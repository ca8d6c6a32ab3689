#include "shell/component_loader.h"

#include "support/messages.h"

#include <QTemporaryFile>

#include <gtest/gtest.h>

namespace ebtq::shell {
namespace {

std::string failureOf(const QStringList &places)
{
    return test::messageOf([&] { (void)loadComponentLibrary(places); });
}

TEST(ComponentLoader, SaysWhatIsWrongWithTheFile)
{
    QTemporaryFile text;
    ASSERT_TRUE(text.open());
    text.write("no library");
    text.flush();

    const std::string missing = failureOf({u"/a/libEBTQ_S.so"_qs, u"/b/libEBTQ_S.so"_qs});
    EXPECT_NE(missing.find("/a/libEBTQ_S.so\n/b/libEBTQ_S.so"), std::string::npos) << missing;
    EXPECT_NE(failureOf({text.fileName()}).find("无法载入"), std::string::npos);
    EXPECT_NE(failureOf({QStringLiteral(OTHER_LIBRARY)}).find("不是组件库"), std::string::npos);
}

} // namespace
} // namespace ebtq::shell
