#include "library/controls/button.h"
#include "library/controls/check_box.h"
#include "library/controls/combo_box.h"
#include "library/controls/nav_toolbar.h"
#include "library/controls/search_box.h"
#include "library/controls/text_box.h"
#include "screens/controls/button_view.h"
#include "screens/controls/check_box_view.h"
#include "screens/controls/combo_view.h"
#include "screens/controls/flow_layout.h"
#include "screens/controls/search_box_view.h"
#include "screens/controls/text_box_view.h"
#include "screens/controls/tool_bar_view.h"
#include "screens/support/screen.h"

#include <QAbstractItemView>
#include <QFrame>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

using namespace ebtq;
using namespace ebtq::test;

namespace {

TEST(CheckBoxView, GoesBothWaysAndTellsTheUsersTicks)
{
    CheckBox box(QStringLiteral("Chk"), 1);
    box.setCaption(QStringLiteral("出租"));
    CheckBoxView view(box, nullptr);
    const QSignalSpy clicks(&view, &QCheckBox::clicked);
    EXPECT_EQ(view.objectName(), QStringLiteral("Chk_1"));
    EXPECT_EQ(view.text(), QStringLiteral("出租"));
    box.setValue(1);
    EXPECT_TRUE(view.isChecked());
    EXPECT_EQ(clicks.size(), 0);
    QTest::keyClick(&view, Qt::Key_Space);
    EXPECT_EQ(box.Value(), 0);
    EXPECT_EQ(clicks.size(), 1);
}

TEST(TextAreaView, LeavesAStoredTextAloneUntilItIsEdited)
{
    TextBox box(QStringLiteral("Txt"), 1, TextBox::Lines::Many);
    box.setText(QStringLiteral("下午\r\n联系"));
    TextAreaView view(box, nullptr);
    box.setText(QStringLiteral("先电话\r\n后上门"));
    EXPECT_EQ(view.toPlainText(), QStringLiteral("先电话\n后上门"));
    EXPECT_EQ(box.Text(), QStringLiteral("先电话\r\n后上门"));
    view.moveCursor(QTextCursor::End);
    QTest::keyClicks(&view, QStringLiteral("!"));
    EXPECT_EQ(box.Text(), QStringLiteral("先电话\n后上门!"));
}

TEST(TextBoxView, GoesBothWaysAndPassesEnterOn)
{
    TextBox box(QStringLiteral("Txt"), 0);
    TextBoxView view(box, nullptr);
    const QSignalSpy returns(&box, &TextBox::ReturnPressed);
    box.setText(QStringLiteral("A'"));
    EXPECT_EQ(view.text(), box.Text());
    QTest::keyClicks(&view, QStringLiteral("1\r"));
    EXPECT_EQ(box.Text(), QStringLiteral("A'1"));
    EXPECT_EQ(returns.size(), 1);
}

TEST(ButtonView, PressesOnlyWhatCanBePressed)
{
    Button button(QStringLiteral("Cmd"), 0);
    button.setCaption(QStringLiteral("保存(&S)"));
    ButtonView view(button, nullptr);
    const QSignalSpy clicks(&button, &Button::Click);
    EXPECT_EQ(view.text(), button.Caption());
    view.click();
    button.setEnabled(false);
    view.click();
    button.press();
    EXPECT_EQ(clicks.size(), 1);
}

class ComboViewTest : public testing::Test
{
protected:
    ComboViewTest()
    {
        combo.setItems({QStringLiteral("三天内"), QStringLiteral("十天内"), QStringLiteral("全部")});
        window.setLayout(new QHBoxLayout);
        window.layout()->addWidget(&view);
        window.layout()->addWidget(&other);
        showActive(window);
        view.setFocus();
    }

