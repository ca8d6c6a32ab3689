#pragma once

#include "library/controls/control.h"

namespace ebtq {

/// A command button: its Caption holds the mnemonic. Left and Top say where it is on the screen, in pixels,
/// as its view reported before the last press: panels open there.
class Button : public Control
{
    Q_OBJECT
    Q_PROPERTY(int Left READ Left)
    Q_PROPERTY(int Top READ Top)

public:
    explicit Button(const QString &name, int index = -1);
    /// Raises Click as a press does; a disabled or hidden button keeps quiet.
    void press();
    [[nodiscard]] int Left() const { return m_left; }
    [[nodiscard]] int Top() const { return m_top; }
    void setPlace(int left, int top);

Q_SIGNALS:
    void Click();

private:
    int m_left = 0;
    int m_top = 0;
};

} // namespace ebtq
