#pragma once

#include "library/dictionaries/flat_dictionary.h"

namespace ebtq {

/// The property rights, with certificate and payment ways.
class PDMCq : public FlatDictionary
{
    Q_OBJECT

public:
    explicit PDMCq(Desktop &desktop);
};

} // namespace ebtq
