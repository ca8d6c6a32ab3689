#pragma once

namespace ebtq {

class ControlCollection;

// What the rules of all forms do with their controls by type.

/// Enables or disables everything that can be filled in; trees and lists are the other way round, since they
/// lead to another record.
void setFilledInEnabled(const ControlCollection &controls, bool enabled);
/// Empties boxes, fields, ticks and the grid of a data-entry module.
void emptyFilledIn(const ControlCollection &controls);

} // namespace ebtq
