#pragma once

#include "library/dictionaries/pdm_lpzd.h"
#include "screens/dictionaries/dictionary_view.h"

namespace ebtq {

class QzGridView;

/// The screen of the buildings, with the grid of blocks below the fields.
class PdmLpzdView : public DictionaryView
{
    Q_OBJECT

public:
    PdmLpzdView(PdmLpzd &module, QWidget *parent);

private:
    void addBlocks();
    [[nodiscard]] QWidget *makeCommands(QzGridView &grid, QWidget *parent);

    PdmLpzd &m_module;
};

} // namespace ebtq
