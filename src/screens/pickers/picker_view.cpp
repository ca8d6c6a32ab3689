#include "screens/pickers/picker_view.h"

#include "library/pickers/picker.h"
#include "screens/controls/button_view.h"
#include "screens/controls/check_box_view.h"
#include "screens/controls/combo_view.h"
#include "screens/controls/control_binding.h"
#include "screens/controls/flex_grid_view.h"
#include "screens/controls/text_box_view.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int narrowest = 520;
constexpr int widest = 900;
constexpr int mostHeight = 420;
constexpr int fewestRows = 5;
constexpr int findCharacters = 9;
constexpr int ownerCharacters = 11;

/// Buttons in visible order, with the letters of those whose captions have none.
struct PanelButton
{
    int number;
    QChar letter = {};
};
constexpr PanelButton leftButtons[] = {{3, u'A'}, {4, u'E'}, {2}};
constexpr PanelButton rightButtons[] = {{0}, {1}};
constexpr int confirmButton = 0;

bool movesThroughRows(int key)
{
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

void setCharacters(QWidget &widget, int characters)
{
    widget.setMinimumWidth(characters * widget.fontMetrics().horizontalAdvance(u'房'));
}

void addButton(Picker &picker, const PanelButton &shown, QHBoxLayout &row)
{
    const Control *control = picker.IDesignUI_Controls().find(u"btn"_s, shown.number);
    if (!control)
        return; // the picker has no ticks
    auto *view = new ButtonView(picker.btn(shown.number), row.parentWidget());
    if (shown.number == confirmButton)
        view->setProperty("kind", u"primary"_s);
    if (!shown.letter.isNull()) {
        view->setShortcut(QKeySequence(Qt::ALT | static_cast<Qt::Key>(shown.letter.unicode())));
        view->setToolTip(u"%1 (Alt+%2)"_s.arg(control->Caption(), shown.letter));
    }
    row.addWidget(view);
}

} // namespace

PickerView::PickerView(Picker &picker, QWidget *parent)
    : QWidget(parent)
    , m_picker(picker)
{
    setObjectName(picker.name());
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(8, 8, 8, 8);
    column->setSpacing(8);
    addSearch(*column);
    addGrid(*column);
    addFailure(*column);
    addButtons(*column);
    addKeys();
    setFocusProxy(m_grid);
}

void PickerView::addSearch(QVBoxLayout &column)
{
    auto *row = new QHBoxLayout;
    column.addLayout(row);
    row->setSpacing(8);
    m_find = new TextBoxView(m_picker.Txt(0), this);
    m_find->installEventFilter(this);
    setCharacters(*m_find, findCharacters);
    row->addWidget(makeCaption(m_picker.Txt(0), *m_find, this));
    row->addWidget(m_find, 1);
    row->addWidget(new CheckBoxView(m_picker.Check(), this, u'F'));
    row->addWidget(new CheckBoxView(m_picker.ChkFind(), this, u'W'));
    addOwner(*row);
}

void PickerView::addOwner(QHBoxLayout &row)
{
    XPCombo *owner = m_picker.Cmb();
    if (!owner)
        return;
    auto *view = new ComboView(*owner, this);
    setCharacters(*view, ownerCharacters);
    row.addSpacing(8);
    row.addWidget(makeCaption(*owner, *view, this));
    row.addWidget(view);
}

void PickerView::addGrid(QVBoxLayout &column)
{
    m_grid = new FlexGridView(m_picker.VS(), this);
    m_grid->setAccessibleName(u"可选内容"_s);
    m_grid->installEventFilter(this);
    connect(m_grid, &QAbstractItemView::clicked, this,
            [this](const QModelIndex &index) { m_picker.clickRow(m_picker.VS().rowInSight(index.row())); });
    QHeaderView &captions = *m_grid->horizontalHeader();
    captions.setSectionsClickable(true);
    connect(&captions, &QHeaderView::sectionClicked, &m_picker, &Picker::sortBy);
    column.addWidget(m_grid, 1);
}

void PickerView::addFailure(QVBoxLayout &column)
{
    m_failure = new QLabel(this);
    m_failure->setObjectName(widgetName(m_picker.lblFailure()));
    m_failure->setProperty("kind", u"error"_s);
    m_failure->setTextFormat(Qt::PlainText);
    m_failure->setWordWrap(true);
    column.addWidget(m_failure);
    connect(&m_picker.lblFailure(), &Control::stateChanged, this, &PickerView::followFailure);
    followFailure();
}

/// "Nothing there" is said of a load that worked.
void PickerView::followFailure()
{
    const QString text = m_picker.lblFailure().Caption();
    const bool failed = !text.isEmpty();
    m_failure->setText(text);
    m_failure->setVisible(failed);
    m_grid->setEmptyHint(failed ? QString() : u"没有符合的内容"_s);
}

void PickerView::addButtons(QVBoxLayout &column)
{
    auto *row = new QHBoxLayout;
    column.addLayout(row);
    row->setSpacing(8);
    for (const PanelButton &button : leftButtons)
        addButton(m_picker, button, *row);
    row->addStretch();
    for (const PanelButton &button : rightButtons)
        addButton(m_picker, button, *row);
}

void PickerView::addKeys()
{
    connect(new QShortcut(Qt::CTRL | Qt::Key_B, this), &QShortcut::activated, this,
            [this] { m_picker.findByKey(); });
    connect(new QShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_E, this), &QShortcut::activated, this,
            [this] { m_picker.askForColumns(); });
}

bool PickerView::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (watched == m_find && movesThroughRows(key))
        return QCoreApplication::sendEvent(m_grid, event);
    if (watched == m_grid && key == Qt::Key_Space) {
        m_picker.clickRow(m_picker.VS().Row());
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

/// As tall as its rows while they fit.
QSize PickerView::sizeHint() const
{
    const QMargins margins = layout()->contentsMargins();
    const int width = m_grid->horizontalHeader()->length() + m_grid->verticalScrollBar()->sizeHint().width() +
                      margins.left() + margins.right();
    const int aroundGrid = layout()->minimumSize().height() - m_grid->minimumSizeHint().height();
    const int rows = std::clamp(m_grid->model()->rowCount(), fewestRows, mostHeight);
    const int rowsHeight = m_grid->horizontalHeader()->sizeHint().height() +
                           rows * m_grid->verticalHeader()->defaultSectionSize() + 2 * m_grid->frameWidth() +
                           m_grid->horizontalScrollBar()->sizeHint().height();
    return QSize(std::clamp(width, narrowest, widest), std::min(aroundGrid + rowsHeight, mostHeight))
        .expandedTo(minimumSizeHint());
}

} // namespace ebtq
