#include "screens/controls/field_view.h"

#include "library/controls/field_control.h"
#include "screens/controls/control_binding.h"
#include "screens/support/screen.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QSignalSpy>
#include <QToolButton>

using namespace ebtq;
using namespace ebtq::test;

namespace {

/// Three fields in a row. The middle one knows one district and gives another one as help.
class FieldViewTest : public testing::Test
{
protected:
    FieldViewTest()
    {
        auto *row = new QHBoxLayout(&window);
        for (auto *view : {&before, &field, &after})
            row->addWidget(view);
        window.resize(600, 200);
        judged(district);
        district.set_help_flag(true);
        district.set_help_type(qzTxt_S::Custom);
        QObject::connect(&district, &qzTxt_S::FieldHelp,
                         [this](int x, int y, QString &text, QVariant &value) {
                             helpAt.append(QPoint(x, y));
                             text = helpText;
                             value = 2;
                         });
        showActive(window);
        field.setFocus();
    }

    static void judged(qzTxt_S &control)
    {
        control.set_judge_type(qzTxt_S::JudgeStatement);
        control.set_judge_time(qzTxt_S::JudgeOnLeaving);
        control.set_error_message(u"城区输入有误，请重新输入！"_qs);
        QObject::connect(
            &control, &qzTxt_S::FieldCheck,
            [&control](const QString &, const QString &, const QString &, QVariant &value, QString &text) {
                value = control.Text() == u"1"_qs ? QVariant(1) : QVariant();
                text = u"天河区"_qs;
            });
    }

    [[nodiscard]] QString bubble() const
    {
        const auto *label = window.findChild<QLabel *>(u"FieldError"_qs);
        return label && label->isVisible() ? label->text() : QString();
    }
    [[nodiscard]] bool isRefused() const
    {
        return field.property("state").toString() == u"error"_qs && !bubble().isEmpty();
    }
    static void settle() { QCoreApplication::processEvents(); }

