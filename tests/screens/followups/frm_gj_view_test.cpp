#include "screens/followups/frm_gj_view.h"

#include "contracts/color_parts.h"
#include "library/followups/frm_gj.h"
#include "library/listings/frm_fx_fixture.h"
#include "screens/frame/back_color.h"
#include "screens/support/screen.h"

#include <QLineEdit>

using namespace ebtq;
using namespace ebtq::test;

namespace {

/// The editor of follow-ups on the screen, over a database.
class FrmGjViewTest : public FrmFxTest
{
protected:
    void openOnScreen(const std::function<void(QWidget &)> &act)
    {
        desktop.willShow([&](QObject &) {
            FrmGjView view(gj, nullptr);
            showActive(view);
            act(view);
        });
        gj.py_Init(app, u"L1"_qs, {}, false);
    }
    /// Goes on with Tab, types into each field and gives the names of those passed.
    static QStringList fillByKeyboard(const QHash<QString, QString> &texts, int steps)
    {
        QStringList walked;
        for (int step = 0; step < steps; ++step) {
            QWidget *focused = QApplication::focusWidget();
            walked.append(focused->objectName());
            if (texts.contains(walked.last())) {
                QTest::keyClick(focused, Qt::Key_A, Qt::ControlModifier);
                typeText(*focused, texts.value(walked.last()));
            }
            QTest::keyClick(focused, Qt::Key_Tab);
        }
        return walked;
    }

    FrmGj gj{desktop};
};

TEST_F(FrmGjViewTest, TabReachesEveryFieldAndALetterSaves)
{
    script = {{}, u"李强"_qs, 5, nullptr};
    openOnScreen([&](QWidget &view) {
        EXPECT_EQ(view.windowTitle(), u"房源跟进记录[*]");
        EXPECT_EQ(focusName(), u"Txt");
        EXPECT_FALSE(child(view, u"qzTxt_3"_qs).isEnabled());
        EXPECT_EQ(
            fillByKeyboard({{u"Txt"_qs, u"客户很满意"_qs}}, 6),
            QStringList({u"Txt"_qs, u"qzTxt_0"_qs, u"qzTxt_2"_qs, u"Chk"_qs, u"Cmd_0"_qs, u"Cmd_1"_qs}));
        QTest::keyClick(&view, Qt::Key_T, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return child(view, u"qzTxt_3"_qs).isEnabled(); }));
        const QHash<QString, QString> texts{{u"qzTxt_0"_qs, u"2026-1-2"_qs}, {u"qzTxt_2"_qs, u"李"_qs},
                                            {u"qzTxt_3"_qs, u"2026-1-9"_qs}, {u"qzTxt_4"_qs, u"全部"_qs},
                                            {u"qzTxt_5"_qs, u"回电"_qs},     {u"qzTxt_6"_qs, u"约好"_qs}};
        child(view, u"Txt"_qs).setFocus();
        EXPECT_EQ(fillByKeyboard(texts, 8),
                  QStringList({u"Txt"_qs, u"qzTxt_0"_qs, u"qzTxt_2"_qs, u"Chk"_qs, u"qzTxt_3"_qs,
                               u"qzTxt_4"_qs, u"qzTxt_5"_qs, u"qzTxt_6"_qs}));
        EXPECT_EQ(gj.Txt().Text(), u"客户很满意");
        for (const auto &[name, text] : texts.asKeyValueRange())
            EXPECT_EQ(child<QLineEdit>(view, name).text(), text == u"李" ? u"李强"_qs : text);
        QTest::keyClick(&view, Qt::Key_S, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !view.isVisible(); })) << "closed by the save";
    });
    EXPECT_EQ(rows(u"select 跟进ID from fygj where 房源ID='L1' and 下次提醒=1"_qs).rowCount(), 1);
}

TEST_F(FrmGjViewTest, TheStylerIsGivenTheFormEachTimeItComesToTheFront)
{
    int styled = 0;
    app.setFormStyler([&](QObject &shown) { styled += &shown == &gj ? 1 : 0; });
    openOnScreen([&](QWidget &view) {
        EXPECT_EQ(styled, 1);
        QWidget other;
        showActive(other);
        showActive(view);
        EXPECT_EQ(styled, 2);
        EXPECT_LE(view.minimumSizeHint().width(), 1240);
        EXPECT_LE(view.minimumSizeHint().height(), 660);
        const auto left = [&](int number) {
            return child(view, u"qzTxt_%1"_qs.arg(number)).mapTo(&view, QPoint()).x();
        };
        EXPECT_TRUE(left(0) == left(3) && left(3) == left(5) && left(5) == left(6) && left(2) == left(4));
    });
}

TEST_F(FrmGjViewTest, ItsBackgroundIsTheModulesOrTheDesktops)
{
    openOnScreen([&](QWidget &view) {
        const auto corner = [&] { return view.grab().toImage().pixelColor(1, 1); };
        const QColor usual = corner();
        followBackColor(gj, view);
        for (const auto &[number, color] : {std::pair(0xC0FFFF, QColor(255, 255, 192)),
                                            {-1, usual},
                                            {systemButtonFace, QColor(0xF0F0F0)}}) {
            gj.setBackColor(number);
            EXPECT_EQ(corner(), color) << number;
        }
        view.close();
    });
}

} // namespace
