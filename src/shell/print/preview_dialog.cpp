#include "shell/print/preview_dialog.h"

#include "screens/look/look.h"
#include "screens/look/window_below.h"
#include "shell/print/page_view.h"
#include "shell/print/print_run.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

namespace ebtq::shell {

namespace {

constexpr QSize preferredSize(1100, 780);
constexpr double zoomStep = 1.25;

} // namespace

PreviewDialog::PreviewDialog(PrintRun &run, QWidget *parent)
    : QDialog(parent)
    , m_run(run)
    , m_pages(new PageView(this))
    , m_page(new QSpinBox)
    , m_count(new QLabel)
{
    setObjectName(QStringLiteral("PrintPreview"));
    setWindowTitle(QStringLiteral("打印预览 - %1").arg(run.title()));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(makeToolBar());
    column->addWidget(m_pages, 1);
    connect(m_pages, &PageView::currentPageChanged, this, [this](int page) {
        const QSignalBlocker quiet(m_page);
        m_page->setValue(page + 1);
    });
    connect(m_page, &QSpinBox::valueChanged, this, [this](int page) { m_pages->showPage(page - 1); });
    followPages();
    resize(preferredSize.boundedTo(screen()->availableSize()));
    m_pages->setFocus();
}

QWidget *PreviewDialog::makeToolBar()
{
    auto *bar = new QWidget;
    bar->setProperty("kind", QStringLiteral("bar"));
    bar->setAttribute(Qt::WA_StyledBackground);
    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(12, 6, 12, 6);
    addButton(*row, QStringLiteral("Print"), QStringLiteral("打印(&P)…"),
              [this] { attempt([this] { m_run.print(); }); });
    addButton(*row, QStringLiteral("SavePdf"), QStringLiteral("存为 PDF(&S)…"),
              [this] { attempt([this] { m_run.savePdf(); }); });
    addButton(*row, QStringLiteral("PageSetup"), QStringLiteral("页面设置(&U)…"), [this] { setUpPage(); });
    addButton(*row, QStringLiteral("ZoomOut"), QStringLiteral("缩小(&O)"),
              [this] { m_pages->setZoom(m_pages->zoom() / zoomStep); });
    addButton(*row, QStringLiteral("ZoomIn"), QStringLiteral("放大(&I)"),
              [this] { m_pages->setZoom(m_pages->zoom() * zoomStep); });
    addButton(*row, QStringLiteral("FitWidth"), QStringLiteral("适合宽度(&W)"),
              [this] { m_pages->setZoom(0); });
    addPageBox(*row);
    addButton(*row, QStringLiteral("ClosePreview"), QStringLiteral("关闭(&X)"), [this] { reject(); });
    return bar;
}

void PreviewDialog::addButton(QHBoxLayout &row, const QString &name, const QString &caption,
                              std::function<void()> act)
{
    auto *button = new QPushButton(caption);
    button->setObjectName(name);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, std::move(act));
    row.addWidget(button);
}

void PreviewDialog::addPageBox(QHBoxLayout &row)
{
    auto *caption = new QLabel(QStringLiteral("页(&G)"));
    caption->setBuddy(m_page);
    m_page->setObjectName(QStringLiteral("Page"));
    m_page->setAccessibleName(QStringLiteral("页码"));
    row.addStretch();
    row.addWidget(caption);
    row.addWidget(m_page);
    row.addWidget(m_count);
    row.addStretch();
}

void PreviewDialog::run()
{
    look::runModal(*this);
    if (m_failure)
        std::rethrow_exception(m_failure);
}

/// Exceptions must not cross an event loop.
template<class Act> void PreviewDialog::attempt(Act act)
{
    try {
        act();
    } catch (...) {
        m_failure = std::current_exception();
        reject();
    }
}

void PreviewDialog::setUpPage()
{
    attempt([this] {
        if (m_run.setUp())
            followPages();
    });
}

void PreviewDialog::followPages()
{
    const int pages = m_run.printout()->pageCount();
    {
        const QSignalBlocker quiet(m_page);
        m_page->setRange(1, pages);
    }
    m_count->setText(QStringLiteral("共 %1 页").arg(pages));
    m_pages->setPrintout(m_run.printout());
}

} // namespace ebtq::shell