    qzTxt_S first{u"qzTxt"_qs, 3};
    qzTxt_S district{u"qzTxt"_qs, 0};
    qzTxt_S last{u"qzTxt"_qs, 7};
    QWidget window;
    FieldView before{first, nullptr};
    FieldView field{district, nullptr};
    FieldView after{last, nullptr};
    QList<QPoint> helpAt;
    QString helpText = u"海珠区"_qs;
};

TEST_F(FieldViewTest, EveryWayOutChecksTheText)
{
    constexpr Qt::Key click{};
    const std::tuple<Qt::Key, Qt::KeyboardModifiers, QString> ways[] = {
        {Qt::Key_Tab, {}, u"qzTxt_7"_qs},    {Qt::Key_Backtab, Qt::ShiftModifier, u"qzTxt_3"_qs},
        {Qt::Key_Return, {}, u"qzTxt_7"_qs}, {Qt::Key_Down, {}, u"qzTxt_7"_qs},
        {Qt::Key_Up, {}, u"qzTxt_3"_qs},     {click, {}, u"qzTxt_7"_qs}};
    for (const auto &way : ways) {
        const auto &[key, modifiers, to] = way;
        SCOPED_TRACE(key);
        const auto leave = [this, &way] {
            if (std::get<0>(way) == click)
                QTest::mouseClick(&after, Qt::LeftButton);
            else
                QTest::keyClick(&field, std::get<0>(way), std::get<1>(way));
        };
        const QSignalSpy refusals(&district, &qzTxt_S::checkFailed);
        district.setText(QString());
        field.setFocus();
        QTest::keyClicks(&field, u"x"_qs);
        leave();
        EXPECT_TRUE(key == click || field.hasFocus()) << "keys do not even let go of it for a moment";
        settle();
        EXPECT_EQ(focusName(), u"qzTxt_0"_qs);
        EXPECT_EQ(refusals.size(), 1);
        EXPECT_TRUE(isRefused());
        EXPECT_EQ(bubble(), u"城区输入有误，请重新输入！"_qs);
        EXPECT_EQ(field.selectedText(), u"x"_qs);

        QTest::keyClicks(&field, u"1"_qs); // over the selected text
        EXPECT_FALSE(isRefused()) << "typing takes the mark away";
        leave();
        settle();
        EXPECT_EQ(focusName(), to);
        EXPECT_EQ(district.Value(), QVariant(1));
        EXPECT_EQ(field.text(), u"天河区"_qs);
    }
}

TEST_F(FieldViewTest, EscapeBringsTheLastAcceptedTextBack)
{
    district.setText(u"越秀区"_qs);
    district.setValue(9); // behind the text, as an editor may load it
    QObject::connect(&district, &qzTxt_S::FieldChange, &window, [this] { district.setValue({}); }); // a rule
    field.selectAll();
    QTest::keyClicks(&field, u"x"_qs);
    QTest::keyClick(&field, Qt::Key_Tab);
    ASSERT_TRUE(isRefused());
    QTest::keyClick(&field, Qt::Key_Escape);
    EXPECT_EQ(field.text(), u"越秀区"_qs);
    EXPECT_EQ(district.Value(), QVariant(9));
    EXPECT_EQ(bubble(), QString());
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(&field, &escape);
    EXPECT_FALSE(escape.isAccepted()) << "with nothing to take back Escape is the window's";
}

TEST_F(FieldViewTest, TwoRefusedFieldsDoNotHandTheFocusToAndFro)
{
    judged(last);
    last.setText(u"y"_qs); // put in by the rules, never checked
    QTest::keyClicks(&field, u"x"_qs);
    const QSignalSpy refusals(&last, &qzTxt_S::checkFailed);
    QTest::mouseClick(&after, Qt::LeftButton);
    for (int turn = 0; turn < 5; ++turn)
        settle();
    EXPECT_EQ(focusName(), u"qzTxt_0"_qs);
    EXPECT_EQ(refusals.size(), 0);
}

TEST_F(FieldViewTest, TheBubbleFollowsItsField)
{
    QWidget outer;
    outer.resize(800, 400);
    window.setParent(&outer);
    window.show();
    showActive(outer);
    field.setFocus();
    QTest::keyClicks(&field, u"x"_qs);
    QTest::keyClick(&field, Qt::Key_Tab);
    const auto *label = outer.findChild<QLabel *>(u"FieldError"_qs);
    ASSERT_TRUE(label);
    const QPoint distance = label->pos() - field.mapTo(&outer, QPoint());
    window.move(40, 38);
    settle();
    EXPECT_EQ(label->pos() - field.mapTo(&outer, QPoint()), distance);
    window.layout()->setContentsMargins(30, 60, 30, 0);
    settle();
    EXPECT_EQ(label->pos() - field.mapTo(&outer, QPoint()), distance);
    bool isDeleted = false;
    QObject::connect(label, &QObject::destroyed, &outer, [&] { isDeleted = true; });
    outer.hide();
    EXPECT_FALSE(outer.findChild<QLabel *>(u"FieldError"_qs));
    EXPECT_FALSE(isDeleted) << "the window still goes through its children";
    window.setParent(nullptr);
}

TEST_F(FieldViewTest, KeysAndArrowAskForHelpAtTheFieldsCorner)
{
    const QPoint corner = field.mapToGlobal(QPoint(0, field.height()));
    QTest::keyClick(&field, Qt::Key_F4);
    QTest::keyClick(&field, Qt::Key_Down, Qt::AltModifier);
    auto *arrow = field.findChild<QToolButton *>();
    ASSERT_TRUE(arrow);
    QTest::mouseClick(arrow, Qt::LeftButton);
    settle();
    EXPECT_EQ(helpAt, QList<QPoint>({corner, corner, corner}));
    EXPECT_EQ(field.text(), helpText);
    EXPECT_EQ(district.Value(), QVariant(2));

    district.set_help_flag(false);
    QTest::keyClick(&field, Qt::Key_F4);
    EXPECT_FALSE(arrow->isVisible());
    district.set_help_flag(true);
    district.setEnabled(false);
    EXPECT_FALSE(field.isEnabled());
    EXPECT_FALSE(arrow->isVisible());
    EXPECT_EQ(helpAt.size(), 3);
}

TEST_F(FieldViewTest, TheContextMenuOffersTheChoiceWhereTheFieldSaysSo)
{
    for (const bool offered : {true, false}) {
        district.set_help_menuflag(offered);
        QContextMenuEvent click(QContextMenuEvent::Mouse, QPoint(5, 5), field.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&field, &click);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        EXPECT_EQ(menu->actions().constFirst()->text().startsWith(u"选择(&L)…"_qs), offered);
        if (offered)
            QTest::keyClick(menu, Qt::Key_L);
        menu->close();
        settle();
    }
    EXPECT_EQ(helpAt, QList<QPoint>({field.mapToGlobal(QPoint(0, field.height()))}));
}

TEST_F(FieldViewTest, ConfirmsByEnterAndByAChoiceButNotByAnEmptyOne)
{
    const QSignalSpy confirmed(&field, &FieldView::confirmed);
    QTest::keyClick(&field, Qt::Key_F4);
    EXPECT_EQ(confirmed.size(), 0) << "in a form help confirms nothing";
    field.setEnter(FieldView::Enter::Confirms);
    QTest::keyClick(&field, Qt::Key_F4);
    EXPECT_EQ(confirmed.size(), 0) << "the same choice again is no change";
    helpText = u"越秀区"_qs;
    QTest::keyClick(&field, Qt::Key_F4);
    EXPECT_EQ(confirmed.size(), 1);
    field.clear();
    QTest::keyClicks(&field, u"x"_qs);
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(confirmed.size(), 1) << "a refused text confirms nothing";
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_Delete);
    QTest::keyClick(&field, Qt::Key_Enter);
    EXPECT_EQ(confirmed.size(), 2);
    EXPECT_FALSE(district.Value().isValid());
}

