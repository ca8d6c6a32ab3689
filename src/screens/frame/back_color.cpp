#include "screens/frame/back_color.h"

#include "library/frame/module.h"
#include "screens/controls/color_number.h"

#include <QWidget>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

void show(int color, QWidget &view)
{
    constexpr int desktopsOwn = -1;
    const QString own = u"#%1 { background: %2; }"_s;
    view.setAttribute(Qt::WA_StyledBackground);
    view.setStyleSheet(color == desktopsOwn ? QString() : own.arg(view.objectName(), colorOf(color).name()));
}

} // namespace

void followBackColor(const Module &module, QWidget &view)
{
    if (view.objectName().isEmpty())
        view.setObjectName(module.name());
    show(module.BackColor(), view);
    QObject::connect(&module, &Module::backColorChanged, &view, [&] { show(module.BackColor(), view); });
}

} // namespace ebtq
