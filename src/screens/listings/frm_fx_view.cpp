#include "screens/listings/frm_fx_view.h"

#include "library/listings/frm_fx.h"
#include "screens/controls/button_view.h"
#include "screens/controls/check_box_view.h"
#include "screens/controls/control_binding.h"
#include "screens/controls/field_view.h"
#include "screens/controls/text_box_view.h"
#include "screens/listings/frm_fx_layout.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int fieldCharacters = 10; ///< the least width of a field, in Chinese characters
constexpr int betweenTicksAndMoves = 24;
constexpr QChar tickMnemonics[] = {u'J', u'T', u'U'};

QString captionText(const EditorField &field)
{
    QString text = field.title.toString();
    if (!field.unit.isEmpty())
        text += u' ' + field.unit.toString();
    return text;
}

} // namespace

FrmFxView::FrmFxView(FrmFx &form, QWidget *parent)
    : EditorFormView(form, FrmFx::Caption(), parent)
    , m_form(form)
{
    addCard(form.lbl(0).Caption());
    for (const QStringView title : editorGroupTitles())
        addCard(title.toString());
    for (const EditorCell &cell : editorCells())
        addCell(cell);
    lineUp(editorPairs, fieldCharacters);
    QHBoxLayout *bottom = addBottomRow();
    addTicks(*bottom);
    bottom->addSpacing(betweenTicksAndMoves);
    addMove(*bottom, 4, Qt::Key_PageUp);
    addMove(*bottom, 5, Qt::Key_PageDown);
    addButtons(*bottom);
    beginWith(form.qzFcTxt(0));
}

QGroupBox *FrmFxView::groupOf(const EditorCell &cell) const
{
    return cards()[cell.group];
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
    QGroupBox *group = groupOf(cell);
    const bool isWide = cell.kind == EditorCell::Rooms;
    const Entry entry = cell.kind == EditorCell::Required ? Entry::Required : Entry::Free;
    put(*group, {cell.row, cell.pair, isWide ? wideCell : 1},
        captionFor(captionText(m_form.fieldOf(cell.number)), entry, group),
        isWide ? makeRooms(group) : makeField(cell, group));
}

FieldView *FrmFxView::makeField(const EditorCell &cell, QWidget *parent)
{
    auto *view = ofGridsWidth(new FieldView(m_form.qzFcTxt(cell.number), parent));
    view->setAccessibleName(m_form.fieldOf(cell.number).title.toString());
    if (cell.kind == EditorCell::Computed) {
        m_form.qzFcTxt(cell.number).setLocked(true);
        view->setFocusPolicy(Qt::ClickFocus); // to copy from; Tab passes by
    }
    return view;
}

QWidget *FrmFxView::makeRooms(QWidget *parent)
{
    std::vector<Count> counts;
    for (const RoomCount &room : roomCounts())
        counts.push_back({m_form.qzFcTxt(room.number), m_form.qzFcTxt(room.unit)});
    return makeCounts(counts, parent);
}

/// A box of many lines, below its caption the button that picks a text for it.
void FrmFxView::addMemo(const EditorCell &cell)
{
    TextBox &memo = m_form.Txt(cell.number);
    TextAreaView *box = makeBox(memo, memo.Caption(), groupOf(cell));
    box->setMinimumHeight(0);
    box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    auto *pick = new ButtonView(m_form.Cmd(cell.number == 0 ? 3 : 2), groupOf(cell));
    pick->setProperty("kind", u"flat"_s);
    const Place place{cell.row, cell.pair, wideCell, memoRows};
    QLabel *caption = captionFor(memo.Caption(), Entry::Free, groupOf(cell));
    put(*groupOf(cell), place, caption, box);
    putBelowCaption(*groupOf(cell), place, pick);
}

void FrmFxView::addTicks(QHBoxLayout &row)
{
    for (int number = 0; number < 3; ++number)
        row.addWidget(new CheckBoxView(m_form.Chk(number), this, tickMnemonics[number]));
}

} // namespace ebtq
