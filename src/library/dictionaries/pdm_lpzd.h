#pragma once

#include "library/controls/qz_grid.h"
#include "library/dictionaries/dictionary_form.h"

namespace ebtq {

/// The buildings, by district, each with its blocks. A building that is dropped on a district is edited with
/// that district; nothing is saved yet.
class PdmLpzd : public DictionaryForm
{
    Q_OBJECT

public:
    /// Columns of the grid of blocks.
    enum BlockColumn : int { RowNumber, BlockNumber, BlockName, Floors, BlockId };

    explicit PdmLpzd(Desktop &desktop);

    [[nodiscard]] qzGrid &blocks() const { return m_grid; }
    /// Of a district; its buildings are counted below it.
    [[nodiscard]] static bool isDistrict(const Node &node);

    void setDragEnabled(bool enabled) override { tv().setDragEnabled(enabled); }
    bool IFormUI_Init(HostApp &app, int unused1, int unused2) override;
    bool IFormUI_FileEdit() override;
    bool IFormUI_FileSave() override;

protected:
    bool fillTree() override;
    [[nodiscard]] bool isRecord(const Node &node) const override;
    [[nodiscard]] SqlText recordStatement(int id) const override;
    void loadParts(int id) override;
    void clearRecord() override;
    bool mayEdit() override;
    bool mayDelete() override;
    [[nodiscard]] std::vector<SqlText> deleteStatements(int id) const override;
    [[nodiscard]] std::span<const int> furtherRequired() const override;
    [[nodiscard]] SaveReport saveReport() const override;
    void writeBefore() override;
    void writeParts(int id) override;
    void saved() override;
    void unsettled() override;
    QString parentKey() override;
    [[nodiscard]] QString recordKey(const QString &number) const override { return u'l' + number; }
    void setParameters(int number, ParameterList &parameters) override;

private:
    struct NewBlock
    {
        int row;
        int id;
    };
    void makeGrid();
    bool fillDistricts();
    void addDistrict(const Recordset &row);
    bool fillBuildings();
    [[nodiscard]] bool isRecordSelected(const QString &verb);
    void dropped(const Node *district, Node *building);
    void cellChanged(int row, int col);
    void removing(int row, bool &isAllowed);
    void writeBlock(int row, int building);
    void keepKeys(int sign);

    qzGrid &m_grid;
    QString m_scheme; ///< how the codes of districts divide into levels
    QString
        m_deletedBlocks; ///< keys of rows that were removed since the last load or save, each with a comma
    std::vector<NewBlock> m_newBlocks; ///< of the save that is under way
};

} // namespace ebtq
