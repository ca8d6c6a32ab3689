#pragma once

#include "screens/lists/list_view.h"

namespace ebtq {

class RecordDetailView;
class RecordList;

/// The screen of a list of records: tool bar, filter row, the list and below it the detail of the current
/// record. The list is loaded again through the tool bar's own command, which is all that the rules know.
class RecordListView : public ListView
{
    Q_OBJECT

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
};

} // namespace ebtq
