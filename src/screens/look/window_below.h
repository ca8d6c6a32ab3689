#pragma once

class QDialog;
class QWidget;

namespace ebtq::look {

/// The window that a new dialog belongs to, so that it is centred on it and never behind it: the dialog that
/// is open, the active window, or the program's window while another program has the focus. Null when there
/// is none yet.
[[nodiscard]] QWidget *windowBelow();

/// Shows a dialog modally, and gives the keyboard back to the window that it belongs to. A window manager
/// does that by itself unless a question and the form that asked it close at the same time: it activates the
/// closed form, and no window is active.
int runModal(QDialog &dialog);

} // namespace ebtq::look
