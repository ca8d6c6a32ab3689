#pragma once

#include <QCheckBox>

namespace ebtq {

class CheckBox;

/// The widget of a CheckBox. Its own signal clicked() tells the user's ticks from the rules'.
class CheckBoxView : public QCheckBox
{
    Q_OBJECT

public:
    CheckBoxView(CheckBox &box, QWidget *parent);
};

} // namespace ebtq
