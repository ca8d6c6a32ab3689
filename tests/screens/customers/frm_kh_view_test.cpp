#include "screens/customers/frm_kh_view.h"

#include "library/customers/frm_kh_fixture.h"
#include "screens/support/screen.h"

#include <QApplication>
#include <QTest>

using namespace ebtq;
using namespace ebtq::test;

namespace {

using FrmKhViewTest = FrmKhTest;

TEST_F(FrmKhViewTest, TabGoesInReadingOrderKeysMoveAndASaveLeavesTheFormOpen)
{
    insertCustomers(u"K1 K2 K3"_qs);
    open(u"C2"_qs, [&] {
        FrmKhView view(form, nullptr);
        view.setFocus();
        showActive(view);
        for (const QString &name :
             u"0 1 2 3 4 5 6 Opt_0 7 8 9 11 12 13 10 14 15 16 17 Chk_0 18 19 Chk_1 26 27 20 "
             u"21 25 24 22 23 Txt Cmd_2 Cmd_3 Cmd_4 Cmd_5 Cmd_6 Cmd_0 Cmd_1"_qs.split(u' ')) {
            EXPECT_EQ(focusName(), name[0].isDigit() ? u"qzTxt_"_qs + name : name);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        EXPECT_LE(view.minimumSizeHint().width(), 1240);
        EXPECT_LE(view.minimumSizeHint().height(), 660);
        EXPECT_GT(expectNothingIsCut(view, 3), 70);

        const std::pair<Qt::Key, const char16_t *> keys[] = {{Qt::Key_End, u"K3 3/3"},
                                                             {Qt::Key_PageUp, u"K2 2/3"},
                                                             {Qt::Key_Home, u"K1 1/3"},
                                                             {Qt::Key_PageDown, u"K2 2/3"}};
        for (const auto &[key, expected] : keys) {
            QTest::keyClick(&child(view, u"qzTxt_14"_qs), key, Qt::ControlModifier);
            EXPECT_EQ(place(), QString::fromUtf16(expected));
        }
        QTest::keyClick(&child(view, u"Txt"_qs), Qt::Key_Home, Qt::ControlModifier);
        EXPECT_EQ(place(), u"K2 2/3") << "the remark keeps its keys";

        QTest::keyClick(&view, Qt::Key_I, Qt::AltModifier);
        typeText(child(view, u"qzTxt_14"_qs), u"80"_qs);
        QTest::keyClick(&view, Qt::Key_S, Qt::AltModifier);
        EXPECT_FALSE(form.isDirty()) << "saved before any other key";
        EXPECT_TRUE(view.isVisible());
    });
    EXPECT_EQ(stored(u"面积1 & 状态"_qs), u" 801 ");
}

} // namespace
