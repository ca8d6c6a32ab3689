#include "screens/dictionaries/dictionary_view.h"

#include "screens/controls/splitter_view.h"
#include "screens/controls/tree_panel.h"

#include <QGroupBox>
#include <QVBoxLayout>

namespace ebtq {

DictionaryView::DictionaryView(DictionaryForm &module, QWidget *parent)
    : QWidget(parent)
    , m_module(module)
    , m_tree(new TreePanel(module.TV(), module.filter(), this))
    , m_frame(new QWidget(this))
    , m_column(new QVBoxLayout(m_frame))
{
    setObjectName(module.name());
    m_frame->setObjectName(DictionaryForm::frameName());
    m_column->setContentsMargins(16, 2, 16, 12);
    m_column->setSpacing(4);
    new SplitterView(module.Sp(), this);
}

QGroupBox *DictionaryView::addCard(const QString &title, int stretch)
{
    QGroupBox *card = makeCard(title, m_frame);
    m_column->addWidget(card, stretch);
    return card;
}

void DictionaryView::addFields(QGroupBox &card, std::span<const FieldPlace> places)
{
    for (const FieldPlace &place : places) {
        auto *view = ofGridsWidth(new FieldView(m_module.qzTxt(place.number), &card));
        const QString title = m_module.fieldOf(place.number).title.toString();
        view->setAccessibleName(title);
        put(card, {place.row, place.pair, place.pairs}, captionFor(title, place.entry, &card), view);
    }
}

void DictionaryView::fillUp()
{
    m_column->addStretch(1);
}

void DictionaryView::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    m_tree->setFocus(Qt::OtherFocusReason);
}

} // namespace ebtq
