#pragma once

#include "host/panel_presenter.h"

#include <QAbstractItemModel>

#include <vector>

namespace ebtq::shell {

/// The rows of a panel as a list or, with a column of level codes, as a tree. A filter leaves the rows in
/// which a shown column holds the text, without regard to case, and in a tree the rows above them. Rows that
/// cannot be chosen are disabled, so that the keyboard passes over them.
class PanelModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    /// `panel` outlives the model.
    explicit PanelModel(const host::Panel &panel, QObject *parent = nullptr);

    void setFilter(const QString &text);
    /// Whether there is anything to show.
    [[nodiscard]] bool isEmpty() const { return m_top.children.empty(); }
    /// Whether any row has rows below it.
    [[nodiscard]] bool isTree() const { return m_panel.levelCodeColumn >= 0; }
    /// The panel's row of an index, and back; an invalid index for a hidden row.
    [[nodiscard]] qsizetype panelRow(const QModelIndex &index) const;
    [[nodiscard]] QModelIndex indexOfRow(qsizetype row) const;
    /// The first visible row that matches the filter and can be chosen; -1 for none.
    [[nodiscard]] qsizetype firstChoosableMatch() const;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex &index) const override;
    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    struct Node
    {
        qsizetype parent = -1; ///< row above, -1 at the top
        int position = -1;     ///< among the visible rows of its parent, -1 when hidden
        std::vector<qsizetype> children;
    };
    void findParents();
    void layOut();
    [[nodiscard]] bool matches(qsizetype row) const;
    [[nodiscard]] bool choosable(qsizetype row) const;
    [[nodiscard]] const Node &node(qsizetype row) const
    {
        return row < 0 ? m_top : m_nodes[static_cast<size_t>(row)];
    }
    [[nodiscard]] qsizetype firstChoosableMatchBelow(const Node &above) const;

    const host::Panel &m_panel;
    QString m_filter;
    Node m_top;
    std::vector<Node> m_nodes; ///< one per row of the panel
};

} // namespace ebtq::shell
