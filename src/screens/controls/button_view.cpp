#include "screens/controls/button_view.h"

#include "library/controls/button.h"
#include "screens/controls/control_binding.h"

namespace ebtq {

ButtonView::ButtonView(Button &button, QWidget *parent)
    : QPushButton(parent)
{
    bindControl(button, *this);
    setAutoDefault(false);
    const auto follow = [this, &button] { setText(button.Caption()); };
    connect(&button, &Control::stateChanged, this, follow);
    follow();
    connect(this, &QPushButton::clicked, &button, [this, &button] {
        if (m_guard && !m_guard())
            return;
        const QPoint corner = mapToGlobal(QPoint());
        button.setPlace(corner.x(), corner.y());
        button.press();
    });
}

} // namespace ebtq
