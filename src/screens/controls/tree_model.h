#pragma once

#include <QAbstractItemModel>

namespace ebtq {

class Node;
class TreeView;

/// The nodes of a tree that its filter keeps. Any number of added, moved or removed nodes become one reset,
/// which begins with the first of them and ends when the view calls settle(); until then the model is empty.
class TreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    static constexpr int CountRole = Qt::UserRole; ///< how many nodes count below; -1 for none
    static constexpr int CutRole = Qt::UserRole + 1;

    explicit TreeModel(TreeView &tree, QObject *parent = nullptr);

    void settle();
    [[nodiscard]] bool isChanging() const { return m_isChanging; }
    /// Invalid for a node that the filter hides, and for nullptr.
    [[nodiscard]] QModelIndex indexOf(const Node *node) const;
    /// nullptr for an invalid index.
    [[nodiscard]] Node *nodeOf(const QModelIndex &index) const;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex &index) const override;
    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    void begin();
    void reportLook(const Node *node);
    [[nodiscard]] QVariant color(const Node &node, int role) const;
    [[nodiscard]] QVariant icon(const Node &node) const;

    TreeView &m_tree;
    bool m_isChanging = false;
};

} // namespace ebtq
