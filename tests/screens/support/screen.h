#pragma once

#include "database/values/row_block.h"

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

namespace ebtq::test {

/// Shows the window and returns when it is active, so that its widgets get keys and focus.
void showActive(QWidget &window);

/// The name of the widget that has the keyboard; empty when none has.
QString focusName();

/// The widget of that name; throws when there is none.
template<class T = QWidget> [[nodiscard]] T &child(const QWidget &window, const QString &name)
{
    if (auto *widget = window.findChild<T *>(name))
        return *widget;
    throw std::runtime_error("no widget " + name.toStdString());
}

/// Fails the test when a label, a field, a button or a box in sight is cut or covered; gives how many there
/// are.
qsizetype expectNothingIsCut(const QWidget &window, int linesOfABox = 2);

/// Types a text in any script, key by key, into the widget.
void typeText(QWidget &widget, const QString &text);

/// Runs `answer` as soon as a modal window is up, and fails the test when none comes.
class WhenModal
{
public:
    explicit WhenModal(std::function<void(QWidget &window)> answer);
    ~WhenModal();

private:
    QTimer m_timer;
    bool m_answered = false;
};

/// Rows of texts.
RowBlock textBlock(std::initializer_list<std::initializer_list<std::string>> rows);

} // namespace ebtq::test
