#pragma once

#include <QFrame>

#include <functional>
#include <vector>

namespace ebtq::shell {

/// Quiet notices above the modules, each with one thing to do about it and a close button. They take no
/// keyboard and cover nothing.
class NoticeBar : public QWidget
{
    Q_OBJECT

public:
    explicit NoticeBar(QWidget *parent = nullptr);

    /// A notice with the same name is replaced. `act` is called when the person presses `action`; the notice
    /// goes with it.
    void add(const QString &name, const QString &text, const QString &action, std::function<void()> act);
    /// Changes the text of a notice that is there.
    void setText(const QString &name, const QString &text);
    void remove(const QString &name);
};

} // namespace ebtq::shell
