#include "shell/panels/panel_model.h"

#include <string_view>
#include <unordered_map>

namespace ebtq::shell {

PanelModel::PanelModel(const host::Panel &panel, QObject *parent)
    : QAbstractItemModel(parent)
    , m_panel(panel)
    , m_nodes(static_cast<size_t>(panel.rows.rowCount()))
{
    findParents();
    layOut();
}

void PanelModel::findParents()
{
    if (!isTree())
        return;
    std::unordered_map<std::string_view, qsizetype> rowOfCode;
    for (qsizetype row = 0; row < m_panel.rows.rowCount(); ++row)
        rowOfCode.emplace(m_panel.rows.cell(row, m_panel.levelCodeColumn), row);
    for (qsizetype row = 0; row < m_panel.rows.rowCount(); ++row) {
        std::string_view code = m_panel.rows.cell(row, m_panel.levelCodeColumn);
        while (code.size() > 1) {
            code.remove_suffix(1);
            const auto above = rowOfCode.find(code);
            if (above != rowOfCode.end()) {
                m_nodes[static_cast<size_t>(row)].parent = above->second;
                break;
            }
        }
    }
}

void PanelModel::layOut()
{
    std::vector<bool> inSight(m_nodes.size());
    for (qsizetype row = 0; row < std::ssize(m_nodes); ++row)
        if (matches(row))
            for (qsizetype at = row; at >= 0 && !inSight[static_cast<size_t>(at)]; at = node(at).parent)
                inSight[static_cast<size_t>(at)] = true;
    m_top.children.clear();
    for (Node &each : m_nodes)
        each.children.clear();
    for (qsizetype row = 0; row < std::ssize(m_nodes); ++row) {
        Node &each = m_nodes[static_cast<size_t>(row)];
        each.position = -1;
        if (!inSight[static_cast<size_t>(row)])
            continue;
        Node &above = each.parent < 0 ? m_top : m_nodes[static_cast<size_t>(each.parent)];
        each.position = static_cast<int>(above.children.size());
        above.children.push_back(row);
    }
}

void PanelModel::setFilter(const QString &text)
{
    beginResetModel();
    m_filter = text.trimmed();
    layOut();
    endResetModel();
}

bool PanelModel::matches(qsizetype row) const
{
    if (m_filter.isEmpty())
        return true;
    for (const auto &shown : m_panel.shown)
        if (cellText(m_panel.rows.cell(row, shown.column)).contains(m_filter, Qt::CaseInsensitive))
            return true;
    return false;
}

bool PanelModel::choosable(qsizetype row) const
{
    return m_panel.choosableColumn < 0 || m_panel.rows.cell(row, m_panel.choosableColumn) == "1";
}

qsizetype PanelModel::panelRow(const QModelIndex &index) const
{
    return index.isValid() ? static_cast<qsizetype>(index.internalId()) : -1;
}

QModelIndex PanelModel::indexOfRow(qsizetype row) const
{
    if (row < 0 || row >= std::ssize(m_nodes) || node(row).position < 0)
        return {};
    return createIndex(node(row).position, 0, static_cast<quintptr>(row));
}

qsizetype PanelModel::firstChoosableMatch() const
{
    return firstChoosableMatchBelow(m_top);
}

qsizetype PanelModel::firstChoosableMatchBelow(const Node &above) const
{
    for (const qsizetype row : above.children) {
        if (choosable(row) && matches(row))
            return row;
        const qsizetype below = firstChoosableMatchBelow(node(row));
        if (below >= 0)
            return below;
    }
    return -1;
}

QModelIndex PanelModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    const qsizetype child = node(panelRow(parent)).children[static_cast<size_t>(row)];
    return createIndex(row, column, static_cast<quintptr>(child));
}

QModelIndex PanelModel::parent(const QModelIndex &index) const
{
    return index.isValid() ? indexOfRow(node(panelRow(index)).parent) : QModelIndex();
}

int PanelModel::rowCount(const QModelIndex &parent) const
{
    return parent.column() > 0 ? 0 : static_cast<int>(node(panelRow(parent)).children.size());
}

int PanelModel::columnCount(const QModelIndex &) const
{
    return static_cast<int>(m_panel.shown.size());
}

QVariant PanelModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    return cellText(
        m_panel.rows.cell(panelRow(index), m_panel.shown[static_cast<size_t>(index.column())].column));
}

QVariant PanelModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section >= columnCount())
        return {};
    return m_panel.shown[static_cast<size_t>(section)].caption;
}

Qt::ItemFlags PanelModel::flags(const QModelIndex &index) const
{
    if (!index.isValid() || !choosable(panelRow(index)))
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}

} // namespace ebtq::shell
