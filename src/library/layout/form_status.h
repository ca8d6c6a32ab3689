#pragma once

#include <QString>

namespace ebtq {

class ControlCollection;
class HostApp;

/// The state of a form's controls in its layout file, section "Form": what fields, boxes, lists and trees
/// hold, and the shape of the grids. By the controls' type names, so that all modules share it.

/// Controls of which the file says nothing stay as they are.
void restoreForm(const QString &file, bool onlyColWidth, const ControlCollection &controls, HostApp &app);
/// False when the file could not be written.
bool saveForm(const QString &file, bool onlyColWidth, const ControlCollection &controls);
/// The same for the shape of the list grids alone.
bool saveGrids(const QString &file, const ControlCollection &controls);

} // namespace ebtq
