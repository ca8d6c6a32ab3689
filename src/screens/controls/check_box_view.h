#pragma once

#include <QCheckBox>

namespace ebtq {

class CheckBox;

/// The widget of a CheckBox. Its own signal clicked() tells the user's ticks from the rules'.
class CheckBoxView : public QCheckBox
{
    Q_OBJECT

public:
    /// A given caption holds no mnemonic; the one given here is shown behind it.
    CheckBoxView(CheckBox &box, QWidget *parent, QChar mnemonic = {});
};

} // namespace ebtq
