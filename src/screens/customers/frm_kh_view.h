#pragma once

#include "screens/frame/editor_form_view.h"

namespace ebtq {

class FieldView;
class frmKh;
struct CustomerCell;

/// The screen of the editor of a customer. The keys of the four moves work in every field of one line too; in
/// the remark Ctrl+Home and Ctrl+End stay its own.
class FrmKhView : public EditorFormView
{
    Q_OBJECT

public:
    FrmKhView(frmKh &form, QWidget *parent);
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void addCell(const CustomerCell &cell);
    [[nodiscard]] QWidget *captionOf(const CustomerCell &cell, QWidget *parent);
    [[nodiscard]] static QLabel *fieldCaption(const QString &caption, QWidget *parent);
    [[nodiscard]] QWidget *widgetOf(const CustomerCell &cell, QWidget *parent);
    [[nodiscard]] FieldView *makeField(int number, QWidget *parent);
    [[nodiscard]] QWidget *makeRange(const CustomerCell &cell, QWidget *parent);
    [[nodiscard]] QWidget *makeState(QWidget *parent);
    [[nodiscard]] QWidget *makeRemark(QWidget *parent);
    void addMoves(QHBoxLayout &row);

    frmKh &m_form;
};

} // namespace ebtq
