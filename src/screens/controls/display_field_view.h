#pragma once

#include <QLineEdit>

namespace ebtq {

class qzTxt_S;

/// The widget of a field that only shows: its text can be selected and copied, not changed. One that is cut
/// is shown whole under the mouse.
class DisplayFieldView : public QLineEdit
{
    Q_OBJECT

public:
    DisplayFieldView(qzTxt_S &field, QWidget *parent);

protected:
    bool event(QEvent *event) override;

private:
    [[nodiscard]] bool isCut() const;
};

} // namespace ebtq
