#pragma once

#include "screens/frame/editor_form_view.h"

namespace ebtq {

class FieldView;
class FrmFx;
struct EditorCell;

/// The screen of the editor of a listing. What the form hides when it is opened has no widget here at all, so
/// that nothing of it can be read off the screen's inside either.
class FrmFxView : public EditorFormView
{
    Q_OBJECT

public:
    FrmFxView(FrmFx &form, QWidget *parent);

private:
    void addCell(const EditorCell &cell);
    void addMemo(const EditorCell &cell);
    [[nodiscard]] bool isShown(const EditorCell &cell) const;
    [[nodiscard]] QGroupBox *groupOf(const EditorCell &cell) const;
    [[nodiscard]] FieldView *makeField(const EditorCell &cell, QWidget *parent);
    [[nodiscard]] QWidget *makeRooms(QWidget *parent);
    void addTicks(QHBoxLayout &row);

    FrmFx &m_form;
};

} // namespace ebtq
