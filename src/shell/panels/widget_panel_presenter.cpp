#include "shell/panels/widget_panel_presenter.h"

#include "shell/panels/calendar_popup.h"
#include "shell/panels/panel_popup.h"

namespace ebtq::shell {

std::optional<qsizetype> WidgetPanelPresenter::choose(const host::Panel &panel)
{
    PanelPopup popup(panel);
    popup.showAndWait({panel.left, panel.top});
    return popup.chosen();
}

std::optional<QDate> WidgetPanelPresenter::chooseDate(const QDate &preset, int left, int top)
{
    CalendarPopup popup(preset);
    popup.showAndWait({left, top});
    return popup.chosen();
}

} // namespace ebtq::shell
