#include "screens/listings/frm_fx_view.h"

#include "library/listings/frm_fx.h"
#include "screens/controls/button_view.h"
#include "screens/controls/check_box_view.h"
#include "screens/controls/control_binding.h"
#include "screens/controls/field_view.h"
#include "screens/controls/text_box_view.h"
#include "screens/listings/frm_fx_layout.h"
#include "screens/look/look.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

namespace ebtq {

namespace {

constexpr int fieldCharacters = 10; ///< the least width of a field, in Chinese characters
constexpr int beforeField = 8;
constexpr int betweenPairs = 12;
constexpr int betweenRows = 6;
constexpr int textMargin = 6; ///< as the fields of one line have it
constexpr QChar tickMnemonics[] = {u'J', u'T', u'U'};

int captionColumn(int pair)
{
    return 3 * pair;
}

int fieldColumn(int pair)
{
    return captionColumn(pair) + 1;
}

QLabel *captionOf(const EditorCell &cell, QWidget *parent)
{
    QString text = cell.caption.toString();
    if (!cell.unit.isEmpty())
        text += u' ' + cell.unit.toString();
    if (cell.kind == EditorCell::Required)
        text += QStringLiteral(" <span style=\"color:%1\">*</span>").arg(look::tokens().danger.name());
    auto *label = new QLabel(text, parent);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setProperty("kind", QStringLiteral("caption"));
    label->setContentsMargins(0, 0, beforeField, 0);
    return label;
}

/// A width that comes from the grid alone: what stands in a field must not push its column out of line.
template<class Widget> Widget *ofGridsWidth(Widget *widget)
{
    widget->setSizePolicy(QSizePolicy::Ignored, widget->sizePolicy().verticalPolicy());
    return widget;
}

} // namespace

FrmFxView::FrmFxView(FrmFx &form, QWidget *parent)
    : QWidget(parent)
    , m_form(form)
{
    setObjectName(QStringLiteral("FrmFx"));
    setWindowTitle(FrmFx::Caption());
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(16, 10, 16, 12);
    column->setSpacing(4);
    addGroups();
    for (const EditorCell &cell : editorCells())
        addCell(cell);
    lineUp();
    addFailure();
    addBottom();
    QWidget *first = findChild<QWidget *>(
        widgetName(form.qzFcTxt(0).Enabled() ? static_cast<Control &>(form.qzFcTxt(0)) : form.Cmd(1)));
    setFocusProxy(first);
    first->setFocus();
    connect(&form, &FrmFx::unloaded, this, &QWidget::close);
}

void FrmFxView::addGroups()
{
    for (size_t number = 0; number < m_groups.size(); ++number) {
        auto *group =
            new QGroupBox(editorGroupTitle(static_cast<EditorCell::Group>(number)).toString(), this);
        auto *cells = new QGridLayout(group);
        cells->setContentsMargins(2, 2, 2, 2);
        cells->setHorizontalSpacing(0);
        cells->setVerticalSpacing(betweenRows);
        m_groups[number] = group;
        static_cast<QVBoxLayout *>(layout())->addWidget(group);
    }
}

QGroupBox *FrmFxView::groupOf(const EditorCell &cell) const
{
    return m_groups[cell.group];
}

QGridLayout &FrmFxView::grid(const EditorCell &cell) const
{
    return *static_cast<QGridLayout *>(groupOf(cell)->layout());
}

bool FrmFxView::isShown(const EditorCell &cell) const
{
    return cell.kind == EditorCell::Memo ? m_form.Txt(cell.number).Visible()
                                         : m_form.qzFcTxt(cell.number).Visible();
}

void FrmFxView::addCell(const EditorCell &cell)
{
    if (!isShown(cell))
        return;
    if (cell.kind == EditorCell::Memo) {
        addMemo(cell);
        return;
    }
    const bool isWide = cell.kind == EditorCell::Rooms;
    QWidget *field = isWide ? makeRooms(groupOf(cell)) : makeField(cell, groupOf(cell));
    QLabel *caption = captionOf(cell, groupOf(cell));
    caption->setBuddy(field);
    grid(cell).addWidget(caption, cell.row, captionColumn(cell.pair));
    grid(cell).addWidget(field, cell.row, fieldColumn(cell.pair), 1, isWide ? 3 * wideCell - 2 : 1);
}

FieldView *FrmFxView::makeField(const EditorCell &cell, QWidget *parent)
{
    auto *view = ofGridsWidth(new FieldView(m_form.qzFcTxt(cell.number), parent));
    view->setAccessibleName(cell.caption.toString());
    if (cell.kind == EditorCell::Computed) {
        view->setReadOnly(true);
        view->setFocusPolicy(Qt::ClickFocus); // to copy from; Tab passes by
    }
    return view;
}

QWidget *FrmFxView::makeRooms(QWidget *parent)
{
    auto *row = ofGridsWidth(new QWidget(parent));
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const RoomCount &room : roomCounts()) {
        auto *view = ofGridsWidth(new FieldView(m_form.qzFcTxt(room.number), row));
        view->setAccessibleName(room.unit.toString());
        layout->addWidget(view, view->actions().constFirst()->isVisible() ? 2 : 1);
        auto *unit = new QLabel(room.unit.toString(), row);
        unit->setProperty("kind", QStringLiteral("caption"));
        layout->addWidget(unit);
        if (!row->focusProxy())
            row->setFocusProxy(view);
    }
    return row;
}

