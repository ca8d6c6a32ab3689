#pragma once

#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;
class QTimer;

namespace ebtq::shell {

/// The bar below a list in which a person says what to look for. Enter and F3 go on to the next row that
/// holds the text, Shift with them to the one before; the tick hides the rows without it while it is typed;
/// Esc closes the bar and shows all rows again.
class FindBar : public QWidget
{
    Q_OBJECT

public:
    explicit FindBar(QWidget *parent);

    /// Shows the bar with the keyboard in it. `column` is searched; empty for all.
    void open(const QString &column, bool filters);
    void setColumn(const QString &column);
    /// As Esc.
    void leave();
    [[nodiscard]] QString text() const;
    [[nodiscard]] bool isFiltering() const;

Q_SIGNALS:
    /// `direction` is 1, or -1 for backwards.
    void wanted(int direction);
    /// The text by which rows are shown, empty for all, has changed.
    void filterChanged(const QString &text);
    void left();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void addStep(const QString &icon, const QString &name, const QString &toolTip, int direction);
    void filter();

    QLabel *m_caption;
    QLineEdit *m_text;
    QCheckBox *m_filters;
    QTimer *m_pause; ///< in typing
};

} // namespace ebtq::shell
