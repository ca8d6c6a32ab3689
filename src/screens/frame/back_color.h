#pragma once

class QWidget;

namespace ebtq {

class Module;

/// Shows the module's background colour on its screen, once it has one, and goes on doing so. The module
/// outlives the screen.
void followBackColor(const Module &module, QWidget &view);

} // namespace ebtq
