#pragma once

#include <QString>

class QLabel;
class QWidget;

namespace ebtq {

class Control;

/// The control's name, with "_" and its number appended for a member of a control array: "VS", "qzTxt_0".
[[nodiscard]] QString widgetName(const Control &control);

/// A caption that holds no mnemonic with one after it; as it is without one.
[[nodiscard]] QString withMnemonic(const QString &caption, QChar mnemonic);

/// Names the widget after its control and keeps enabled, visible, tool tip and requested focus in step, and
/// keeps letters pressed with Alt out of its text; a button is pressed by its letter at once. The control
/// outlives the widget.
void bindControl(const Control &control, QWidget &widget);

/// A label with the control's caption that stays in step with it; its mnemonic goes to `field`.
QLabel *makeCaption(const Control &control, QWidget &field, QWidget *parent);

} // namespace ebtq