    XPCombo combo{QStringLiteral("XPCmb")};
    QWidget window;
    ComboView view{combo, nullptr};
    QLineEdit other;
    QSignalSpy confirmed{&view, &ComboView::confirmed};
};

TEST_F(ComboViewTest, StartsEmptyAndTakesAnyTextLetterByLetter)
{
    EXPECT_EQ(view.count(), 3);
    EXPECT_EQ(view.currentText(), QString());
    typeText(view, QStringLiteral(" 十天内"));
    EXPECT_EQ(combo.Text(), QStringLiteral(" 十天内")) << "the leading blank counts";
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(confirmed.size(), 1);
    EXPECT_EQ(view.count(), 3) << "typed texts do not get into the list";
    view.lineEdit()->selectAll();
    typeText(view, QStringLiteral("三"));
    EXPECT_EQ(combo.Text(), QStringLiteral("三")) << "nothing is completed";
    combo.setText(QStringLiteral(" 十天内"));
    QTest::keyClick(&view, Qt::Key_End);
    QTest::keyClick(&view, Qt::Key_Backspace);
    EXPECT_EQ(combo.Text(), QStringLiteral(" 十天"));
    QTest::keyClick(&view, Qt::Key_Home);
    QTest::keyClicks(&view, QStringLiteral("a"));
    EXPECT_EQ(combo.Text(), QStringLiteral("a 十天")) << "the cursor stays where it was";
}

TEST_F(ComboViewTest, ConfirmsOnEnterOnAChoiceAndOnLeavingWithAnotherText)
{
    QTest::keyClick(&view, Qt::Key_Down);
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_EQ(combo.Text(), QStringLiteral("十天内"));
    EXPECT_EQ(confirmed.size(), 0) << "going through the entries decides nothing";
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(confirmed.size(), 1);
    other.setFocus();
    EXPECT_EQ(confirmed.size(), 1) << "it is confirmed already";
    view.setFocus();
    view.showPopup();
    QTest::keyClick(view.view(), Qt::Key_Down);
    QTest::keyClick(view.view(), Qt::Key_Return);
    EXPECT_EQ(combo.Text(), QStringLiteral("全部"));
    EXPECT_EQ(confirmed.size(), 2);
    view.lineEdit()->selectAll();
    typeText(view, QStringLiteral("三天内"));
    other.setFocus();
    EXPECT_EQ(confirmed.size(), 3);
    combo.setText(QStringLiteral("十天内")); // as the layout is restored
    view.setFocus();
    other.setFocus();
    EXPECT_EQ(confirmed.size(), 3);
}

TEST_F(ComboViewTest, FollowsTheRulesWithoutAnswering)
{
    combo.setText(QStringLiteral("十天内"));
    EXPECT_EQ(view.currentText(), QStringLiteral("十天内"));
    EXPECT_EQ(view.currentIndex(), 1);
    combo.setText(QString());
    EXPECT_EQ(view.currentText(), QString());
    combo.setText(QStringLiteral("foreign"));
    EXPECT_EQ(view.currentText(), QStringLiteral("foreign"));
    combo.setItems({QStringLiteral("x")});
    EXPECT_EQ(view.count(), 1);
    EXPECT_EQ(view.currentText(), QStringLiteral("foreign"));
    EXPECT_EQ(confirmed.size(), 0);
}

TEST(SearchBoxView, TypesSearchesAndClears)
{
    SearchBox box(QStringLiteral("SearchBox1"));
    QWidget window;
    QLineEdit other(&window);
    SearchBoxView view(box, &window);
    showActive(window);
    QSignalSpy searches(&box, &SearchBox::Search);
    const QSignalSpy clears(&box, &SearchBox::Clear);
    other.setFocus();
    QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(focusName(), QStringLiteral("SearchBox1"));
    QTest::keyClicks(&view, QStringLiteral("ab"));
    EXPECT_EQ(box.Text(), QStringLiteral("ab"));
    QTest::keyClick(&view, Qt::Key_Return);
    ASSERT_EQ(searches.size(), 1);
    EXPECT_EQ(searches.takeFirst().at(0).toString(), QStringLiteral("ab"));
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_EQ(box.Text(), QString());
    EXPECT_EQ(clears.size(), 1);
    box.setText(QStringLiteral("restored"));
    EXPECT_EQ(view.text(), QStringLiteral("restored"));
}

class ToolBarViewTest : public testing::Test
{
protected:
    ToolBarViewTest()
    {
        bar.setItems({item(u"all"), item(u""), item(u"new", false), item(u""), item(u"refresh"), item(u"")});
        QObject::connect(&bar, &NavToolbar::ButtonClick, [this](const QString &key) { pressed.append(key); });
        showActive(view);
    }
    static NavToolbar::Item item(QStringView key, bool visible = true)
    {
        return {key.toString(), key.toString(), QString(), true, visible};
    }
    [[nodiscard]] QToolButton *button(const QString &key) const
    {
        return view.findChild<QToolButton *>(QStringLiteral("NavToolbar1_") + key);
    }
    [[nodiscard]] int shownSeparators() const
    {
        int shown = 0;
        for (const QFrame *line : view.findChildren<QFrame *>())
            shown += line->property("kind") == QStringLiteral("separator") && line->isVisible() ? 1 : 0;
        return shown;
    }