TEST_F(FieldViewTest, TheArrowOfAnotherFieldLeavesThisOneLikeAClick)
{
    first.set_help_flag(true);
    first.set_help_type(qzTxt_S::Custom);
    int asked = 0;
    QObject::connect(&first, &qzTxt_S::FieldHelp, [&] { ++asked; });
    auto *arrow = before.findChild<QToolButton *>();
    ASSERT_TRUE(arrow);
    QTest::keyClicks(&field, u"x"_qs);
    QTest::mouseClick(arrow, Qt::LeftButton);
    settle();
    EXPECT_EQ(asked, 0);
    EXPECT_TRUE(isRefused());
    EXPECT_EQ(focusName(), u"qzTxt_0"_qs);
    QTest::keyClick(&field, Qt::Key_Escape);
    QTest::mouseClick(arrow, Qt::LeftButton);
    settle();
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(focusName(), u"qzTxt_3"_qs);
}

TEST_F(FieldViewTest, FollowsTheControlsLookAndItsCaptionReachesIt)
{
    for (const auto &[given, seen] : {std::pair(qzTxt_S::AlignRight, Qt::AlignRight),
                                      {qzTxt_S::AlignCentre, Qt::AlignHCenter},
                                      {qzTxt_S::AlignLeft, Qt::AlignLeft}}) {
        district.setAlignment(given);
        EXPECT_TRUE(field.alignment().testFlag(seen));
    }
    district.setToolTipText(u"提示"_qs);
    EXPECT_EQ(field.toolTip(), u"提示"_qs);
    district.setVisible(false);
    EXPECT_FALSE(field.isVisible());
    district.setVisible(true);
    EXPECT_TRUE(field.isVisible());
    window.setFocus();
    district.SetFocus();
    EXPECT_EQ(focusName(), u"qzTxt_0"_qs);
    district.setCaption(u"城区(&Q):"_qs);
    const QLabel *caption = makeCaption(district, field, &window);
    EXPECT_EQ(caption->text(), u"城区(&Q):"_qs);
    EXPECT_EQ(caption->buddy(), &field);
    EXPECT_EQ(field.accessibleName(), u"城区"_qs);
    district.setCaption(u"地区"_qs);
    EXPECT_EQ(caption->text(), u"地区"_qs);
}

} // namespace
