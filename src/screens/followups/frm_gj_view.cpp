#include "screens/followups/frm_gj_view.h"

#include "library/followups/frm_gj.h"
#include "screens/controls/check_box_view.h"
#include "screens/controls/control_binding.h"
#include "screens/controls/field_view.h"
#include "screens/controls/text_box_view.h"

#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int pairs = 2;
constexpr int fieldCharacters = 14;
constexpr int contentsLines = 6;

enum CardNumber : int { FollowUpCard, ReminderCard };

/// In reading order, which is the order of Tab and Enter; the box of the contents and the tick are above.
struct FieldPlace
{
    CardNumber card;
    int row;
    int pair;
    int number;
    int pairs = 1;
};
constexpr FieldPlace fieldPlaces[] = {
    {FollowUpCard, 1, 0, 0}, {FollowUpCard, 1, 1, 2}, {FollowUpCard, 2, 0, 1},    {FollowUpCard, 2, 1, 7},
    {ReminderCard, 1, 0, 3}, {ReminderCard, 1, 1, 4}, {ReminderCard, 2, 0, 5, 2}, {ReminderCard, 3, 0, 6, 2},
};

} // namespace

FrmGjView::FrmGjView(FrmGj &form, QWidget *parent)
    : EditorFormView(form, FrmGj::Caption(), parent)
    , m_form(form)
{
    QGroupBox *followUp = addCard(u"跟进"_s);
    addContents(*followUp);
    static_cast<QVBoxLayout *>(layout())->setStretchFactor(followUp, 1);
    addFields(FollowUpCard);
    addTick(*addCard(u"提醒与处理"_s));
    addFields(ReminderCard);
    lineUp(pairs, fieldCharacters);
    addButtons(*addBottomRow());
    beginWith(form.Txt());
}

void FrmGjView::addContents(QGroupBox &card)
{
    const QString caption = m_form.Txt().Caption();
    TextAreaView *box = makeBox(m_form.Txt(), caption, &card);
    box->setMinimumHeight(contentsLines * fontMetrics().lineSpacing() + 2 * box->frameWidth());
    QLabel *label = captionFor(caption, Entry::Free, &card);
    label->setAlignment(Qt::AlignRight | Qt::AlignTop); // at the box's first line
    label->setContentsMargins(0, box->frameWidth() + 6, label->contentsMargins().right(), 0);
    put(card, {0, 0, pairs}, label, box);
}

void FrmGjView::addTick(QGroupBox &card)
{
    auto *row = new QWidget(&card);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    auto *tick = new CheckBoxView(m_form.Chk(), row, u'T');
    layout->addWidget(tick);
    QLabel *hint = makeCaption(m_form.lblHint(), *tick, row);
    hint->setProperty("kind", u"error"_s);
    layout->addWidget(hint);
    layout->addStretch();
    put(card, {0, 0, pairs}, new QLabel(&card), row);
}

void FrmGjView::addFields(int cardNumber)
{
    for (const FieldPlace &place : fieldPlaces) {
        if (place.card != cardNumber)
            continue;
        QGroupBox *card = cards()[static_cast<size_t>(cardNumber)];
        qzTxt_S &field = m_form.qzTxt(place.number);
        QLabel *caption = captionFor(m_form.fieldOf(place.number).title.toString(), Entry::Free, card);
        put(*card, {place.row, place.pair, place.pairs}, caption, ofGridsWidth(new FieldView(field, card)));
    }
}

bool FrmGjView::event(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate)
        m_form.activate();
    return EditorFormView::event(event);
}

} // namespace ebtq
