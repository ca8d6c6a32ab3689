#pragma once

#include "library/dictionaries/flat_dictionary.h"

namespace ebtq {

/// The house types, with their counts of rooms.
class PDMFx : public FlatDictionary
{
    Q_OBJECT

public:
    explicit PDMFx(Desktop &desktop);
};

} // namespace ebtq
