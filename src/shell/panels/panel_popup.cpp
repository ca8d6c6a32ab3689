#include "shell/panels/panel_popup.h"

#include "screens/look/look.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTreeView>
#include <QVBoxLayout>

namespace ebtq::shell {

namespace {

constexpr int narrowest = 240;
constexpr int widest = 640;
constexpr int mostRowsHeight = 320;
constexpr int fewestRows = 3;
constexpr int widestColumn = 260;
constexpr int columnGap = 12;

bool movesThroughRows(int key)
{
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

} // namespace

PanelPopup::PanelPopup(const host::Panel &panel)
    : m_panel(panel)
    , m_model(panel)
    , m_find(new QLineEdit(this))
    , m_view(new QTreeView(this))
    , m_nothing(new QLabel(QStringLiteral("没有符合的内容"), this))
{
    setUpView();
    setUpLayout();
    connect(m_find, &QLineEdit::textChanged, this, &PanelPopup::find);
    connect(m_view, &QTreeView::doubleClicked, this, &PanelPopup::choose);
    m_find->installEventFilter(this);
    setFocusProxy(m_find);
    m_find->setFocus();
    find({});
    sizeColumns();
}

void PanelPopup::setUpView()
{
    m_view->setObjectName(QStringLiteral("panelRows"));
    ensurePolished(); // the style sheet decides on the heights of rows, which are measured once
    m_view->setModel(&m_model);
    m_view->setFocusPolicy(Qt::NoFocus);
    m_view->setUniformRowHeights(true);
    m_view->setAllColumnsShowFocus(true);
    m_view->setRootIsDecorated(m_model.isTree());
    m_view->setItemsExpandable(false);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setHeaderHidden(m_panel.shown.size() < 2);
}

void PanelPopup::sizeColumns()
{
    for (int column = 0; column < m_model.columnCount(); ++column) {
        m_view->resizeColumnToContents(column);
        m_view->setColumnWidth(column, std::min(m_view->columnWidth(column) + columnGap, widestColumn));
    }
}

void PanelPopup::showEvent(QShowEvent *event)
{
    Popup::showEvent(event);
    m_view->scrollToTop(); // shows the rows above the current one, too
    m_view->scrollTo(m_view->currentIndex());
}

void PanelPopup::setUpLayout()
{
    m_find->setObjectName(QStringLiteral("panelFind"));
    m_find->setPlaceholderText(m_panel.title.isEmpty() ? QStringLiteral("查找")
                                                       : QStringLiteral("在%1中查找").arg(m_panel.title));
    m_find->setAccessibleName(m_find->placeholderText());
    m_find->addAction(look::icon(QStringLiteral("edit-find"), &look::Tokens::muted),
                      QLineEdit::LeadingPosition);
    m_nothing->setProperty("kind", QStringLiteral("hint"));
    m_nothing->setAlignment(Qt::AlignCenter);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSpacing(6);
    layout->addWidget(m_find);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_nothing, 1);
}

/// Of all rows while they fit: a short list has no empty space below.
int PanelPopup::rowsHeight() const
{
    const int rows = static_cast<int>(std::min<qsizetype>(m_panel.rows.rowCount(), mostRowsHeight));
    const int header = m_view->isHeaderHidden() ? 0 : m_view->header()->sizeHint().height();
    return std::min(header + std::max(rows, fewestRows) * m_view->sizeHintForRow(0), mostRowsHeight);
}

QSize PanelPopup::sizeHint() const
{
    const int rows = m_view->header()->length() + m_view->verticalScrollBar()->sizeHint().width();
    const QMargins margins = layout()->contentsMargins();
    const int aroundRows = margins.top() + margins.bottom() + layout()->spacing() + 2 * frameWidth();
    return {std::clamp(rows + 20, narrowest, widest),
            rowsHeight() + m_find->sizeHint().height() + aroundRows};
}

void PanelPopup::find(const QString &text)
{
    m_model.setFilter(text);
    m_view->expandAll();
    m_view->setVisible(!m_model.isEmpty());
    m_nothing->setVisible(m_model.isEmpty());
    QModelIndex current = text.isEmpty() ? m_model.indexOfRow(m_panel.currentRow) : QModelIndex();
    if (!current.isValid())
        current = m_model.indexOfRow(m_model.firstChoosableMatch());
    m_view->setCurrentIndex(current);
}

void PanelPopup::choose(const QModelIndex &index)
{
    if (!(m_model.flags(index) & Qt::ItemIsSelectable))
        return;
    m_chosen = m_model.panelRow(index);
    hide();
}

bool PanelPopup::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_find || event->type() != QEvent::KeyPress)
        return Popup::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (movesThroughRows(key))
        return QApplication::sendEvent(m_view, event);
    if (key == Qt::Key_Escape) {
        hide();
        return true;
    }
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        choose(m_view->currentIndex());
        return true;
    }
    return Popup::eventFilter(watched, event);
}

} // namespace ebtq::shell
