#pragma once

#include "library/pickers/narrowed_picker.h"

namespace ebtq {

/// The picker of a building, narrowed to one district. Its row is a clsLpzd.
class selPdmLpzd : public NarrowedPicker
{
    Q_OBJECT

public:
    explicit selPdmLpzd(Desktop &desktop);

protected:
    [[nodiscard]] std::shared_ptr<const PickedRow> emptyRow() const override;
    [[nodiscard]] std::shared_ptr<const PickedRow> readRow(const RowReader &read) const override;
};

} // namespace ebtq
