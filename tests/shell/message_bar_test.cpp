#include "shell/message_bar.h"

#include "library/frame/host_contracts.h"

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
    bar.add(QStringLiteral("甲"), Refusal, QStringLiteral("房源"));
    bar.add(QStringLiteral("乙"), FailureLevel, {});
    EXPECT_EQ(bar.shownTexts(), QStringList({QStringLiteral("乙"), QStringLiteral("房源：甲")}));
    bar.add(QStringLiteral("甲"), Refusal, QStringLiteral("房源"));
    EXPECT_EQ(bar.shownTexts(), QStringList({QStringLiteral("房源：甲（2 次）"), QStringLiteral("乙")}));
    bar.add(QStringLiteral("甲"), FailureLevel, QStringLiteral("房源"));
    EXPECT_EQ(bar.shownTexts().front(), QStringLiteral("房源：甲")) << "another level is another message";
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

TEST_F(MessageBarTest, LevelsLookDifferent)
{
    bar.add(QStringLiteral("甲"), Refusal, {});
    bar.add(QStringLiteral("乙"), FailureLevel, {});
    QApplication::processEvents();
    const QImage picture = bar.grab().toImage();
    const int failureRow = 3;
    const int refusalRow = bar.height() - 5;
    EXPECT_NE(picture.pixelColor(20, failureRow), picture.pixelColor(20, refusalRow));
}

TEST_F(MessageBarTest, ALongTextWrapsAndMarkUpStaysText)
{
    const QString text = QStringLiteral("<b>很长的说明</b>").repeated(20);
    bar.add(text, FailureLevel, {});
    QApplication::processEvents();
    auto *label = bar.findChild<QLabel *>(QStringLiteral("messageText"));
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
    bar.add(QStringLiteral("甲"), Refusal, {});
    QTest::keyClick(listener, Qt::Key_Escape);
    EXPECT_EQ(listener->escapes, 0);
    QTest::keyClick(listener, Qt::Key_Escape);
    EXPECT_EQ(listener->escapes, 1);
}

} // namespace
} // namespace ebtq::shell
