#include "library/frame/focus_helper.h"

#include "library/controls/control.h"

namespace ebtq {

void FocusHelper::SetFocus(Control &control) const
{
    control.SetFocus();
}

void FocusHelper::SendKey(int enterKey, int keyCode)
{
    if (keyCode == enterKey || keyCode == KeyDown)
        Q_EMIT moveRequested(true);
    else if (keyCode == KeyUp)
        Q_EMIT moveRequested(false);
}

} // namespace ebtq
