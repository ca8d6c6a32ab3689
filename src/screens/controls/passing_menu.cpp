#include "screens/controls/passing_menu.h"

namespace ebtq {

PassingMenu::PassingMenu(QWidget *owner)
    : QMenu(owner)
{
    setAttribute(Qt::WA_DeleteOnClose);
}

} // namespace ebtq
