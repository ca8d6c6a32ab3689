#include "shell/print/page_view.h"

#include "screens/look/look.h"
#include "shell/print/printout.h"

#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace ebtq::shell {

namespace {

constexpr int gap = 16; // pixels around a page
constexpr double smallestZoom = 0.2;
constexpr double largestZoom = 4;
constexpr double wheelZoom = 1.15;

} // namespace

PageView::PageView(QWidget *parent)
    : QAbstractScrollArea(parent)
{
    setObjectName(QStringLiteral("Pages"));
    setAccessibleName(QStringLiteral("打印页面"));
    setFrameShape(QFrame::NoFrame);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this,
            [this] { Q_EMIT currentPageChanged(currentPage()); });
}

void PageView::setPrintout(std::shared_ptr<const Printout> printout)
{
    m_printout = std::move(printout);
    layOut();
    viewport()->update();
    Q_EMIT currentPageChanged(currentPage());
}

/// Keeps the place at the top of the window.
void PageView::setZoom(double zoom)
{
    const double place = verticalScrollBar()->value() / stride();
    m_zoom = zoom == 0 ? 0 : std::clamp(zoom, smallestZoom, largestZoom);
    layOut();
    verticalScrollBar()->setValue(qRound(place * stride()));
    viewport()->update();
}

double PageView::zoom() const
{
    if (m_zoom > 0 || !m_printout)
        return m_zoom;
    const double inches = m_printout->paperSize().width() / Printout::dotsPerInch;
    return std::clamp((viewport()->width() - 2.0 * gap) / (inches * logicalDpiX()), smallestZoom,
                      largestZoom);
}

QSizeF PageView::pageSize() const
{
    return m_printout ? m_printout->paperSize() / Printout::dotsPerInch * logicalDpiX() * zoom() : QSizeF();
}

double PageView::stride() const
{
    return pageSize().height() + gap;
}

void PageView::layOut()
{
    const int pages = m_printout ? m_printout->pageCount() : 0;
    const int height = qRound(std::min(pages * stride() + gap, 1e9));
    const int width = qRound(pageSize().width()) + 2 * gap;
    verticalScrollBar()->setRange(0, std::max(0, height - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(60);
    horizontalScrollBar()->setRange(0, std::max(0, width - viewport()->width()));
    horizontalScrollBar()->setPageStep(viewport()->width());
}

int PageView::currentPage() const
{
    const int middle = verticalScrollBar()->value() + viewport()->height() / 2;
    const int last = m_printout ? m_printout->pageCount() - 1 : 0;
    return std::clamp(static_cast<int>(middle / stride()), 0, std::max(last, 0));
}

void PageView::showPage(int page)
{
    verticalScrollBar()->setValue(qRound(page * stride()));
}

void PageView::paintEvent(QPaintEvent *)
{
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), look::tokens().line);
    if (!m_printout)
        return;
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    const QSizeF size = pageSize();
    const double left = std::max(static_cast<double>(gap), (viewport()->width() - size.width()) / 2) -
                        horizontalScrollBar()->value();
    const int top = verticalScrollBar()->value();
    const int first = std::max(0, static_cast<int>(std::floor(top / stride())));
    for (int page = first; page < m_printout->pageCount(); ++page) {
        const QRectF place(QPointF(left, gap + page * stride() - top), size);
        if (place.top() > viewport()->height())
            break;
        paintPage(painter, page, place);
    }
}

void PageView::paintPage(QPainter &painter, int page, const QRectF &place) const
{
    painter.fillRect(place, Qt::white);
    painter.save();
    painter.setClipRect(place);
    painter.translate(place.topLeft());
    const double scale = place.width() / m_printout->paperSize().width();
    painter.scale(scale, scale);
    m_printout->paint(painter, page);
    painter.restore();
}

void PageView::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    layOut();
}

void PageView::wheelEvent(QWheelEvent *event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier))
        return QAbstractScrollArea::wheelEvent(event);
    setZoom(zoom() * (event->angleDelta().y() > 0 ? wheelZoom : 1 / wheelZoom));
    event->accept();
}

} // namespace ebtq::shell
