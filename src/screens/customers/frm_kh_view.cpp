#include "screens/customers/frm_kh_view.h"

#include "library/customers/frm_kh.h"
#include "library/customers/frm_kh_fields.h"
#include "screens/controls/button_view.h"
#include "screens/controls/check_box_view.h"
#include "screens/controls/control_binding.h"
#include "screens/controls/field_view.h"
#include "screens/controls/option_button_view.h"
#include "screens/controls/text_box_view.h"
#include "screens/customers/frm_kh_layout.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

using Number = CustomerNumber;

constexpr int fieldCharacters = 11; ///< the least width of a field, in Chinese characters
constexpr int remarkLines = 3;
constexpr QChar tickMnemonics[] = {u'B', u'R'};
constexpr QChar optionMnemonics[] = {u'V', u'I'};

struct Move
{
    int button;
    Qt::Key key; ///< with Ctrl
};
constexpr Move moves[] = {{Number::Top, Qt::Key_Home},
                          {Number::Previous, Qt::Key_PageUp},
                          {Number::Next, Qt::Key_PageDown},
                          {Number::Bottom, Qt::Key_End}};

QHBoxLayout *rowOf(QWidget *widget)
{
    auto *layout = new QHBoxLayout(widget);
    layout->setContentsMargins(0, 0, 0, 0);
    return layout;
}

QLabel *smallLabel(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setProperty("kind", u"caption"_s);
    return label;
}

} // namespace

FrmKhView::FrmKhView(frmKh &form, QWidget *parent)
    : EditorFormView(form, frmKh::Caption(), parent)
    , m_form(form)
{
    for (const QStringView title : customerGroupTitles())
        addCard(title.toString());
    addCard(form.Txt().Caption());
    for (const CustomerCell &cell : customerCells())
        addCell(cell);
    lineUp(customerPairs, fieldCharacters);
    QHBoxLayout *bottom = addBottomRow();
    addMoves(*bottom);
    addButtons(*bottom);
    beginWith(form.qzTxt(0));
}

void FrmKhView::addCell(const CustomerCell &cell)
{
    QGroupBox *card = cards()[cell.group];
    QWidget *caption = captionOf(cell, card); // first: Tab goes in the order of making
    put(*card, {cell.row, cell.pair, cell.pairs}, caption, widgetOf(cell, card));
}

QWidget *FrmKhView::captionOf(const CustomerCell &cell, QWidget *parent)
{
    switch (cell.kind) {
    case CustomerCell::TickedRange:
        return new CheckBoxView(m_form.Chk(cell.tick), parent, tickMnemonics[cell.tick]);
    case CustomerCell::State:
        return captionFor(m_form.stateLabel().Caption(), Entry::Free, parent);
    case CustomerCell::Memo:
        return new QLabel(parent); // the group says it
    default:
        return fieldCaption(m_form.qzTxt(cell.number).Caption().trimmed(), parent);
    }
}

/// The form marks its required fields with a star.
QLabel *FrmKhView::fieldCaption(const QString &caption, QWidget *parent)
{
    static const QString star = u" *"_s;
    return caption.endsWith(star) ? captionFor(caption.chopped(star.size()), Entry::Required, parent)
                                  : captionFor(caption, Entry::Free, parent);
}

QWidget *FrmKhView::widgetOf(const CustomerCell &cell, QWidget *parent)
{
    switch (cell.kind) {
    case CustomerCell::Range:
    case CustomerCell::TickedRange:
        return makeRange(cell, parent);
    case CustomerCell::State:
        return makeState(parent);
    case CustomerCell::Memo:
        return makeRemark(parent);
    default:
        return makeField(cell.number, parent);
    }
}

FieldView *FrmKhView::makeField(int number, QWidget *parent)
{
    auto *view = ofGridsWidth(new FieldView(m_form.qzTxt(number), parent));
    view->setAccessibleName(m_form.fieldOf(number).title.toString());
    view->installEventFilter(this);
    return view;
}

QWidget *FrmKhView::makeRange(const CustomerCell &cell, QWidget *parent)
{
    auto *range = ofGridsWidth(new QWidget(parent));
    QHBoxLayout *row = rowOf(range);
    FieldView *lower = makeField(cell.number, range);
    row->addWidget(smallLabel(u"从"_s, range));
    row->addWidget(lower, 1);
    row->addWidget(smallLabel(u"到"_s, range));
    row->addWidget(makeField(cell.upper, range), 1);
    row->addWidget(smallLabel(m_form.fieldOf(cell.upper).unit.toString(), range));
    range->setFocusProxy(lower);
    return range;
}

QWidget *FrmKhView::makeState(QWidget *parent)
{
    auto *state = ofGridsWidth(new QWidget(parent));
    QHBoxLayout *row = rowOf(state);
    for (int number = 0; number < 2; ++number)
        row->addWidget(new OptionButtonView(m_form.Opt(number), state, optionMnemonics[number]));
    row->addStretch(1);
    return state;
}

QWidget *FrmKhView::makeRemark(QWidget *parent)
{
    TextAreaView *box = makeBox(m_form.Txt(), m_form.Txt().Caption(), parent);
    box->setMinimumHeight(remarkLines * fontMetrics().lineSpacing() + 4 * box->frameWidth());
    return box;
}

void FrmKhView::addMoves(QHBoxLayout &row)
{
    for (const Move &move : moves)
        addMove(row, move.button, move.key);
    auto *position = smallLabel(QString(), this);
    bindControl(m_form.positionLabel(), *position);
    const auto follow = [this, position] { position->setText(m_form.positionLabel().Caption()); };
    connect(&m_form.positionLabel(), &Control::stateChanged, position, follow);
    follow();
    row.addWidget(position);
    auto *deletion = new ButtonView(m_form.Cmd(Number::Delete), this);
    deletion->setFocusPolicy(Qt::TabFocus); // a press leaves the keyboard where it is
    row.addWidget(deletion);
}

/// A field would keep Ctrl+Home and Ctrl+End for its own text.
bool FrmKhView::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool isMove =
            key->modifiers() == Qt::ControlModifier &&
            std::ranges::any_of(moves, [key](const Move &move) { return move.key == key->key(); });
        if (isMove) {
            event->ignore();
            return true;
        }
    }
    return EditorFormView::eventFilter(watched, event);
}

} // namespace ebtq
