#include "editor_widgets.h"

#ifdef EBTQ_WIDGETS

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

void buildEditorWidgets(FrmFx &form)
{
    FrmFxView view(form, nullptr);
    view.show();
    QCoreApplication::processEvents();
}

} // namespace ebtq::bench

#else

namespace ebtq::bench {

std::unique_ptr<QCoreApplication> makeApplication(int &argc, char **argv)
{
    return std::make_unique<QCoreApplication>(argc, argv);
}

void buildEditorWidgets(FrmFx &) {}

} // namespace ebtq::bench

#endif
