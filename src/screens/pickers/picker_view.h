#pragma once

#include <QWidget>

class QHBoxLayout;
class QLabel;
class QVBoxLayout;

namespace ebtq {

class FlexGridView;
class Picker;
class TextBoxView;

/// The panel of a picker: find box, the combo box that narrows the list, the list and the buttons. Arrows
/// and page keys in the find box move through the list, Space ticks a row.
class PickerView : public QWidget
{
    Q_OBJECT

public:
    PickerView(Picker &picker, QWidget *parent);

    bool eventFilter(QObject *watched, QEvent *event) override;
    [[nodiscard]] QSize sizeHint() const override;

private:
    void addSearch(QVBoxLayout &column);
    void addOwner(QHBoxLayout &row);
    void addGrid(QVBoxLayout &column);
    void addFailure(QVBoxLayout &column);
    void addButtons(QVBoxLayout &column);
    void addKeys();
    void followFailure();

    Picker &m_picker;
    TextBoxView *m_find = nullptr;
    FlexGridView *m_grid = nullptr;
    QLabel *m_failure = nullptr;
};

} // namespace ebtq
