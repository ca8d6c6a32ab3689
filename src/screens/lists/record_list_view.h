#pragma once

#include "screens/look/look.h"

#include <QColor>
#include <QWidget>

#include <span>

namespace ebtq {

class FlexGridView;
class FlowLayout;
class RecordDetailView;
class RecordList;
class ToolBarView;

/// How a list of records looks. All of it is constant.
struct RecordListLook
{
    struct Field
    {
        int number;
        int characters; ///< width of its text in Chinese characters
    };
    struct Column
    {
        int number;
        QColor look::Tokens::*ink;
    };

    std::span<const Field> fields;   ///< of the filter, in reading order
    std::span<const Column> columns; ///< those with an ink of their own
    QStringView searchHint;
    QStringView emptyHint; ///< of a load that found nothing
    QStringView listName;  ///< in the names of exported files
};

/// The screen of a list of records: tool bar, filter row, the list and below it the detail of the current
/// record. A filter that was chosen, ticked or confirmed with Enter loads the list again through the tool
/// bar's own command, which is all that the rules know.
class RecordListView : public QWidget
{
    Q_OBJECT

protected:
    RecordListView(RecordList &module, const RecordListLook &look, QWidget *parent);
    /// Part of making the view. A child of this view.
    void setDetail(RecordDetailView *detail);

    bool event(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override; ///< the keyboard begins in the list
    void keyPressEvent(QKeyEvent *event) override;

private:
    void addToolBar();
    void addFilterRow();
    void addFields(FlowLayout &row, QWidget *parent);
    void addPeriods(FlowLayout &row, QWidget *parent);
    void addKinds(FlowLayout &row, QWidget *parent);
    void addSearch(FlowLayout &row, QWidget *parent);
    void addGrid();
    void addMenu();
    void followKind();
    void followOutcome();
    [[nodiscard]] bool isOwnKey(int key) const;
    void refresh();

    RecordList &m_module;
    const RecordListLook m_look;
    ToolBarView *m_toolBar = nullptr;
    FlexGridView *m_grid = nullptr;
    RecordDetailView *m_detail = nullptr;
};

} // namespace ebtq