    NavToolbar bar{QStringLiteral("NavToolbar1")};
    ToolBarView view{bar, nullptr};
    QStringList pressed;
};

TEST_F(ToolBarViewTest, ShowsWhatIsVisibleAndOneSeparatorBetweenNeighbours)
{
    EXPECT_TRUE(button(QStringLiteral("all"))->isVisible());
    EXPECT_FALSE(button(QStringLiteral("new"))->isVisible());
    EXPECT_EQ(shownSeparators(), 1);
    bar.setItems({item(u""), item(u"all"), item(u""), item(u"new"), item(u""), item(u"refresh")});
    EXPECT_EQ(shownSeparators(), 2);
    EXPECT_TRUE(button(QStringLiteral("new"))->isVisible());
}

TEST_F(ToolBarViewTest, PressesByMouseAndShortcutWithinGuardAndRights)
{
    view.setShortcuts({{QStringLiteral("all"), QKeySequence(Qt::ALT | Qt::Key_A)}});
    EXPECT_EQ(button(QStringLiteral("all"))->toolTip(), QStringLiteral("all (Alt+A)"));
    EXPECT_EQ(button(QStringLiteral("all"))->text(), QStringLiteral("all(&A)"));
    EXPECT_EQ(button(QStringLiteral("refresh"))->text(), QStringLiteral("refresh"));
    QTest::mouseClick(button(QStringLiteral("all")), Qt::LeftButton);
    QTest::keyClick(&view, Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return pressed.size() == 2; }))
        << "a shortcut shows the button pressed first";
    EXPECT_EQ(pressed.value(1), QStringLiteral("all"));
    bar.setEnabled(QStringLiteral("all"), false);
    EXPECT_FALSE(button(QStringLiteral("all"))->isEnabled());
    QTest::mouseClick(button(QStringLiteral("all")), Qt::LeftButton);
    QTest::keyClick(&view, Qt::Key_A, Qt::AltModifier);
    view.setGuard([](const QString &key) { return key != QStringLiteral("refresh"); });
    QTest::mouseClick(button(QStringLiteral("refresh")), Qt::LeftButton);
    EXPECT_EQ(pressed.size(), 2);
}

TEST_F(ToolBarViewTest, OnlyTheCurrentKeyStaysPressed)
{
    view.setCurrentKey(QStringLiteral("all"));
    QTest::mouseClick(button(QStringLiteral("refresh")), Qt::LeftButton);
    EXPECT_TRUE(button(QStringLiteral("all"))->isChecked());
    EXPECT_FALSE(button(QStringLiteral("refresh"))->isChecked());
    view.setCurrentKey(QString());
    EXPECT_FALSE(button(QStringLiteral("all"))->isChecked());
}

TEST(FlowLayout, FoldsWithoutCuttingAndGivesTheRestToWhatGrows)
{
    QWidget parent;
    auto *flow = new FlowLayout(&parent);
    flow->setContentsMargins(5, 5, 5, 5);
    flow->setSpacing(10);
    QList<QWidget *> boxes;
    for (int box = 0; box < 4; ++box) {
        auto *widget = new QWidget(&parent);
        box < 3 ? widget->setFixedSize(100, 20) : widget->setMinimumSize(100, 20);
        boxes.append(widget);
        flow->addWidget(widget);
    }
    boxes[3]->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    boxes[3]->setMaximumWidth(150);
    struct Case
    {
        int width;
        int height;
        QRect last;
    };
    const Case cases[] = {
        {600, 30, QRect(335, 5, 150, 20)}, // one line, and no more than it may have
        {460, 30, QRect(335, 5, 120, 20)},
        {240, 60, QRect(115, 35, 120, 20)},
        {110, 120, QRect(5, 95, 100, 20)},
    };
    for (const Case &expected : cases) {
        SCOPED_TRACE(expected.width);
        EXPECT_EQ(flow->heightForWidth(expected.width), expected.height);
        parent.resize(expected.width, expected.height);
        flow->setGeometry(QRect(0, 0, expected.width, expected.height));
        EXPECT_EQ(boxes[3]->geometry(), expected.last);
    }
    boxes[1]->hide();
    EXPECT_EQ(flow->heightForWidth(330), 30) << "what is hidden takes no room";
    flow->setGeometry(QRect(0, 0, 330, 30));
    EXPECT_EQ(boxes[2]->x(), 115);
}

} // namespace
