#pragma once

#include <QString>

#include <functional>

class QMetaMethod;

namespace ebtq {

class Control;
class ControlCollection;
class HostApp;

/// The state of a form's controls in its layout file, section "Form": what fields, boxes, lists and trees
/// hold, and the shape of the grids. By the controls' type names, so that all modules share it.

/// Controls of which the file says nothing stay as they are.
void restoreForm(const QString &file, bool onlyColWidth, const ControlCollection &controls, HostApp &app);
/// Calls `watch` with the signal of each property that is kept.
void watchForm(const ControlCollection &controls,
               const std::function<void(Control &, const QMetaMethod &)> &watch);
/// False when the file could not be written.
bool saveForm(const QString &file, bool onlyColWidth, const ControlCollection &controls);
/// The same for the shape of the list grids alone.
bool saveGrids(const QString &file, const ControlCollection &controls);

} // namespace ebtq
