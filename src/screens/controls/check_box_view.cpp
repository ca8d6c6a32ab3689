#include "screens/controls/check_box_view.h"

#include "library/controls/check_box.h"
#include "screens/controls/control_binding.h"

namespace ebtq {

CheckBoxView::CheckBoxView(CheckBox &box, QWidget *parent, QChar mnemonic)
    : QCheckBox(parent)
{
    bindControl(box, *this);
    const auto follow = [this, &box, mnemonic] {
        setText(withMnemonic(box.Caption(), mnemonic));
        setChecked(box.Value() != 0);
    };
    connect(&box, &CheckBox::Click, this, follow);
    connect(&box, &Control::stateChanged, this, follow);
    follow();
    connect(this, &QCheckBox::toggled, this, [&box](bool on) { box.setValue(on ? 1 : 0); });
}

} // namespace ebtq
