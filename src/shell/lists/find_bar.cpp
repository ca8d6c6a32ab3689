#include "shell/lists/find_bar.h"

#include "screens/look/look.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QToolButton>

namespace ebtq::shell {

namespace {

constexpr int pauseInTyping = 300; // milliseconds
constexpr int widestText = 320;

} // namespace

FindBar::FindBar(QWidget *parent)
    : QWidget(parent)
    , m_caption(new QLabel(this))
    , m_text(new QLineEdit(this))
    , m_filters(new QCheckBox(QStringLiteral("只显示含有的行(&J)"), this))
    , m_pause(new QTimer(this))
{
    setObjectName(QStringLiteral("FindBar"));
    setProperty("kind", QStringLiteral("bar"));
    setAttribute(Qt::WA_StyledBackground);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(12, 6, 12, 6);
    m_caption->setProperty("kind", QStringLiteral("caption"));
    m_caption->setTextFormat(Qt::PlainText);
    m_text->setObjectName(QStringLiteral("FindText"));
    m_text->setAccessibleName(QStringLiteral("查找"));
    m_text->setMaximumWidth(widestText);
    m_text->setClearButtonEnabled(true);
    m_filters->setObjectName(QStringLiteral("FindFilters"));
    row->addWidget(m_caption);
    row->addWidget(m_text, 1);
    addStep(QStringLiteral("go-previous"), QStringLiteral("FindPrevious"),
            QStringLiteral("上一个 (Shift+F3)"), -1);
    addStep(QStringLiteral("go-next"), QStringLiteral("FindNext"), QStringLiteral("下一个 (F3)"), 1);
    row->addWidget(m_filters);
    row->addStretch();
    auto *close = new QToolButton(this);
    close->setObjectName(QStringLiteral("CloseFind"));
    close->setIcon(look::icon(QStringLiteral("dialog-close")));
    close->setToolTip(QStringLiteral("关闭查找 (Esc)"));
    close->setAccessibleName(close->toolTip());
    row->addWidget(close);
    m_pause->setSingleShot(true);
    m_pause->setInterval(pauseInTyping);
    connect(m_pause, &QTimer::timeout, this, &FindBar::filter);
    connect(m_text, &QLineEdit::textEdited, m_pause, qOverload<>(&QTimer::start));
    connect(m_filters, &QCheckBox::clicked, this, &FindBar::filter);
    connect(close, &QToolButton::clicked, this, &FindBar::leave);
    hide();
}

void FindBar::addStep(const QString &icon, const QString &name, const QString &toolTip, int direction)
{
    auto *button = new QToolButton(this);
    button->setObjectName(name);
    button->setIcon(look::icon(icon));
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    connect(button, &QToolButton::clicked, this, [this, direction] { Q_EMIT wanted(direction); });
    layout()->addWidget(button);
}

QString FindBar::text() const
{
    return m_text->text();
}

bool FindBar::isFiltering() const
{
    return !isHidden() && m_filters->isChecked();
}

void FindBar::setColumn(const QString &column)
{
    m_caption->setText(column.isEmpty() ? QStringLiteral("在各列中查找")
                                        : QStringLiteral("在“%1”中查找").arg(column));
}

void FindBar::open(const QString &column, bool filters)
{
    setColumn(column);
    show();
    if (filters != m_filters->isChecked()) {
        m_filters->setChecked(filters);
        filter();
    }
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
}

void FindBar::leave()
{
    m_pause->stop();
    hide();
    if (m_filters->isChecked())
        Q_EMIT filterChanged({});
    m_filters->setChecked(false);
    Q_EMIT left();
}

void FindBar::filter()
{
    Q_EMIT filterChanged(m_filters->isChecked() ? text() : QString());
}

/// Esc is the message bar's key elsewhere.
bool FindBar::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape)
        event->accept();
    return QWidget::event(event);
}

void FindBar::keyPressEvent(QKeyEvent *event)
{
    const bool isBackward = event->modifiers().testFlag(Qt::ShiftModifier);
    if (event->key() == Qt::Key_Escape)
        leave();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Q_EMIT wanted(isBackward ? -1 : 1);
    else
        QWidget::keyPressEvent(event);
}

} // namespace ebtq::shell
