#include "screens/dictionaries/pdm_cq_view.h"

#include <QGroupBox>

using namespace Qt::StringLiterals;

namespace ebtq {

PdmCqView::PdmCqView(PDMCq &module, QWidget *parent)
    : DictionaryView(module, parent)
{
    constexpr FieldPlace places[] = {
        {.number = 0, .row = 0, .entry = Entry::Required},
        {.number = 1, .row = 1, .entry = Entry::Required},
        {.number = 2, .row = 2},
        {.number = 3, .row = 3},
        {.number = 4, .row = 4},
    };
    addFields(*addCard(u"产权"_s), places);
    lineUp(1, 12);
    fillUp();
}

} // namespace ebtq
