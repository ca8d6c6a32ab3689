#include "editor_widgets.h"

#ifdef EBTQ_WIDGETS

#include "screens/customers/frm_kh_view.h"
#include "screens/listings/frm_fx_view.h"
#include "screens/look/look.h"

#include <QApplication>

namespace ebtq::bench {

std::unique_ptr<QCoreApplication> makeApplication(int &argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // nobody sits in front of it
    auto application = std::make_unique<QApplication>(argc, argv);
    look::apply(*application, look::Scheme::Light);
    return application;
}

namespace {

template<class View, class Form> void buildWidgets(Form &form)
{
    View view(form, nullptr);
    view.show();
    QCoreApplication::processEvents();
}

} // namespace

void buildEditorWidgets(FrmFx &form)
{
    buildWidgets<FrmFxView>(form);
}

void buildEditorWidgets(frmKh &form)
{
    buildWidgets<FrmKhView>(form);
}

} // namespace ebtq::bench

#else

namespace ebtq::bench {

std::unique_ptr<QCoreApplication> makeApplication(int &argc, char **argv)
{
    return std::make_unique<QCoreApplication>(argc, argv);
}

void buildEditorWidgets(FrmFx &) {}
void buildEditorWidgets(frmKh &) {}

} // namespace ebtq::bench

#endif
