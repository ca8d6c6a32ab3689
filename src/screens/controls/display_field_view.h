#pragma once

#include <QLineEdit>

namespace ebtq {

class qzTxt_S;

/// The widget of a field that only shows: its text can be selected and copied, not changed.
class DisplayFieldView : public QLineEdit
{
    Q_OBJECT

public:
    DisplayFieldView(qzTxt_S &field, QWidget *parent);
};

} // namespace ebtq
