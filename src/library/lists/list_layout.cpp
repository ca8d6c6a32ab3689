#include "library/lists/list_layout.h"

#include "library/controls/flex_grid.h"
#include "library/layout/form_status.h"
#include "library/layout/grid_layout.h"
#include "library/layout/ini_store.h"

#include <QMetaMethod>

namespace ebtq {

ListLayout::ListLayout(Module &module, VSFlexGrid &list)
    : ModulePart(module)
    , m_module(module)
    , m_list(list)
{}

void ListLayout::begin()
{
    m_isFormKnown = false;
    watchForm(controls(), [this](Control &control, const QMetaMethod &changed) {
        const int touched = staticMetaObject.indexOfSlot("touch()");
        connect(&control, changed, this, staticMetaObject.method(touched), Qt::UniqueConnection);
    });
}

void ListLayout::get(const QString &file)
{
    setLayoutFile(file);
    watchColumns();
    m_wasUnread = m_wasUnread || IniStore::isUnreadable(file);
    if (m_isFormKnown)
        return GridRestore(file, m_list, false, app());
    m_isFormKnown = true;
    m_module.sbGetFormStatus(file, false);
}

void ListLayout::recount()
{
    if (const QString file = layoutFile(); !file.isEmpty())
        RecountTotals(file, m_list, app());
}

bool ListLayout::save(const QString &file)
{
    return !m_wasUnread && m_module.sbSaveFormStatus(file, false);
}

void ListLayout::clear()
{
    setLayoutFile({});
    m_isFormKnown = false;
    m_wasUnread = false;
}

void ListLayout::watchColumns()
{
    for (const auto &control : controls()) {
        if (auto *grid = qobject_cast<VSFlexGrid *>(control.get()))
            connect(grid, &VSFlexGrid::layoutChanged, this, &ListLayout::saveColumns, Qt::UniqueConnection);
    }
}

void ListLayout::saveColumns()
{
    if (const QString file = layoutFile(); !file.isEmpty() && (m_wasUnread || !saveGrids(file, controls())))
        Q_EMIT notSaved(file);
}

} // namespace ebtq
