#include "screens/lists/filter_bar.h"

#include "screens/controls/flow_layout.h"

#include <QStyle>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq {

FilterBar::FilterBar(QWidget *parent)
    : QWidget(parent)
    , m_row(new FlowLayout(this))
{
    setProperty("kind", u"bar"_s);
    setAttribute(Qt::WA_StyledBackground);
    m_row->setContentsMargins(8, 6, 8, 6);
    m_row->setSpacing(7);
}

void FilterBar::makeButton()
{
    m_more = new QToolButton(this);
    m_more->setObjectName(u"MoreFilters"_s);
    m_more->setCheckable(true);
    m_more->setFocusPolicy(Qt::TabFocus);
    m_more->setShortcut(Qt::ALT | Qt::Key_P);
    m_more->setToolTip(u"显示或折叠其余筛选 (Alt+P)"_s);
    m_more->hide();
    m_row->addWidget(m_more);
    connect(m_more, &QToolButton::toggled, this, &FilterBar::arrange);
}

void FilterBar::addFilter(QWidget *filter, std::function<bool()> isUsed)
{
    m_row->addWidget(filter);
    m_filters.push_back({filter, std::move(isUsed)});
}

void FilterBar::addPinned(QWidget *widget)
{
    if (!m_more)
        makeButton();
    m_row->addWidget(widget);
    m_pinned.push_back(widget);
}

void FilterBar::reveal(QWidget &field)
{
    const bool isFolded = std::ranges::any_of(m_filters, [&](const Filter &each) {
        return each.widget->isHidden() && each.widget->isAncestorOf(&field);
    });
    if (isFolded)
        m_more->setChecked(true);
    field.setFocus(Qt::ShortcutFocusReason);
}

int FilterBar::widthOf(const QWidget &widget) const
{
    return widget.sizeHint().width() + m_row->spacing();
}

size_t FilterBar::countInLine() const
{
    const QMargins margins = m_row->contentsMargins();
    int left = width() - margins.left() - margins.right() + m_row->spacing();
    for (const QWidget *pinned : m_pinned)
        left -= widthOf(*pinned);
    int all = 0;
    for (const Filter &each : m_filters)
        all += widthOf(*each.widget);
    if (all <= left)
        return m_filters.size();
    left -= widthOf(*m_more);
    size_t count = 0;
    for (; count < m_filters.size(); ++count) {
        left -= widthOf(*m_filters[count].widget);
        if (left < 0)
            break;
    }
    return count;
}

void FilterBar::arrange()
{
    followUse();
    const size_t inLine = countInLine();
    m_more->setVisible(inLine < m_filters.size());
    for (size_t at = 0; at < m_filters.size(); ++at)
        m_filters[at].widget->setVisible(at < inLine || m_more->isChecked());
}

void FilterBar::followUse()
{
    const size_t inLine = countInLine();
    const auto used = std::count_if(m_filters.begin() + static_cast<std::ptrdiff_t>(inLine), m_filters.end(),
                                    [](const Filter &each) { return each.isUsed(); });
    m_more->setText(used == 0 ? u"更多"_s : u"更多 (%1)"_s.arg(used));
    m_more->setProperty("active", used > 0);
    m_more->style()->unpolish(m_more);
    m_more->style()->polish(m_more);
}

/// The window may be made so narrow that it folds.
QSize FilterBar::minimumSizeHint() const
{
    int widest = 0;
    for (const QWidget *pinned : m_pinned)
        widest = std::max(widest, pinned->minimumSizeHint().width());
    return {widest, QWidget::minimumSizeHint().height()};
}

void FilterBar::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrange();
}

/// Only now the style has decided on the widths.
void FilterBar::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    arrange();
}

} // namespace ebtq
