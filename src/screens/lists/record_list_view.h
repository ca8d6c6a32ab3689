#pragma once

#include "screens/lists/list_view.h"

class QSplitter;

namespace ebtq {

class RecordDetailView;
class RecordList;

/// The screen of a list of records: tool bar, filter row, the list and below it the detail of the current
/// record. The list is loaded again through the tool bar's own command, which is all that the rules know.
class RecordListView : public ListView
{
    Q_OBJECT
    /// The detail is folded to its tabs, and the list has its room.
    Q_PROPERTY(bool DetailFolded READ isDetailFolded WRITE setDetailFolded)

public:
    [[nodiscard]] bool isDetailFolded() const;
    void setDetailFolded(bool folded);

protected:
    RecordListView(RecordList &module, const ListLook &look, QWidget *parent);
    /// Part of making the view. A child of this view.
    void setDetail(RecordDetailView *detail);

    void refresh() override;
    [[nodiscard]] bool isOwnKey(int key) const override;
    void ownKeyPressed(int key) override;

private:
    void addToolBar();
    void addCopying();
    void followKind();

    RecordList &m_module;
    FlexGridView *m_grid = nullptr;
    ToolBarView *m_toolBar = nullptr;
    RecordDetailView *m_detail = nullptr;
    QSplitter *m_parts = nullptr; ///< the list above the detail
    int m_detailHeight = 0;       ///< before it was folded
};

} // namespace ebtq
