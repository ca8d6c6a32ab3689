#include "screens/dictionaries/pdm_lpzd_view.h"

#include "screens/controls/qz_grid_view.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace ebtq {

PdmLpzdView::PdmLpzdView(PdmLpzd &module, QWidget *parent)
    : DictionaryView(module, parent)
    , m_module(module)
{
    constexpr int bothPairs = 2;
    constexpr FieldPlace places[] = {
        {.number = 0, .row = 0, .entry = Entry::Required},
        {.number = 1, .row = 0, .pair = 1, .entry = Entry::Required},
        {.number = 2, .row = 1, .entry = Entry::Required},
        {.number = 10, .row = 1, .pair = 1},
        {.number = 3, .row = 2},
        {.number = 4, .row = 2, .pair = 1},
        {.number = 7, .row = 3},
        {.number = 8, .row = 3, .pair = 1},
        {.number = 5, .row = 4},
        {.number = 6, .row = 5, .pairs = bothPairs},
        {.number = 9, .row = 6, .pairs = bothPairs},
    };
    addFields(*addCard(u"楼盘"_s), places);
    lineUp(bothPairs, 8);
    addBlocks();
}

void PdmLpzdView::addBlocks()
{
    QGroupBox *card = addCard(u"栋座"_s, 1);
    auto *grid = new QzGridView(m_module.blocks(), card);
    grid->setAccessibleName(u"栋座"_s);
    grid->setEmptyHint(u"没有栋座"_s);
    auto *cells = static_cast<QGridLayout *>(card->layout());
    cells->addWidget(grid, 0, 0);
    cells->addWidget(makeCommands(*grid, card), 1, 0);
}

QWidget *PdmLpzdView::makeCommands(QzGridView &grid, QWidget *parent)
{
    auto *bar = new QWidget(parent);
    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    auto *add = new QPushButton(u"增加栋座(&B)"_s, bar);
    auto *remove = new QPushButton(u"删除栋座(&R)"_s, bar);
    add->setObjectName(u"addBlock"_s);
    remove->setObjectName(u"removeBlock"_s);
    connect(add, &QPushButton::clicked, &grid, &QzGridView::addRow);
    connect(remove, &QPushButton::clicked, &grid, &QzGridView::removeRow);
    for (QPushButton *button : {add, remove}) {
        button->setFocusPolicy(Qt::NoFocus); // what is typed in a cell stays there until it is kept
        const auto follow = [this, button] { button->setEnabled(m_module.blocks().Editable()); };
        connect(&m_module.blocks(), &Control::stateChanged, button, follow);
        follow();
        row->addWidget(button);
    }
    row->addStretch(1);
    return bar;
}

} // namespace ebtq
