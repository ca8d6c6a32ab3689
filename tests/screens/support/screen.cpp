#include "screens/support/screen.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace ebtq::test {

void showActive(QWidget &window)
{
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
}

QString focusName()
{
    const QWidget *widget = QApplication::focusWidget();
    return widget ? widget->objectName() : QString();
}

void typeText(QWidget &widget, const QString &text)
{
    for (const QChar letter : text)
        QTest::sendKeyEvent(QTest::Click, &widget, Qt::Key_unknown, QString(letter), Qt::NoModifier);
}

WhenModal::WhenModal(std::function<void(QWidget &window)> answer)
{
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, answer = std::move(answer)] {
        QWidget *window = QApplication::activeModalWidget();
        if (!window || !window->isVisible())
            return;
        m_timer.stop();
        m_answered = true;
        answer(*window);
    });
    m_timer.start(0);
}

WhenModal::~WhenModal()
{
    EXPECT_TRUE(m_answered) << "no modal window came up";
}

RowBlock textBlock(std::initializer_list<std::initializer_list<std::string>> rows)
{
    RowBlock block(std::vector<Column>(rows.begin()->size()));
    for (const auto &row : rows)
        for (const std::string &cell : row)
            block.append(cell);
    block.finish();
    return block;
}

} // namespace ebtq::test
