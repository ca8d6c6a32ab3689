#include "screens/frame/form_dialog.h"

#include <QCloseEvent>
#include <QVBoxLayout>

namespace ebtq {

FormDialog::FormDialog(QWidget *parent)
    : QDialog(parent)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
}

void FormDialog::setView(QWidget *view)
{
    m_view = view;
    layout()->addWidget(view);
    setWindowTitle(view->windowTitle());
    setWindowModified(view->isWindowModified());
    connect(view, &QWidget::windowTitleChanged, this, &QWidget::setWindowTitle);
    view->installEventFilter(this);
}

/// Escape and the window's close button: the screen answers for itself.
void FormDialog::reject()
{
    m_view->close();
}

void FormDialog::closeEvent(QCloseEvent *event)
{
    event->setAccepted(m_view->close());
}

bool FormDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_view)
        return QDialog::eventFilter(watched, event);
    if (event->type() == QEvent::HideToParent)
        done(QDialog::Accepted);
    else if (event->type() == QEvent::ModifiedChange)
        setWindowModified(m_view->isWindowModified());
    return QDialog::eventFilter(watched, event);
}

} // namespace ebtq
