#pragma once

#include "screens/controls/exchange.h"

#include <QTableView>

namespace ebtq {

/// The first columns of a list, over the list while it is scrolled sideways. It shows the list's rows in the
/// list's look and hands what the mouse does on to the list.
class FrozenColumns : public QTableView
{
    Q_OBJECT

public:
    /// A child of `list`, which has its model by now.
    explicit FrozenColumns(QTableView &list);

    /// The number of frozen columns in visible order; hidden ones count as well.
    void setCount(int count);
    [[nodiscard]] int count() const { return m_count; }
    /// Takes over the list's columns, place and scrolling.
    void follow();
    /// Width of the columns that stay, shown or not; 0 when they would leave too little of the others.
    [[nodiscard]] int frozenWidth() const;

protected:
    // The delegate is the list's, and so are its editors.
    void commitData(QWidget *) override {}
    void closeEditor(QWidget *, QAbstractItemDelegate::EndEditHint) override {}
    bool viewportEvent(QEvent *event) override;

private:
    void followColumns();

    QTableView &m_list;
    int m_count = 0;
    Exchange m_exchange;
};

} // namespace ebtq
