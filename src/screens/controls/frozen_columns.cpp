#include "screens/controls/frozen_columns.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

/// For the columns that do scroll, in pixels.
constexpr int leastRoom = 80;

} // namespace

FrozenColumns::FrozenColumns(QTableView &list)
    : QTableView(&list)
    , m_list(list)
{
    hide();
    setObjectName(list.objectName() + u"_frozen"_s);
    setModel(list.model());
    setSelectionModel(list.selectionModel());
    setItemDelegate(list.itemDelegate());
    setSelectionBehavior(list.selectionBehavior());
    setShowGrid(false);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(list.verticalScrollMode());
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        if (!m_exchange.isFollowing() && width > 0)
            m_list.setColumnWidth(column, width);
    });
    connect(horizontalHeader(), &QHeaderView::sectionClicked, list.horizontalHeader(),
            &QHeaderView::sectionClicked);
    for (const QScrollBar *bar : {list.horizontalScrollBar(), list.verticalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, &FrozenColumns::follow);
}

void FrozenColumns::setCount(int count)
{
    m_count = count;
    follow();
}

int FrozenColumns::frozenWidth() const
{
    int width = 0;
    for (int place = 0; place < std::min(m_count, m_list.horizontalHeader()->count()); ++place)
        width += m_list.columnWidth(m_list.horizontalHeader()->logicalIndex(place));
    return width + leastRoom <= m_list.viewport()->width() ? width : 0;
}

void FrozenColumns::follow()
{
    const int width = frozenWidth();
    const bool isNeeded = m_list.horizontalScrollBar()->value() > 0 && width > 0;
    setVisible(isNeeded);
    if (!isNeeded)
        return;
    const QWidget *rows = m_list.viewport();
    const int header = m_list.horizontalHeader()->height();
    verticalHeader()->setDefaultSectionSize(m_list.verticalHeader()->defaultSectionSize());
    horizontalHeader()->setFixedHeight(header);
    setGeometry(rows->x(), rows->y() - header, std::min(width, rows->width()), rows->height() + header);
    followColumns();
    verticalScrollBar()->setRange(0, m_list.verticalScrollBar()->maximum());
    verticalScrollBar()->setValue(m_list.verticalScrollBar()->value());
    raise();
}

void FrozenColumns::followColumns()
{
    const auto following = m_exchange.follow();
    const QHeaderView &sections = *m_list.horizontalHeader();
    horizontalHeader()->setSectionsClickable(sections.sectionsClickable());
    for (int place = 0; place < sections.count(); ++place) {
        const int column = sections.logicalIndex(place);
        horizontalHeader()->moveSection(horizontalHeader()->visualIndex(column), place);
        setColumnHidden(column, place >= m_count || m_list.isColumnHidden(column));
        if (!isColumnHidden(column))
            setColumnWidth(column, m_list.columnWidth(column));
    }
}

/// The two lie with their corners on each other, so places are the same in both.
bool FrozenColumns::viewportEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ToolTip:
    case QEvent::ContextMenu:
        return QCoreApplication::sendEvent(m_list.viewport(), event);
    default:
        return QTableView::viewportEvent(event);
    }
}

} // namespace ebtq
