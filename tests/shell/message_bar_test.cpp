#include "shell/message_bar.h"

#include "contracts/host_contracts.h"

#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace ebtq::shell {
namespace {

class MessageBarTest : public ::testing::Test
{
protected:
    MessageBarTest()
    {
        window.resize(400, 300);
        bar.resize(400, 200);
        window.show();
        window.activateWindow();
        QApplication::processEvents();
    }
    void closeShown(int position)
    {
        QApplication::processEvents();
        std::vector<QToolButton *> buttons;
        for (auto *button : bar.findChildren<QToolButton *>())
            if (button->isVisible())
                buttons.push_back(button);
        QTest::mouseClick(buttons.at(static_cast<size_t>(position)), Qt::LeftButton);
    }

    QWidget window;
    MessageBar bar{&window};
};

TEST_F(MessageBarTest, ShowsTheNewestOnTopAndCountsRepeats)
{
    EXPECT_FALSE(bar.isVisible());
    bar.add(u"甲"_qs, Refusal, u"房源"_qs);
    bar.add(u"乙"_qs, FailureLevel, {});
    EXPECT_EQ(bar.shownTexts(), QStringList({u"乙"_qs, u"房源：甲"_qs}));
    bar.add(u"Fcxx-->LoadData::丙<1"_qs, FailureLevel, u"EBTQ_S"_qs);
    EXPECT_EQ(bar.shownTexts().front(), u"丙<1");
    EXPECT_TRUE(std::ranges::any_of(bar.findChildren<QLabel *>(u"messageText"_qs), [](QLabel *label) {
        return label->toolTip().contains(u"EBTQ_S：Fcxx--&gt;LoadData::丙&lt;1"_qs);
    }));
    bar.closeNewest();
    QApplication::processEvents();
    const QImage picture = bar.grab().toImage();
    EXPECT_NE(picture.pixelColor(20, 3), picture.pixelColor(20, bar.height() - 5)) << "by their level";
    bar.add(u"甲"_qs, Refusal, u"房源"_qs);
    EXPECT_EQ(bar.shownTexts(), QStringList({u"房源：甲（2 次）"_qs, u"乙"_qs}));
    bar.add(u"甲"_qs, FailureLevel, u"房源"_qs);
    EXPECT_EQ(bar.shownTexts().front(), u"房源：甲"_qs) << "another level is another message";
}

TEST_F(MessageBarTest, KeepsWhatDoesNotFit)
{
    for (const char16_t letter : u"abcde")
        if (letter)
            bar.add(QString(QChar(letter)), Refusal, {});
    const auto texts = [this] { return bar.shownTexts().join(u','); };
    EXPECT_EQ(texts(), u"e,d,c");
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(texts(), u"d,c,b");
    closeShown(1);
    EXPECT_EQ(texts(), u"d,b,a");
    for (int left = 3; left > 0; --left)
        closeShown(0);
    EXPECT_FALSE(bar.isVisible());
}

TEST_F(MessageBarTest, ALongTextWrapsAndMarkUpStaysText)
{
    const QString text = u"<b>很长的说明</b>"_qs.repeated(20);
    bar.add(text, FailureLevel, {});
    QApplication::processEvents();
    auto *label = bar.findChild<QLabel *>(u"messageText"_qs);
    EXPECT_EQ(label->text(), text);
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_GE(label->heightForWidth(380), 3 * label->fontMetrics().height());
    EXPECT_LE(bar.minimumSizeHint().width(), 400) << "a long message must not widen the window";
}

TEST_F(MessageBarTest, EscapeIsLeftToOthersWhileThereIsNoMessage)
{
    struct Listener : QWidget
    {
        int escapes = 0;
        void keyPressEvent(QKeyEvent *event) override { escapes += event->key() == Qt::Key_Escape; }
    };
    auto *listener = new Listener;
    listener->setParent(&window);
    listener->show();
    listener->setFocus();
    bar.add(u"甲"_qs, Refusal, {});
    bar.findChild<QLabel *>(u"messageText"_qs)->setFocus();
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(listener->escapes, 0);
    EXPECT_TRUE(listener->hasFocus()) << "back to where the person was";
    QTest::keyClick(listener, Qt::Key_Escape);
    EXPECT_EQ(listener->escapes, 1);
    auto *going = new MessageBar(&window);
    going->add(u"甲"_qs, Refusal, {});
    going->findChild<QLabel *>(u"messageText"_qs)->setFocus();
    delete going; // while its text has the keyboard
}

} // namespace
} // namespace ebtq::shell
