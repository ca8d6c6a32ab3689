#pragma once

#include <QCheckBox>

namespace ebtq {

class CheckBox;

/// The widget of a CheckBox. Its signal clicked() is emitted for the user's ticks only, not for the rules'.
class CheckBoxView : public QCheckBox
{
    Q_OBJECT

public:
    /// A given caption holds no mnemonic; the one given here is appended.
    CheckBoxView(CheckBox &box, QWidget *parent, QChar mnemonic = {});
};

} // namespace ebtq
