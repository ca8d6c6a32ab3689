#include "screens/dictionaries/pdm_fx_view.h"

#include <QGroupBox>

using namespace Qt::StringLiterals;

namespace ebtq {

PdmFxView::PdmFxView(PDMFx &module, QWidget *parent)
    : DictionaryView(module, parent)
{
    constexpr FieldPlace places[] = {
        {.number = 0, .row = 0, .entry = Entry::Required},
        {.number = 1, .row = 1, .entry = Entry::Required},
    };
    constexpr int firstCount = 2;
    constexpr int lastCount = 5;
    QGroupBox *card = addCard(u"房型"_s);
    addFields(*card, places);
    std::vector<Count> counts;
    for (int number = firstCount; number <= lastCount; ++number)
        counts.push_back({module.qzTxt(number), module.qzTxt(number + 1)});
    put(*card, {2, 0}, captionFor(u"房型"_s, Entry::Free, card), makeCounts(counts, card));
    lineUp(1, 20);
    fillUp();
}

} // namespace ebtq
