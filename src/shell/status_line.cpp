#include "shell/status_line.h"

#include "screens/look/message_text.h"

#include <QHBoxLayout>
#include <QLabel>

namespace ebtq::shell {

namespace {

/// Of the database's location, in pixels; its tool tip has the whole text.
constexpr int widestPlace = 480;
constexpr int betweenTexts = 16;

void setText(QLabel &label, const QString &text)
{
    label.setText(text);
    label.setVisible(!text.isEmpty());
}

} // namespace

StatusLine::StatusLine(const QString &place, bool isReadOnly)
{
    setProperty("kind", QStringLiteral("status"));
    setAttribute(Qt::WA_StyledBackground);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(10, 3, 10, 3);
    row->setSpacing(betweenTexts);
    m_message = addLabel(QStringLiteral("StatusMessage"), {});
    m_message->setSizePolicy(QSizePolicy::Ignored,
                             QSizePolicy::Preferred); // a long text must not widen the window
    row->setStretchFactor(m_message, 1);
    m_unsaved = addLabel(QStringLiteral("StatusUnsaved"), {});
    m_unsaved->setProperty("ink", QStringLiteral("warning"));
    m_count = addLabel(QStringLiteral("StatusCount"), {});
    addLabel(QStringLiteral("StatusReadOnly"), QStringLiteral("只读"))->setVisible(isReadOnly);
    QLabel *where = addLabel(QStringLiteral("DatabasePlace"), {});
    where->setText(where->fontMetrics().elidedText(place, Qt::ElideMiddle, widestPlace));
    where->setToolTip(place);
}

QLabel *StatusLine::addLabel(const QString &objectName, const QString &text)
{
    auto *label = new QLabel(text, this);
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    layout()->addWidget(label);
    return label;
}

void StatusLine::setTexts(const QString &message, const QString &count, const QString &unsaved)
{
    m_message->setText(look::plainMessage(message));
    setText(*m_count, count);
    setText(*m_unsaved, unsaved);
}

} // namespace ebtq::shell
