#pragma once

#include <QPushButton>

#include <functional>

namespace ebtq {

class Button;

/// The widget of a Button.
class ButtonView : public QPushButton
{
    Q_OBJECT

public:
    ButtonView(Button &button, QWidget *parent);
    /// Asked on a press; with false nothing happens. None by default.
    void setGuard(std::function<bool()> guard) { m_guard = std::move(guard); }

private:
    std::function<bool()> m_guard;
};

} // namespace ebtq
