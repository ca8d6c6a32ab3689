#pragma once

#include <QWidget>

namespace ebtq {

class ComboView;
class FieldView;
class FlexGridView;
class FlowLayout;
class Fcxx;
class ListingDetailView;
class ToolBarView;

/// The screen of the listing list: tool bar, filter row, the list and below it the detail of the current
/// listing. A filter that was chosen, ticked or confirmed with Enter loads the list again through the tool
/// bar's own command, which is all that the rules know.
class FcxxView : public QWidget
{
    Q_OBJECT

public:
    FcxxView(Fcxx &module, QWidget *parent);

protected:
    bool event(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override; ///< the keyboard begins in the list
    void keyPressEvent(QKeyEvent *event) override;

private:
    void addToolBar();
    void addFilterRow();
    void addFields(FlowLayout &row, QWidget *parent);
    void addWindow(FlowLayout &row, QWidget *parent);
    void addKinds(FlowLayout &row, QWidget *parent);
    void addSearch(FlowLayout &row, QWidget *parent);
    void addGrid();
    void addMenu();
    void addDetail();
    void followKind();
    void followOutcome();
    [[nodiscard]] bool isOwnKey(int key) const;
    void refresh();

    Fcxx &m_module;
    ToolBarView *m_toolBar = nullptr;
    FlexGridView *m_grid = nullptr;
    ListingDetailView *m_detail = nullptr;
};

} // namespace ebtq
