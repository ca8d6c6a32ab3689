#include "screens/controls/splitter_view.h"

#include "library/controls/splitter.h"
#include "library/controls/twips.h"
#include "screens/controls/color_number.h"
#include "screens/controls/control_binding.h"
#include "screens/look/look.h"

#include <QMouseEvent>
#include <QPainter>

namespace ebtq {

SplitterView::SplitterView(Splitter &splitter, QWidget *parent)
    : QWidget(parent)
    , m_splitter(splitter)
{
    bindControl(splitter, *this);
    setCursor(Qt::SplitHCursor);
    connect(&splitter, &Splitter::placed, this, &SplitterView::place);
    connect(&splitter, &Control::stateChanged, this, qOverload<>(&QWidget::update));
    if (parent)
        parent->installEventFilter(this);
}

/// The parent's other children may have been made after the bar.
void SplitterView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    reportParent();
}

bool SplitterView::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parent() && event->type() == QEvent::Resize)
        reportParent();
    return QWidget::eventFilter(watched, event);
}

void SplitterView::reportParent()
{
    const QWidget *parent = parentWidget();
    if (!parent)
        return;
    for (const auto &[pane, name] : {std::pair(Splitter::First, m_splitter.ControlName1()),
                                     std::pair(Splitter::Second, m_splitter.ControlName2())}) {
        if (const QWidget *widget = sibling(name))
            m_splitter.setMinimum(pane, toTwips(widget->minimumSizeHint().width(), logicalDpiX()));
    }
    m_splitter.setParentSize(toTwips(parent->width(), logicalDpiX()),
                             toTwips(parent->height(), logicalDpiY()));
}

void SplitterView::place()
{
    setGeometry(pixels(m_splitter.barPlace()));
    placePane(Splitter::First, m_splitter.ControlName1(), m_splitter.ControlVisible1());
    placePane(Splitter::Second, m_splitter.ControlName2(), m_splitter.ControlVisible2());
}

/// The first pane begins at its own left.
void SplitterView::placePane(int pane, const QString &name, bool isVisible)
{
    QWidget *widget = sibling(name);
    if (!widget)
        return;
    QRect place = pixels(m_splitter.panePlace(static_cast<Splitter::Pane>(pane)));
    if (pane == Splitter::First)
        place.setLeft(widget->x());
    widget->setGeometry(place);
    if (widget->isHidden() == isVisible)
        widget->setVisible(isVisible);
}

/// A pane may be a sibling that holds the widget of that name, as a tree with its filter.
QWidget *SplitterView::sibling(const QString &name) const
{
    if (name.isEmpty() || !parentWidget())
        return nullptr;
    const auto widgets = parentWidget()->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (widget->objectName().compare(name, Qt::CaseInsensitive) != 0)
            continue;
        while (widget->parentWidget() != parentWidget())
            widget = widget->parentWidget();
        return widget == this ? nullptr : widget;
    }
    return nullptr;
}

/// Edges are rounded, not widths: neighbours stay neighbours.
QRect SplitterView::pixels(const QRectF &twips) const
{
    const auto horizontally = [this](double at) { return qRound(toPixels(at, logicalDpiX())); };
    const auto vertically = [this](double at) { return qRound(toPixels(at, logicalDpiY())); };
    return {QPoint(horizontally(twips.left()), vertically(twips.top())),
            QPoint(horizontally(twips.right()) - 1, vertically(twips.bottom()) - 1)};
}

void SplitterView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_pressed = event->position().x();
    m_splitter.beginDrag();
}

/// Counted from where the bar was taken, so the mouse finds it again after it has met a minimum.
void SplitterView::mouseMoveEvent(QMouseEvent *event)
{
    m_splitter.drag(toTwips(event->position().x() - m_pressed, logicalDpiX()));
}

void SplitterView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        m_splitter.endDrag();
}

void SplitterView::paintEvent(QPaintEvent *)
{
    const int color = m_splitter.BackColor();
    QPainter(this).fillRect(rect(), color < 0 ? look::tokens().line : inScheme(colorOf(color)));
}

} // namespace ebtq
