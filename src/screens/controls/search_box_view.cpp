#include "screens/controls/search_box_view.h"

#include "library/controls/search_box.h"
#include "screens/controls/control_binding.h"
#include "screens/look/look.h"

#include <QKeyEvent>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace ebtq {

SearchBoxView::SearchBoxView(SearchBox &box, QWidget *parent)
    : QLineEdit(box.Text(), parent)
    , m_box(box)
{
    bindControl(box, *this);
    setClearButtonEnabled(true);
    addAction(look::icon(u"edit-find"_s, &look::Tokens::muted), QLineEdit::LeadingPosition);
    connect(this, &QLineEdit::textChanged, this, [this](const QString &text) { m_box.setText(text); });
    connect(&box, &SearchBox::textChanged, this, [this] {
        if (text() != m_box.Text())
            setText(m_box.Text());
    });
    connect(this, &QLineEdit::returnPressed, this, [this] { m_box.searchNow(); });
}

void SearchBoxView::takeFindKey()
{
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        setFocus(Qt::ShortcutFocusReason);
        selectAll();
    });
}

/// Escape belongs to a filled box before it belongs to the window.
bool SearchBoxView::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && !text().isEmpty() &&
        static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape)
        event->accept();
    return QLineEdit::event(event);
}

void SearchBoxView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && !text().isEmpty())
        clear();
    else
        QLineEdit::keyPressEvent(event);
}

} // namespace ebtq
