#include "library/controls/control_collection.h"
#include "library/controls/panel.h"
#include "library/controls/splitter.h"

#include <gtest/gtest.h>

#include <limits>

using namespace ebtq;
using namespace Qt::StringLiterals;

namespace {

TEST(SplitterTest, PlacesThePanesWhateverHappens)
{
    ControlCollection controls;
    auto &left = controls.add<qzPanel>(u"TV"_s);
    auto &bar = controls.add<Splitter>(u"Sp"_s);
    bar.setSiblings(&controls);
    bar.ReadProperties({{u"ControlName1"_s, u"tv"_s}, {u"ControlName2"_s, u"nobody"_s}});
    QString events;
    QObject::connect(&bar, &Splitter::Resized, [&](int place, bool isSettled) {
        events += QString::number(place) + (isSettled ? u"! "_s : u" "_s);
    });
    struct Case
    {
        const char *what;
        std::function<void()> act;
        double left;
        double right;
        double rightWidth;
        const char16_t *events;
    };
    const Case cases[] = {
        {"no size yet", [&] { bar.drag(9); }, 3600, 3675, 0, u""},
        {"first", [&] { bar.setParentSize(10000, 5000); }, 3600, 3675, 6285, u""},
        {"twice as wide", [&] { bar.setParentSize(20000, 5000); }, 7200, 7275, 12685, u""},
        {"too narrow for both", [&] { bar.setParentSize(2000, 5000); }, 425, 500, 1460, u""},
        {"as before", [&] { bar.setParentSize(10000, 5000); }, 3600, 3675, 6285, u""},
        {"not taken", [&] { bar.drag(500); }, 3600, 3675, 6285, u""},
        {"dragged",
         [&] {
             bar.beginDrag();
             bar.drag(400);
         },
         4000, 4075, 5885, u"4000 "},
        {"at the left end", [&] { bar.drag(-9000); }, 1500, 1575, 8385, u"1500 "},
        {"at the right end",
         [&] {
             bar.drag(90000);
             bar.endDrag();
         },
         8425, 8500, 1460, u"8425 "},
        {"left pane hidden", [&] { bar.setControlVisible1(false); }, -75, 0, 10000, u"-75! "},
        {"shown again", [&] { bar.setControlVisible1(true); }, 8425, 8500, 1460, u"8425! "},
        {"right pane hidden", [&] { bar.setControlVisible2(false); }, 10000, 10075, 0, u"10000! "},
        {"restored",
         [&] {
             bar.setControlVisible2(true);
             bar.setLeft(3000);
         },
         3000, 3075, 6885, u"8425! 3000! "},
        {"no place",
         [&] {
             bar.setLeft(-5);
             bar.setSplitterWidth(std::numeric_limits<float>::quiet_NaN());
         },
         3000, 3075, 6885, u""},
    };
    for (const Case &at : cases) {
        SCOPED_TRACE(at.what);
        at.act();
        EXPECT_EQ(bar.barPlace().left(), at.left);
        EXPECT_EQ(bar.panePlace(Splitter::Second).left(), at.right);
        EXPECT_EQ(bar.panePlace(Splitter::Second).width(), at.rightWidth);
        EXPECT_EQ(std::exchange(events, {}), QString::fromUtf16(at.events));
        EXPECT_EQ(left.Visible(), bar.ControlVisible1());
    }
    EXPECT_EQ(bar.panePlace(Splitter::First), QRectF(0, 0, 3000, 4930));
    EXPECT_EQ(bar.WriteProperties().value(u"ControlName2"_s), u"nobody"_s);
}

} // namespace
