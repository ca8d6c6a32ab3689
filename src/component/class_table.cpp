#include "component/class_table.h"

#include "library/controls/splitter.h"
#include "library/customers/frm_kh.h"
#include "library/customers/khxx.h"
#include "library/dictionaries/pdm_cq.h"
#include "library/dictionaries/pdm_fx.h"
#include "library/dictionaries/pdm_lpzd.h"
#include "library/followups/cx_gj.h"
#include "library/followups/frm_gj.h"
#include "library/followups/yj_tx.h"
#include "library/listings/fcxx.h"
#include "library/listings/frm_fx.h"
#include "library/matching/match_reasons.h"
#include "library/pickers/picked_rows.h"
#include "library/pickers/sel_pdm.h"
#include "library/pickers/sel_pdm_dz.h"
#include "library/pickers/sel_pdm_lpzd.h"
#include "screens/controls/splitter_view.h"
#include "screens/customers/frm_kh_view.h"
#include "screens/customers/khxx_view.h"
#include "screens/dictionaries/pdm_cq_view.h"
#include "screens/dictionaries/pdm_fx_view.h"
#include "screens/dictionaries/pdm_lpzd_view.h"
#include "screens/followups/cx_gj_view.h"
#include "screens/followups/frm_gj_view.h"
#include "screens/followups/yj_tx_view.h"
#include "screens/frame/view_registry.h"
#include "screens/listings/fcxx_view.h"
#include "screens/listings/frm_fx_view.h"
#include "screens/matching/match_reasons_view.h"
#include "screens/pickers/picker_view.h"

namespace ebtq {

namespace {

template<class Module, class View> constexpr ComponentClass componentClass(QLatin1String name)
{
    return {name,
            [](Desktop &desktop) -> std::unique_ptr<QObject> { return std::make_unique<Module>(desktop); },
            [](ViewRegistry &views) { views.add<Module, View>(); }};
}

/// A control that is no module: it asks nobody anything.
template<class Control, class View> constexpr ComponentClass controlClass(QLatin1String name)
{
    return {name, [](Desktop &) -> std::unique_ptr<QObject> { return std::make_unique<Control>(); },
            [](ViewRegistry &views) { views.add<Control, View>(); }};
}

/// A record, which nobody sees.
template<class Record> constexpr ComponentClass recordClass(QLatin1String name)
{
    return {name, [](Desktop &) -> std::unique_ptr<QObject> { return std::make_unique<Record>(); },
            [](ViewRegistry &) {}};
}

const ComponentClass classes[] = {
    componentClass<Fcxx, FcxxView>(QLatin1String("EBTQ_S.Fcxx")),
    componentClass<khxx, KhxxView>(QLatin1String("EBTQ_S.khxx")),
    componentClass<Cx_Gj, CxGjView>(QLatin1String("EBTQ_S.Cx_Gj")),
    componentClass<YjTx, YjTxView>(QLatin1String("EBTQ_S.YjTx")),
    componentClass<PdmLpzd, PdmLpzdView>(QLatin1String("EBTQ_S.PdmLpzd")),
    componentClass<PDMCq, PdmCqView>(QLatin1String("EBTQ_S.PDMCq")),
    componentClass<PDMFx, PdmFxView>(QLatin1String("EBTQ_S.PDMFx")),
    componentClass<selPdm, PickerView>(QLatin1String("EBTQ_S.selPdm")),
    componentClass<selPdmLpzd, PickerView>(QLatin1String("EBTQ_S.selPdmLpzd")),
    componentClass<selPdmDz, PickerView>(QLatin1String("EBTQ_S.selPdmDz")),
    recordClass<clsPdm>(QLatin1String("EBTQ_S.clsPdm")),
    recordClass<clsLpzd>(QLatin1String("EBTQ_S.clsLpzd")),
    recordClass<clsDz>(QLatin1String("EBTQ_S.clsDz")),
    controlClass<Splitter, SplitterView>(QLatin1String("EBTQ_S.Splitter")),
};

} // namespace

std::span<const ComponentClass> componentClasses()
{
    return classes;
}

void addFormViews(ViewRegistry &views)
{
    views.add<FrmFx, FrmFxView>();
    views.add<FrmGj, FrmGjView>();
    views.add<frmKh, FrmKhView>();
    views.add<MatchReasons, MatchReasonsView>();
}

} // namespace ebtq
