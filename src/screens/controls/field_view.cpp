#include "screens/controls/field_view.h"

#include "library/controls/field_control.h"
#include "screens/controls/control_binding.h"
#include "screens/look/look.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QScopedValueRollback>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

Qt::Alignment alignmentOf(int alignment)
{
    switch (alignment) {
    case qzTxt_S::AlignRight:
        return Qt::AlignRight | Qt::AlignVCenter;
    case qzTxt_S::AlignCentre:
        return Qt::AlignHCenter | Qt::AlignVCenter;
    default:
        return Qt::AlignLeft | Qt::AlignVCenter;
    }
}

/// The number of a key that moves between fields; 0 for any other.
int focusKey(int key)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return FocusHelper::KeyReturn;
    case Qt::Key_Up:
        return FocusHelper::KeyUp;
    case Qt::Key_Down:
        return FocusHelper::KeyDown;
    default:
        return 0;
    }
}

/// A menu, a popup or another window takes the keyboard for a while and gives it back: the field is not left.
bool isLeft(Qt::FocusReason reason)
{
    return reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason &&
           reason != Qt::MenuBarFocusReason;
}

} // namespace

FieldView::FieldView(qzTxt_S &field, QWidget *parent)
    : QLineEdit(parent)
    , m_field(field)
    , m_help(new QAction(this))
{
    bindControl(field, *this);
    m_help->setToolTip(u"选择 (F4)"_s);
    addAction(m_help, QLineEdit::TrailingPosition);
    connect(m_help, &QAction::triggered, this, &FieldView::clickArrow, Qt::QueuedConnection);
    connect(&field, &Control::stateChanged, this, &FieldView::follow);
    connect(&field, &qzTxt_S::FieldChange, this, &FieldView::followText);
    connect(&m_focus, &FocusHelper::moveRequested, this, &FieldView::focusNextPrevChild);
    connect(this, &QLineEdit::textEdited, this, [this](const QString &text) { m_field.type(text); });
    follow();
    followText();
}

FieldView::~FieldView()
{
    delete m_error;
}

void FieldView::follow()
{
    m_help->setVisible(m_field.help_flag() && m_field.Enabled() && !m_field.Locked());
    m_help->setIcon(m_field.help_type() == qzTxt_S::Calendar
                        ? look::icon(u"view-calendar-day"_s, &look::Tokens::muted)
                        : QIcon(u":/ebtq/images/chevron-down.svg"_s)); // the combo boxes' arrow
    setReadOnly(m_field.Locked());
    setAlignment(alignmentOf(m_field.Alignment()));
}

void FieldView::followText()
{
    if (text() != m_field.Text())
        setText(m_field.Text());
    mark(false);
}

bool FieldView::event(QEvent *event)
{
    // Escape belongs to a changed text before it belongs to the window.
    if (event->type() == QEvent::ShortcutOverride && m_field.isTyped() &&
        static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape)
        event->accept();
    return QLineEdit::event(event);
}

void FieldView::keyPressEvent(QKeyEvent *event)
{
    const bool help = event->key() == Qt::Key_F4 ||
                      (event->key() == Qt::Key_Down && event->modifiers().testFlag(Qt::AltModifier));
    if (help)
        askHelp();
    else if (const int key = focusKey(event->key()))
        moveBy(key);
    else if (event->key() == Qt::Key_Escape && m_field.isTyped())
        takeBack();
    else
        QLineEdit::keyPressEvent(event);
}

void FieldView::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu *menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (m_field.help_menuflag() && m_help->isVisible()) {
        auto *choose = new QAction(u"选择(&L)…\tF4"_s, menu);
        // Queued, since opening the list blocks: the menu must be closed first.
        connect(choose, &QAction::triggered, this, &FieldView::askHelp, Qt::QueuedConnection);
        QAction *first = menu->actions().value(0);
        menu->insertAction(first, choose);
        menu->insertSeparator(first);
    }
    menu->popup(event->globalPos());
}

void FieldView::moveBy(int key)
{
    if (key != FocusHelper::KeyReturn || m_enter == Enter::GoesOn)
        m_focus.SendKey(FocusHelper::KeyReturn, key);
    else if (check())
        Q_EMIT confirmed();
}

bool FieldView::focusNextPrevChild(bool next)
{
    return !mayLeave() || QLineEdit::focusNextPrevChild(next);
}

void FieldView::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    const auto *other = qobject_cast<FieldView *>(QApplication::focusWidget());
    const bool calledBack = other && other->m_takesFocusBack;
    if (isLeft(event->reason()) && !calledBack && !mayLeave())
        QMetaObject::invokeMethod(this, &FieldView::takeFocusBack, Qt::QueuedConnection);
}

/// While it lasts, the field that is left again is not checked: two refused fields would hand the focus to
/// and fro for ever.
void FieldView::takeFocusBack()
{
    const QScopedValueRollback taking(m_takesFocusBack, true);
    setFocus(Qt::OtherFocusReason);
    selectAll();
}

void FieldView::hideEvent(QHideEvent *event)
{
    QLineEdit::hideEvent(event);
    dropError();
}

void FieldView::dropError()
{
    if (m_error)
        m_error->drop();
    m_error = nullptr;
}

/// A field that is hidden loses the focus as well, but its message could not be seen.
bool FieldView::mayLeave()
{
    return !isVisible() || check();
}

bool FieldView::checkFocused()
{
    auto *field = qobject_cast<FieldView *>(QApplication::focusWidget());
    return !field || field->check();
}

bool FieldView::check()
{
    if (m_checking)
        return true;
    const QScopedValueRollback checking(m_checking, true);
    const bool passed = m_field.check();
    passed ? mark(false) : refuse();
    return passed;
}

void FieldView::refuse()
{
    mark(true);
    selectAll();
    const QString message = m_field.error_message();
    m_error = new FieldError(message.isEmpty() ? u"输入有误，请重新输入！"_s : message, *this);
}

void FieldView::mark(bool refused)
{
    dropError();
    const QVariant state = refused ? QVariant(u"error"_s) : QVariant();
    if (property("state") == state)
        return;
    setProperty("state", state);
    style()->unpolish(this);
    style()->polish(this);
}

void FieldView::takeBack()
{
    m_field.takeBack();
    mark(false);
}

/// The click took the focus from another field, which may have been refused and have taken it back by now.
void FieldView::clickArrow()
{
    if (hasFocus())
        askHelp();
}

void FieldView::askHelp()
{
    if (!m_field.help_flag() || !m_field.Enabled())
        return;
    const QString text = m_field.Text();
    const QVariant value = m_field.Value();
    const QPoint corner = mapToGlobal(QPoint(0, height()));
    const QPointer<FieldView> alive(this);
    m_field.requestHelp(corner.x(), corner.y());
    if (alive && (m_field.Text() != text || m_field.Value() != value))
        takeChoice();
}

void FieldView::takeChoice()
{
    mark(false);
    if (m_enter == Enter::Confirms)
        Q_EMIT confirmed();
}

} // namespace ebtq
