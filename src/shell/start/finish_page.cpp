#include "shell/start/finish_page.h"

#include <QLabel>
#include <QProgressBar>
#include <QScopeGuard>
#include <QVBoxLayout>

namespace ebtq::shell {

FinishPage::FinishPage(StartDraft &draft)
    : StartPage(draft, QStringLiteral("完成"), QStringLiteral("确认后点“完成”，然后登录。"))
    , m_summary(new QLabel)
    , m_progress(new QProgressBar)
{
    m_summary->setObjectName(QStringLiteral("summary"));
    m_summary->setTextFormat(Qt::PlainText);
    m_summary->setWordWrap(true);
    m_progress->hide();
    column().addWidget(m_summary);
    column().addWidget(m_progress);
    column().addStretch();
}

void FinishPage::initializePage()
{
    m_summary->setText(draft().summary());
}

void FinishPage::takeOver()
{
    const auto hidden = qScopeGuard([this] { m_progress->hide(); });
    draft().carryOut([this](int done, int total) {
        m_progress->setMaximum(total);
        m_progress->setValue(done);
        m_progress->show();
        repaint();
    });
}

} // namespace ebtq::shell
