#include "shell/notice_bar.h"

#include "screens/look/look.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace ebtq::shell {

NoticeBar::NoticeBar(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("NoticeBar"));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(0);
    hide();
}

void NoticeBar::add(const QString &name, const QString &text, const QString &action,
                    std::function<void()> act)
{
    remove(name);
    auto *notice = new QFrame;
    notice->setObjectName(name);
    notice->setProperty("kind", QStringLiteral("notice"));
    auto *row = new QHBoxLayout(notice);
    row->setContentsMargins(12, 4, 12, 4);
    auto *icon = new QToolButton; // drawn anew in another scheme, as no picture in a label is
    icon->setIcon(look::icon(QStringLiteral("notifications")));
    icon->setAttribute(Qt::WA_TransparentForMouseEvents);
    icon->setFocusPolicy(Qt::NoFocus);
    auto *label = new QLabel(text);
    label->setObjectName(name + QStringLiteral("_text"));
    label->setTextFormat(Qt::PlainText);
    auto *doing = new QPushButton(action);
    doing->setObjectName(name + QStringLiteral("_act"));
    doing->setProperty("kind", QStringLiteral("flat"));
    auto *close = new QToolButton;
    close->setObjectName(name + QStringLiteral("_close"));
    close->setIcon(look::icon(QStringLiteral("dialog-close")));
    close->setToolTip(QStringLiteral("关闭"));
    close->setAccessibleName(close->toolTip());
    row->addWidget(icon);
    row->addWidget(label);
    row->addWidget(doing);
    row->addStretch();
    row->addWidget(close);
    layout()->addWidget(notice);
    connect(close, &QToolButton::clicked, this, [this, name] { remove(name); });
    connect(doing, &QPushButton::clicked, this, [this, name, act = std::move(act)] {
        remove(name);
        act();
    });
    setVisible(true);
}

void NoticeBar::setText(const QString &name, const QString &text)
{
    if (auto *label = findChild<QLabel *>(name + QStringLiteral("_text")))
        label->setText(text);
}

/// The button that was pressed is on it.
void NoticeBar::remove(const QString &name)
{
    if (auto *notice = findChild<QFrame *>(name, Qt::FindDirectChildrenOnly)) {
        notice->setObjectName({});
        notice->hide();
        layout()->removeWidget(notice);
        notice->deleteLater();
    }
    setVisible(layout()->count() > 0);
}

} // namespace ebtq::shell
