#include "screens/look/window_below.h"

#include <QApplication>
#include <QDialog>
#include <QWidget>

#include <algorithm>

namespace ebtq::look {

QWidget *windowBelow()
{
    if (QWidget *dialog = QApplication::activeModalWidget())
        return dialog;
    if (QWidget *window = QApplication::activeWindow())
        return window;
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto isProgramWindow = [](const QWidget *each) {
        return each->isVisible() && each->windowType() == Qt::Window;
    };
    const auto found = std::ranges::find_if(windows, isProgramWindow);
    return found == windows.end() ? nullptr : *found;
}

int runModal(QDialog &dialog)
{
    const int result = dialog.exec();
    if (QWidget *below = dialog.parentWidget(); below && below->isVisible())
        below->activateWindow();
    return result;
}

} // namespace ebtq::look
