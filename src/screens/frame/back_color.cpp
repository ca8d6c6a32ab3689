#include "screens/frame/back_color.h"

#include "library/frame/module.h"

#include <QColor>
#include <QWidget>

namespace ebtq {

namespace {

void show(int color, QWidget &view)
{
    if (color < 0)
        return;
    const QColor ground(color & 255, color >> 8 & 255, color >> 16 & 255);
    view.setAttribute(Qt::WA_StyledBackground);
    view.setStyleSheet(QStringLiteral("#%1 { background: %2; }").arg(view.objectName(), ground.name()));
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
