#pragma once

#include "library/dictionaries/pdm_fx.h"
#include "screens/dictionaries/dictionary_view.h"

namespace ebtq {

/// The screen of the house types: the counts of rooms stand in one row.
class PdmFxView : public DictionaryView
{
    Q_OBJECT

public:
    PdmFxView(PDMFx &module, QWidget *parent);
};

} // namespace ebtq
