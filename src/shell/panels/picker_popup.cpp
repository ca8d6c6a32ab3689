#include "shell/panels/picker_popup.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QSizeGrip>

namespace ebtq::shell {

PickerPopup::PickerPopup(const QSize &size)
    : m_size(size)
    , m_grip(new QSizeGrip(this))
{
    // No window manager knows of popups, so the grip must not ask one to size this.
    setWindowFlag(Qt::X11BypassWindowManagerHint);
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->addWidget(m_grip, 0, 0, Qt::AlignBottom | Qt::AlignRight);
}

void PickerPopup::setView(QWidget &view)
{
    static_cast<QGridLayout *>(layout())->addWidget(&view, 0, 0);
    m_grip->raise();
    setFocusProxy(&view);
    view.setFocus();
}

void PickerPopup::choose()
{
    m_isChosen = true;
    hide();
}

QSize PickerPopup::sizeHint() const
{
    return m_size.isValid() ? m_size : Popup::sizeHint();
}

void PickerPopup::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        hide();
    else
        Popup::keyPressEvent(event);
}

} // namespace ebtq::shell
