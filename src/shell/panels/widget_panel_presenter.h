#pragma once

#include "host/panel_presenter.h"

namespace ebtq::shell {

/// Panels as pop-up windows at the field.
class WidgetPanelPresenter : public host::PanelPresenter
{
public:
    std::optional<qsizetype> choose(const host::Panel &panel) override;
    std::optional<QDate> chooseDate(const QDate &preset, int left, int top) override;
};

} // namespace ebtq::shell
