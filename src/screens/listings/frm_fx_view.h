#pragma once

#include <QWidget>

#include <array>

class QGridLayout;
class QGroupBox;
class QHBoxLayout;
class QLabel;

namespace ebtq {

class Button;
class FieldView;
class FrmFx;
struct EditorCell;

/// The screen of the editor of a listing. What the form hides when it is opened has no widget here at all, so
/// that nothing of it can be read off the screen's inside either.
class FrmFxView : public QWidget
{
    Q_OBJECT

public:
    FrmFxView(FrmFx &form, QWidget *parent);

private:
    void addGroups();
    void addCell(const EditorCell &cell);
    void addMemo(const EditorCell &cell);
    void lineUp();
    [[nodiscard]] bool isShown(const EditorCell &cell) const;
    [[nodiscard]] QGridLayout &grid(const EditorCell &cell) const;
    [[nodiscard]] QGroupBox *groupOf(const EditorCell &cell) const;
    [[nodiscard]] FieldView *makeField(const EditorCell &cell, QWidget *parent);
    [[nodiscard]] QWidget *makeRooms(QWidget *parent);
    void addFailure();
    void addBottom();
    void addTicks(QHBoxLayout &row);
    void addButtons(QHBoxLayout &row);

    FrmFx &m_form;
    std::array<QGroupBox *, 4> m_groups = {};
    QLabel *m_failure = nullptr;
};

} // namespace ebtq
