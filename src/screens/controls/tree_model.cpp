#include "screens/controls/tree_model.h"

#include "library/controls/tree_view.h"
#include "screens/controls/color_number.h"
#include "screens/look/look.h"

#include <QFont>

namespace ebtq {

namespace {

QFont boldFont()
{
    QFont font;
    font.setBold(true);
    return font;
}

} // namespace

TreeModel::TreeModel(TreeView &tree, QObject *parent)
    : QAbstractItemModel(parent)
    , m_tree(tree)
{
    connect(&tree, &TreeView::rowsAboutToChange, this, &TreeModel::begin);
    connect(&tree, &TreeView::nodeChanged, this, &TreeModel::reportLook);
    connect(&tree, &TreeView::dropHighlightChanged, this, [this](const Node *before) {
        reportLook(before);
        reportLook(m_tree.DropHighlight());
    });
}

void TreeModel::begin()
{
    if (m_isChanging)
        return;
    beginResetModel();
    m_isChanging = true;
}

void TreeModel::settle()
{
    if (!m_isChanging)
        return;
    m_isChanging = false;
    endResetModel();
}

void TreeModel::reportLook(const Node *node)
{
    if (const QModelIndex index = indexOf(node); index.isValid())
        Q_EMIT dataChanged(index, index);
}

QModelIndex TreeModel::indexOf(const Node *node) const
{
    if (m_isChanging || !node || !node->isInTree())
        return {};
    const int row = m_tree.sight().positionOf(*node);
    return index(row, 0, indexOf(node->Parent())).internalPointer() == node ? createIndex(row, 0, node)
                                                                            : QModelIndex();
}

Node *TreeModel::nodeOf(const QModelIndex &index) const
{
    return m_isChanging ? nullptr : static_cast<Node *>(index.internalPointer());
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (row < 0 || column != 0 || row >= rowCount(parent))
        return {};
    return createIndex(row, 0, m_tree.sight().childrenOf(nodeOf(parent))[static_cast<size_t>(row)]);
}

QModelIndex TreeModel::parent(const QModelIndex &index) const
{
    const Node *node = nodeOf(index);
    const Node *parent = node ? node->Parent() : nullptr;
    return parent ? createIndex(m_tree.sight().positionOf(*parent), 0, parent) : QModelIndex();
}

int TreeModel::rowCount(const QModelIndex &parent) const
{
    return m_isChanging ? 0 : static_cast<int>(m_tree.sight().childrenOf(nodeOf(parent)).size());
}

int TreeModel::columnCount(const QModelIndex &) const
{
    return 1;
}

QVariant TreeModel::data(const QModelIndex &index, int role) const
{
    const Node *node = nodeOf(index);
    if (!node)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return node->Text();
    case Qt::DecorationRole:
        return icon(*node);
    case Qt::FontRole:
        return node->Bold() ? QVariant(boldFont()) : QVariant();
    case CountRole:
        return m_tree.sight().childrenOf(node).empty() ? -1 : m_tree.sight().countBelow(*node);
    case CutRole:
        return node->isCut();
    default:
        return color(*node, role);
    }
}

/// Nothing for what looks as usual.
QVariant TreeModel::color(const Node &node, int role) const
{
    const bool isTarget = &node == m_tree.DropHighlight();
    const bool isColored = node.BackColor() != Node::usualBackColor;
    const QColor ground = isTarget    ? look::tokens().brandSoft
                          : isColored ? inScheme(colorOf(node.BackColor()))
                                      : look::tokens().card;
    if (role == Qt::BackgroundRole && (isTarget || isColored))
        return ground;
    if (role == Qt::ForegroundRole && node.ForeColor() != Node::usualForeColor)
        return readable(colorOf(node.ForeColor()), ground);
    return {};
}

QVariant TreeModel::icon(const Node &node) const
{
    if (!m_tree.Images())
        return {};
    const bool isSelected = &node == m_tree.SelectedItem() && node.SelectedImage().isValid();
    const bool isOpen = m_tree.sight().isOpen(node) && node.ExpandedImage().isValid();
    const QString name = m_tree.Images()->Picture(isSelected ? node.SelectedImage()
                                                  : isOpen   ? node.ExpandedImage()
                                                             : node.Image());
    return name.isEmpty() ? QVariant() : QVariant(look::icon(name));
}

} // namespace ebtq
