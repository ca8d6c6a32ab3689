#pragma once

#include <QDialog>

namespace ebtq {

/// The window of a form that is shown modally. The form's screen decides when it ends: the dialog goes when
/// the screen was closed, and its own close button asks the screen, which may refuse.
class FormDialog : public QDialog
{
    Q_OBJECT

public:
    explicit FormDialog(QWidget *parent);
    /// The screen, made as a child of the dialog.
    void setView(QWidget *view);

    void reject() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    QWidget *m_view = nullptr;
};

} // namespace ebtq