/// A box of many lines, below its caption the button that picks a text for it.
void FrmFxView::addMemo(const EditorCell &cell)
{
    auto *box = ofGridsWidth(new TextAreaView(m_form.Txt(cell.number), groupOf(cell)));
    box->setAccessibleName(cell.caption.toString());
    box->setMinimumHeight(0);
    box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    box->document()->setDocumentMargin(textMargin);
    QLabel *caption = captionOf(cell, groupOf(cell));
    caption->setBuddy(box);
    auto *pick = new ButtonView(m_form.Cmd(cell.number == 0 ? 3 : 2), groupOf(cell));
    pick->setProperty("kind", QStringLiteral("flat"));
    grid(cell).addWidget(caption, cell.row, captionColumn(cell.pair));
    grid(cell).addWidget(pick, cell.row + 1, captionColumn(cell.pair), Qt::AlignRight);
    grid(cell).addWidget(box, cell.row, fieldColumn(cell.pair), memoRows, 3 * wideCell - 2);
}

/// The groups are grids of their own, made alike: a column of captions is as wide as its widest one in any
/// group, and the fields share what is left.
void FrmFxView::lineUp()
{
    const int fieldWidth = fieldCharacters * fontMetrics().horizontalAdvance(u'房');
    for (int pair = 0; pair < editorPairs; ++pair) {
        int widest = 0;
        for (const EditorCell &cell : editorCells()) {
            const auto *item =
                cell.pair == pair ? grid(cell).itemAtPosition(cell.row, captionColumn(pair)) : nullptr;
            widest = std::max(widest, item ? item->sizeHint().width() : 0);
        }
        for (QGroupBox *group : m_groups) {
            auto *cells = static_cast<QGridLayout *>(group->layout());
            cells->setColumnMinimumWidth(captionColumn(pair), widest);
            cells->setColumnMinimumWidth(fieldColumn(pair), fieldWidth);
            cells->setColumnStretch(fieldColumn(pair), 1);
            if (pair + 1 < editorPairs)
                cells->setColumnMinimumWidth(captionColumn(pair + 1) - 1, betweenPairs);
        }
    }
}

/// A failure that the form reports to its list is told here as well: the list stands behind this window.
void FrmFxView::addFailure()
{
    m_failure = new QLabel(this);
    m_failure->setObjectName(QStringLiteral("Failure"));
    m_failure->setProperty("kind", QStringLiteral("error"));
    m_failure->setTextFormat(Qt::PlainText);
    m_failure->setWordWrap(true);
    m_failure->hide();
    layout()->addWidget(m_failure);
    connect(&m_form, &FrmFx::ErrMessage, m_failure, [this](const QString &text) {
        m_failure->setText(text);
        m_failure->show();
    });
    connect(&m_form, &FrmFx::ReturnData, m_failure, &QWidget::hide);
}

void FrmFxView::addBottom()
{
    auto *row = new QHBoxLayout;
    row->setContentsMargins(0, 8, 0, 0);
    row->setSpacing(10);
    addTicks(*row);
    row->addStretch(1);
    addButtons(*row);
    static_cast<QVBoxLayout *>(layout())->addLayout(row);
}

void FrmFxView::addTicks(QHBoxLayout &row)
{
    for (int number = 0; number < 3; ++number)
        row.addWidget(new CheckBoxView(m_form.Chk(number), this, tickMnemonics[number]));
}

/// A click leaves the keyboard where it is, so that the field that is being filled in can refuse first.
void FrmFxView::addButtons(QHBoxLayout &row)
{
    auto *save = new ButtonView(m_form.Cmd(0), this);
    save->setProperty("kind", QStringLiteral("primary"));
    save->setGuard(&FieldView::checkFocused);
    auto *close = new ButtonView(m_form.Cmd(1), this);
    for (ButtonView *button : {save, close}) {
        button->setFocusPolicy(Qt::TabFocus);
        row.addWidget(button);
    }
}

} // namespace ebtq
