#pragma once

#include "library/dictionaries/pdm_cq.h"
#include "screens/dictionaries/dictionary_view.h"

namespace ebtq {

/// The screen of the property rights.
class PdmCqView : public DictionaryView
{
    Q_OBJECT

public:
    PdmCqView(PDMCq &module, QWidget *parent);
};

} // namespace ebtq
