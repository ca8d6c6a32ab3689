#include "library/layout/kept_layout.h"

#include "library/layout/grid_layout.h"

#include <QFileInfo>

namespace ebtq {

KeptLayout::State KeptLayout::stateOf(const QString &file)
{
    const QFileInfo info(file);
    return {file, info.lastModified(), info.exists() ? info.size() : -1};
}

void KeptLayout::restore(const QString &file, VSFlexGrid &grid, HostApp &app)
{
    if (file.isEmpty() || (!m_isByRows && stateOf(file) == m_restored))
        return;
    GridRestore(file, grid, false, app);
    m_restored = stateOf(file); // a first restore writes it
    m_isByRows = isLayoutByRows(file, grid);
}

} // namespace ebtq
