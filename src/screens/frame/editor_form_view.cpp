#include "screens/frame/editor_form_view.h"

#include "library/records/editor_form.h"
#include "screens/controls/button_view.h"
#include "screens/controls/control_binding.h"
#include "screens/controls/field_view.h"
#include "screens/controls/text_box_view.h"
#include "screens/look/look.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int beforeField = 8;
constexpr int betweenPairs = 12;
constexpr int betweenRows = 6;
constexpr int textMargin = 6; ///< as the fields of one line have it

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

EditorFormView::EditorFormView(EditorForm &form, const QString &title, QWidget *parent)
    : QWidget(parent)
    , m_form(form)
{
    setObjectName(form.name());
    setWindowTitle(title);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(16, 10, 16, 12);
    column->setSpacing(4);
    connect(&form, &EditorForm::unloaded, this, [this] {
        m_isUnloaded = true;
        close();
    });
}

void EditorFormView::closeEvent(QCloseEvent *event)
{
    event->setAccepted(m_isUnloaded || m_form.mayClose());
}

QGroupBox *EditorFormView::addCard(const QString &title)
{
    auto *card = new QGroupBox(title, this);
    auto *cells = new QGridLayout(card);
    cells->setContentsMargins(2, 2, 2, 2);
    cells->setHorizontalSpacing(0);
    cells->setVerticalSpacing(betweenRows);
    m_cards.push_back(card);
    layout()->addWidget(card);
    return card;
}

QLabel *EditorFormView::captionFor(const QString &text, Entry entry, QWidget *parent)
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

TextAreaView *EditorFormView::makeBox(TextBox &box, const QString &name, QWidget *parent)
{
    auto *view = new TextAreaView(box, parent);
    view->setAccessibleName(name);
    view->document()->setDocumentMargin(textMargin);
    return view;
}

void EditorFormView::put(QGroupBox &card, const Place &place, QWidget *caption, QWidget *field)
{
    if (auto *label = qobject_cast<QLabel *>(caption))
        label->setBuddy(field);
    const bool isBox = qobject_cast<QCheckBox *>(caption);
    grid(card).addWidget(caption, place.row, captionColumn(place.pair),
                         isBox ? Qt::AlignRight : Qt::Alignment());
    grid(card).addWidget(field, place.row, fieldColumn(place.pair), place.rows, 3 * place.pairs - 2);
}

void EditorFormView::putBelowCaption(QGroupBox &card, const Place &place, QWidget *widget)
{
    grid(card).addWidget(widget, place.row + 1, captionColumn(place.pair), Qt::AlignRight);
}

int EditorFormView::widestCaption(int pair) const
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

void EditorFormView::lineUp(int pairs, int fieldCharacters)
{
    const int fieldWidth = fieldCharacters * fontMetrics().horizontalAdvance(u'房');
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

QHBoxLayout *EditorFormView::addBottomRow()
{
    auto *row = new QHBoxLayout;
    row->setContentsMargins(0, 8, 0, 0);
    row->setSpacing(10);
    static_cast<QVBoxLayout *>(layout())->addLayout(row);
    return row;
}

/// A click leaves the keyboard where it is, so that the field that is being filled in can refuse first.
void EditorFormView::addButtons(QHBoxLayout &bottomRow)
{
    bottomRow.addStretch(1);
    if (!m_form.Cmd(0).Enabled()) {
        auto *readOnly = new QLabel(u"只读"_s, this);
        readOnly->setObjectName(u"readOnly"_s);
        readOnly->setProperty("kind", u"title"_s);
        bottomRow.addWidget(readOnly);
    }
    auto *save = new ButtonView(m_form.Cmd(0), this);
    save->setProperty("kind", u"primary"_s);
    save->setGuard(&FieldView::checkFocused);
    auto *close = new ButtonView(m_form.Cmd(1), this);
    for (ButtonView *button : {save, close}) {
        button->setFocusPolicy(Qt::TabFocus);
        bottomRow.addWidget(button);
    }
}

void EditorFormView::beginWith(const Control &first)
{
    const Control &begin = first.Enabled() ? first : m_form.Cmd(1);
    QWidget *widget = findChild<QWidget *>(widgetName(begin));
    setFocusProxy(widget);
    widget->setFocus();
}

} // namespace ebtq
