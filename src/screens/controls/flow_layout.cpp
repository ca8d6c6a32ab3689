#include "screens/controls/flow_layout.h"

#include <QWidget>

#include <algorithm>

namespace ebtq {

FlowLayout::FlowLayout(QWidget *parent)
    : QLayout(parent)
{}

/// One by one: a layout among the items takes itself out of this one when it goes.
FlowLayout::~FlowLayout()
{
    while (const QLayoutItem *item = FlowLayout::takeAt(0))
        delete item;
}

void FlowLayout::addLayout(QLayout *layout)
{
    addChildLayout(layout);
    addItem(layout);
}

void FlowLayout::addItem(QLayoutItem *item)
{
    m_items.emplace_back(item);
    invalidate();
}

QLayoutItem *FlowLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_items[static_cast<size_t>(index)].get() : nullptr;
}

QLayoutItem *FlowLayout::takeAt(int index)
{
    if (!itemAt(index))
        return nullptr;
    QLayoutItem *item = m_items[static_cast<size_t>(index)].release();
    m_items.erase(m_items.begin() + index);
    invalidate();
    return item;
}

std::vector<FlowLayout::Line> FlowLayout::lines(int width) const
{
    std::vector<Line> result;
    for (size_t at = 0; at < m_items.size(); ++at) {
        if (m_items[at]->isEmpty())
            continue;
        const QSize size = m_items[at]->sizeHint();
        if (result.empty() || result.back().width + spacing() + size.width() > width) {
            result.push_back({at, at + 1, size.width(), size.height()});
            continue;
        }
        Line &line = result.back();
        line.last = at + 1;
        line.width += spacing() + size.width();
        line.height = std::max(line.height, size.height());
    }
    return result;
}

int FlowLayout::heightForWidth(int width) const
{
    const QMargins margins = contentsMargins();
    int height = 0;
    for (const Line &line : lines(width - margins.left() - margins.right()))
        height += line.height + (height == 0 ? 0 : spacing());
    return withMargins({0, height}).height();
}

QSize FlowLayout::sizeHint() const
{
    QSize size;
    for (const auto &item : m_items) {
        if (!item->isEmpty())
            size = QSize(size.width() + item->sizeHint().width() + spacing(),
                         std::max(size.height(), item->sizeHint().height()));
    }
    return withMargins(size);
}

QSize FlowLayout::minimumSize() const
{
    QSize size;
    for (const auto &item : m_items)
        size = size.expandedTo(item->minimumSize());
    return withMargins(size);
}

QSize FlowLayout::withMargins(QSize size) const
{
    return size.grownBy(contentsMargins());
}

void FlowLayout::setGeometry(const QRect &rect)
{
    QLayout::setGeometry(rect);
    const QRect inside = rect.marginsRemoved(contentsMargins());
    int y = inside.y();
    for (const Line &line : lines(inside.width())) {
        place(line, QRect(inside.x(), y, inside.width(), line.height));
        y += line.height + spacing();
    }
}

void FlowLayout::place(const Line &line, const QRect &rect) const
{
    int left = rect.width() - line.width;
    int x = rect.x();
    for (size_t at = line.first; at < line.last; ++at) {
        QLayoutItem &item = *m_items[at];
        if (item.isEmpty())
            continue;
        QSize size = item.sizeHint();
        if (item.expandingDirections().testFlag(Qt::Horizontal) && left > 0) {
            const int grown = std::min(item.maximumSize().width(), size.width() + left);
            left -= grown - size.width();
            size.setWidth(grown);
        }
        item.setGeometry(QRect(x, rect.y() + (rect.height() - size.height()) / 2,
                               std::min(size.width(), rect.width()), size.height()));
        x += size.width() + spacing();
    }
}

} // namespace ebtq
