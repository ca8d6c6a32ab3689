#pragma once

#include <QPushButton>

namespace ebtq {

class Button;

/// The widget of a Button.
class ButtonView : public QPushButton
{
    Q_OBJECT

public:
    ButtonView(Button &button, QWidget *parent);
};

} // namespace ebtq
