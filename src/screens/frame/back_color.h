#pragma once

class QWidget;

namespace ebtq {

class Module;

/// Shows the module's background colour on its screen and follows its changes; -1 is the desktop's own
/// background. The module outlives the screen.
void followBackColor(const Module &module, QWidget &view);

} // namespace ebtq
