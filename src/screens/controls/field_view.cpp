#include "screens/controls/field_view.h"

#include "database/values/date_text.h"
#include "library/controls/field_control.h"
#include "library/frame/inline_list.h"
#include "screens/controls/calendar_popup.h"
#include "screens/controls/choice_popup.h"
#include "screens/controls/control_binding.h"
#include "screens/look/look.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QStyle>
#include <QTimer>

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
    m_help->setToolTip(QStringLiteral("选择 (F4)"));
    addAction(m_help, QLineEdit::TrailingPosition);
    connect(m_help, &QAction::triggered, this, &FieldView::askHelp);
    connect(&field, &Control::stateChanged, this, &FieldView::follow);
    connect(&field, &qzTxt_S::FieldChange, this, &FieldView::followText);
    connect(this, &QLineEdit::textEdited, this, &FieldView::takeTyped);
    follow();
    followText();
}

FieldView::~FieldView()
{
    delete m_error;
}

void FieldView::follow()
{
    m_help->setVisible(m_field.help_flag() && m_field.Enabled());
    m_help->setIcon(look::icon(m_field.help_type() == qzTxt_S::Calendar ? QStringLiteral("view-calendar-day")
                                                                        : QStringLiteral("go-down"),
                               &look::Tokens::muted));
    setAlignment(alignmentOf(m_field.Alignment()));
}

/// What the rules put in is accepted as it stands; only what a person typed can be taken back.
void FieldView::followText()
{
    if (text() != m_field.Text())
        setText(m_field.Text());
    if (!m_typing)
        accept();
}

void FieldView::takeTyped(const QString &text)
{
    const QScopedValueRollback typing(m_typing, true);
    mark(false);
    m_field.setText(text);
}

bool FieldView::event(QEvent *event)
{
    // Escape belongs to a changed text before it belongs to the window.
    if (event->type() == QEvent::ShortcutOverride && isTyped() &&
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
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        pressEnter();
    else if (event->key() == Qt::Key_Down || event->key() == Qt::Key_Up)
        focusNextPrevChild(event->key() == Qt::Key_Down);
    else if (event->key() == Qt::Key_Escape && isTyped())
        restore();
    else
        QLineEdit::keyPressEvent(event);
}

void FieldView::pressEnter()
{
    if (m_enter == Enter::GoesOn)
        focusNextPrevChild(true);
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
        QTimer::singleShot(0, this, &FieldView::takeFocusBack);
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
    delete m_error;
}

/// A field that is hidden loses the focus as well, but there is nobody to tell what is wrong with it.
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
    passed ? accept() : refuse();
    return passed;
}

void FieldView::accept()
{
    m_acceptedText = m_field.Text();
    m_acceptedValue = m_field.Value();
    mark(false);
}

void FieldView::refuse()
{
    mark(true);
    selectAll();
    const QString message = m_field.error_message();
    m_error = new FieldError(message.isEmpty() ? QStringLiteral("输入有误，请重新输入！") : message, *this);
}

void FieldView::mark(bool refused)
{
    delete m_error;
    const QVariant state = refused ? QVariant(QStringLiteral("error")) : QVariant();
    if (property("state") == state)
        return;
    setProperty("state", state);
    style()->unpolish(this);
    style()->polish(this);
}

void FieldView::restore()
{
    const QVariant value = m_acceptedValue;
    m_field.setText(m_acceptedText);
    m_field.setValue(value);
    accept();
}

void FieldView::askHelp()
{
    if (!m_field.help_flag() || !m_field.Enabled())
        return;
    switch (m_field.help_type()) {
    case qzTxt_S::Calendar:
        showCalendar();
        break;
    case qzTxt_S::InlineList:
        showChoices();
        break;
    default:
        askHost();
    }
}

void FieldView::askHost()
{
    const QString text = m_field.Text();
    const QVariant value = m_field.Value();
    const QPoint corner = mapToGlobal(QPoint(0, height()));
    const QPointer<FieldView> alive(this);
    m_field.requestHelp(corner.x(), corner.y());
    if (alive && (m_field.Text() != text || m_field.Value() != value))
        takeChoice();
}

void FieldView::showCalendar()
{
    const auto preset = parseDate(m_field.Text());
    auto *calendar = new CalendarPopup(preset ? preset->date() : QDate::currentDate(), this);
    connect(calendar, &CalendarPopup::picked, this, [this](QDate day) {
        const QString text = regionalDate(day);
        choose(text, text);
    });
}

void FieldView::showChoices()
{
    const std::vector<InlineList::Entry> entries = InlineList(m_field.help_code()).entries();
    QStringList texts;
    for (const InlineList::Entry &entry : entries)
        texts.append(entry.text);
    auto *popup = new ChoicePopup(texts, m_field.Text(), this);
    connect(popup, &ChoicePopup::picked, this, [this, entries](int position) {
        const InlineList::Entry &entry = entries[static_cast<size_t>(position)];
        choose(entry.text, entry.value);
    });
}

void FieldView::choose(const QString &text, const QVariant &value)
{
    m_field.setValue(value);
    m_field.setText(text);
    takeChoice();
}

void FieldView::takeChoice()
{
    accept();
    if (m_enter == Enter::Confirms)
        Q_EMIT confirmed();
}

} // namespace ebtq
