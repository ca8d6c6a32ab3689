#pragma once

#include "library/pickers/narrowed_picker.h"

namespace ebtq {

/// The picker of a block, narrowed to one building. Its row is a clsDz.
class selPdmDz : public NarrowedPicker
{
    Q_OBJECT

public:
    explicit selPdmDz(Desktop &desktop);

protected:
    [[nodiscard]] std::shared_ptr<const PickedRow> emptyRow() const override;
    [[nodiscard]] std::shared_ptr<const PickedRow> readRow(const RowReader &read) const override;
};

} // namespace ebtq
