#pragma once

class QWidget;

namespace ebtq {

/// Puts a popup's corner at the lower left corner of `field`, kept on its screen, shows it and gives it the
/// keyboard.
void showPopupAt(QWidget &popup, const QWidget &field);

} // namespace ebtq
