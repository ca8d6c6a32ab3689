#pragma once

#include <QString>

namespace ebtq {

class HostApp;
class IniStore;
class VSFlexGrid;

/// The shape of a grid in a layout file: widths, hidden columns, column order, formats, alignments, row
/// heights, lines. Group and total columns, sort and decimals are only read: an administrator puts their keys
/// into the file.
///
/// Nothing here fails but the saving: what cannot be read or applied is left as the screen was built.

/// Reads the grid's keys and applies them; with `onlyColWidth` hidden columns and widths alone. Without it
/// and without a file the present shape is written, so that a first start leaves a file to be edited.
void GridRestore(const QString &file, VSFlexGrid &grid, bool onlyColWidth, HostApp &app);
/// Sums anew after rows were added, changed or removed; nothing in a grid that the file gives no totals.
void RecountTotals(const QString &file, VSFlexGrid &grid, HostApp &app);
/// Whether the file sorts the grid, totals it or asks the agency for decimals: then it must be restored after
/// each load; else the grid keeps its shape.
[[nodiscard]] bool isLayoutByRows(const QString &file, const VSFlexGrid &grid);
/// False when the file could not be written.
bool GridSave(const QString &file, const VSFlexGrid &grid, bool onlyColWidth);
/// The same into a store that the caller saves.
void saveGrid(IniStore &store, const VSFlexGrid &grid, bool onlyColWidth);

} // namespace ebtq
