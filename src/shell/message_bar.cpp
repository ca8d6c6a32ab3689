#include "shell/message_bar.h"

#include "contracts/host_contracts.h"
#include "screens/look/look.h"
#include "screens/look/message_text.h"

#include <QApplication>
#include <QLabel>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace ebtq::shell {

namespace {

constexpr size_t shownAtMost = 3;
const QString textName = QStringLiteral("messageText");

QString shownText(const QString &text, const QString &title, int count)
{
    const QString plain = look::plainMessage(text, title);
    return count == 1 ? plain : QStringLiteral("%1（%2 次）").arg(plain).arg(count);
}

QLabel *textLabel(const QString &text, const QString &toolTip)
{
    auto *label = new QLabel(text);
    label->setToolTip(toolTip);
    label->setObjectName(textName);
    label->setTextFormat(Qt::PlainText); // messages contain typed texts, which must not be read as markup
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label->setFocusPolicy(Qt::ClickFocus);
    return label;
}

QToolButton *closeButton(bool refusal)
{
    auto *button = new QToolButton;
    button->setObjectName(QStringLiteral("closeMessage"));
    button->setProperty("kind", QStringLiteral("close"));
    button->setIcon(look::icon(QStringLiteral("window-close"),
                               refusal ? &look::Tokens::refusalInk : &look::Tokens::failureInk));
    button->setToolTip(QStringLiteral("关闭此消息 (Esc)"));
    button->setAccessibleName(QStringLiteral("关闭此消息"));
    return button;
}

} // namespace

MessageBar::MessageBar(QWidget *parent)
    : QWidget(parent)
    , m_escape(new QShortcut(Qt::Key_Escape, this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    setObjectName(QStringLiteral("MessageBar"));
    connect(m_escape, &QShortcut::activated, this, &MessageBar::closeNewest);
    connect(qApp, &QApplication::focusChanged, this, &MessageBar::noteFocus);
    rebuild();
}

/// Its own labels lose the keyboard when they go with it.
MessageBar::~MessageBar()
{
    disconnect(qApp, nullptr, this, nullptr);
}

MessageBar *MessageBar::ofModalForm()
{
    const QWidget *form = QApplication::activeModalWidget();
    auto *column = form ? qobject_cast<QVBoxLayout *>(form->layout()) : nullptr;
    if (!column)
        return nullptr;
    auto *bar = form->findChild<MessageBar *>({}, Qt::FindDirectChildrenOnly);
    if (!bar) {
        bar = new MessageBar;
        column->insertWidget(0, bar);
    }
    return bar;
}

void MessageBar::noteFocus(QWidget *before, QWidget *now)
{
    if (isAncestorOf(now) && !isAncestorOf(before))
        m_focusedBefore = before;
}

void MessageBar::add(const QString &text, int level, const QString &title)
{
    if (level >= FailureLevel)
        look::logMessage(text, title);
    const auto same = std::ranges::find_if(m_entries, [&](const Entry &entry) {
        return entry.text == text && entry.level == level && entry.title == title;
    });
    Entry entry{text, title, level};
    if (same != m_entries.end()) {
        entry.count = same->count + 1;
        m_entries.erase(same);
    }
    m_entries.push_back(entry);
    rebuild();
}

void MessageBar::closeNewest()
{
    if (m_entries.empty())
        return;
    m_entries.pop_back();
    rebuild();
}

QStringList MessageBar::shownTexts() const
{
    QStringList result;
    for (int position = 0; position < layout()->count(); ++position)
        result.append(layout()->itemAt(position)->widget()->findChild<QLabel *>(textName)->text());
    return result;
}

void MessageBar::rebuild()
{
    if (m_focusedBefore && isAncestorOf(QApplication::focusWidget()))
        m_focusedBefore->setFocus(Qt::OtherFocusReason);
    while (QLayoutItem *item = layout()->takeAt(0)) {
        item->widget()->hide();
        item->widget()->deleteLater(); // the call may come from its own button
        delete item;
    }
    for (size_t shown = 0; shown < std::min(shownAtMost, m_entries.size()); ++shown) {
        const size_t position = m_entries.size() - 1 - shown;
        layout()->addWidget(row(m_entries[position], position));
    }
    m_escape->setEnabled(!m_entries.empty());
    setVisible(!m_entries.empty());
}

QWidget *MessageBar::row(const Entry &entry, size_t position)
{
    auto *frame = new QFrame(this);
    frame->setProperty("kind", QStringLiteral("message"));
    const bool refusal = entry.level < FailureLevel;
    frame->setProperty("level", static_cast<int>(refusal ? Refusal : FailureLevel));
    auto *layout = new QHBoxLayout(frame);
    layout->setContentsMargins(10, 6, 8, 6);
    layout->addWidget(textLabel(shownText(entry.text, entry.title, entry.count),
                                look::messageToolTip(entry.text, entry.title)),
                      1);
    QToolButton *button = closeButton(refusal);
    layout->addWidget(button, 0, Qt::AlignTop);
    connect(button, &QToolButton::clicked, this, [this, position] {
        m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(position));
        rebuild();
    });
    return frame;
}

} // namespace ebtq::shell
