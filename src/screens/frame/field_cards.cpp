#include "screens/frame/field_cards.h"

#include "library/controls/field_control.h"
#include "screens/controls/control_binding.h"
#include "screens/look/look.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int beforeField = 8;
constexpr int betweenPairs = 12;
constexpr int betweenRows = 6;

int captionColumn(int pair)
{
    return 3 * pair;
}

int fieldColumn(int pair)
{
    return captionColumn(pair) + 1;
}

/// Neither a button below a caption nor a field that goes over several pairs.
bool isCaption(const QWidget *widget)
{
    return qobject_cast<const QLabel *>(widget) || qobject_cast<const QCheckBox *>(widget);
}

QGridLayout &grid(QGroupBox &card)
{
    return *static_cast<QGridLayout *>(card.layout());
}

} // namespace

QGroupBox *FieldCards::makeCard(const QString &title, QWidget *parent)
{
    auto *card = new QGroupBox(title, parent);
    auto *cells = new QGridLayout(card);
    cells->setContentsMargins(2, 2, 2, 2);
    cells->setHorizontalSpacing(0);
    cells->setVerticalSpacing(betweenRows);
    m_cards.push_back(card);
    return card;
}

QLabel *FieldCards::captionFor(const QString &text, Entry entry, QWidget *parent)
{
    const QString mark = entry == Entry::Required
                             ? u" <span style=\"color:%1\">*</span>"_s.arg(look::tokens().danger.name())
                             : QString();
    auto *label = new QLabel(text + mark, parent);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setProperty("kind", u"caption"_s);
    label->setContentsMargins(0, 0, beforeField, 0);
    return label;
}

void FieldCards::put(QGroupBox &card, const Place &place, QWidget *caption, QWidget *field)
{
    if (auto *label = qobject_cast<QLabel *>(caption))
        label->setBuddy(field);
    const bool isBox = qobject_cast<QCheckBox *>(caption);
    grid(card).addWidget(caption, place.row, captionColumn(place.pair),
                         isBox ? Qt::AlignRight : Qt::Alignment());
    grid(card).addWidget(field, place.row, fieldColumn(place.pair), place.rows, 3 * place.pairs - 2);
}

void FieldCards::putBelowCaption(QGroupBox &card, const Place &place, QWidget *widget)
{
    grid(card).addWidget(widget, place.row + 1, captionColumn(place.pair), Qt::AlignRight);
}

int FieldCards::widestCaption(int pair) const
{
    int widest = 0;
    for (QGroupBox *card : m_cards) {
        for (int row = 0; row < grid(*card).rowCount(); ++row) {
            const auto *item = grid(*card).itemAtPosition(row, captionColumn(pair));
            if (item && isCaption(item->widget()))
                widest = std::max(widest, item->sizeHint().width());
        }
    }
    return widest;
}

void FieldCards::lineUp(int pairs, int fieldCharacters)
{
    const QFontMetrics metrics = m_cards.front()->parentWidget()->fontMetrics();
    const int fieldWidth = fieldCharacters * metrics.horizontalAdvance(u'房');
    for (int pair = 0; pair < pairs; ++pair) {
        const int captionWidth = widestCaption(pair);
        for (QGroupBox *card : m_cards) {
            QGridLayout &cells = grid(*card);
            cells.setColumnMinimumWidth(captionColumn(pair), captionWidth);
            cells.setColumnMinimumWidth(fieldColumn(pair), fieldWidth);
            cells.setColumnStretch(fieldColumn(pair), 1);
            if (pair + 1 < pairs)
                cells.setColumnMinimumWidth(captionColumn(pair + 1) - 1, betweenPairs);
        }
    }
}

QWidget *FieldCards::makeCounts(std::span<const Count> counts, QWidget *parent)
{
    auto *row = ofGridsWidth(new QWidget(parent));
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const Count &count : counts) {
        auto *view = ofGridsWidth(new FieldView(count.field, row));
        view->setAccessibleName(count.unit.Caption());
        layout->addWidget(view, view->actions().constFirst()->isVisible() ? 2 : 1);
        layout->addWidget(makeCaption(count.unit, *view, row));
        if (!row->focusProxy())
            row->setFocusProxy(view);
    }
    return row;
}

} // namespace ebtq
