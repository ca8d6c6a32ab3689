#pragma once

class QWidget;

namespace ebtq::look {

/// The window that a new dialog belongs to, so that it stands in its middle and never behind it: the dialog
/// that is open, the active window, or the program's window while another program has the focus. Null when
/// there is none yet.
[[nodiscard]] QWidget *windowBelow();

} // namespace ebtq::look
