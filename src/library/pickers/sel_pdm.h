#pragma once

#include "library/pickers/picker.h"

namespace ebtq {

/// The picker of any dictionary table, which it knows only by its parameters: "table", the columns "编号",
/// "名称" and "ID", and optionally "where" and "order". Rows are ticked, and all ticked ones are chosen.
///
/// The parameters become parts of the statement unchanged: they come from code, never from typed text.
class selPdm : public Picker
{
    Q_OBJECT

public:
    explicit selPdm(Desktop &desktop);

    /// Switches the tick of the row while ticks are seen.
    void clickRow(int row) override;

protected:
    [[nodiscard]] SqlText listStatement() override;
    [[nodiscard]] SqlText checkStatement(const QString &typedText) const override;
    [[nodiscard]] QStringList columns() const override;
    [[nodiscard]] QString keyColumn() const override;
    [[nodiscard]] QString textColumn() const override;
    [[nodiscard]] std::shared_ptr<const PickedRow> emptyRow() const override;
    [[nodiscard]] std::shared_ptr<const PickedRow> readRow(const RowReader &read) const override;
    void takeTicked() override;
    /// While rows can be ticked a double click ticks, and the choice is confirmed by button or find box.
    [[nodiscard]] bool choosesByRow() const override;

private:
    void tickAll(const QString &tick);
};

} // namespace ebtq
