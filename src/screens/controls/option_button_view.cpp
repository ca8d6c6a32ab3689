#include "screens/controls/option_button_view.h"

#include "library/controls/option_button.h"
#include "screens/controls/control_binding.h"

namespace ebtq {

OptionButtonView::OptionButtonView(OptionButton &button, QWidget *parent, QChar mnemonic)
    : QRadioButton(parent)
{
    bindControl(button, *this);
    const auto follow = [this, &button, mnemonic] {
        setText(withMnemonic(button.Caption(), mnemonic));
        setChecked(button.Value() != 0);
    };
    connect(&button, &OptionButton::Click, this, follow);
    connect(&button, &Control::stateChanged, this, follow);
    follow();
    connect(this, &QRadioButton::toggled, this, [&button](bool on) { button.setValue(on ? 1 : 0); });
}

} // namespace ebtq
