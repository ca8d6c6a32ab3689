#pragma once

#include <QRadioButton>

namespace ebtq {

class OptionButton;

/// The widget of an OptionButton; those of one group have the same parent.
class OptionButtonView : public QRadioButton
{
    Q_OBJECT

public:
    /// A given caption holds no mnemonic; the one given here is shown after it.
    OptionButtonView(OptionButton &button, QWidget *parent, QChar mnemonic = {});
};

} // namespace ebtq
