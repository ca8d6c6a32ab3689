#pragma once

#include "screens/frame/editor_form_view.h"

namespace ebtq {

class FrmGj;

/// The screen of the editor of a follow-up: what was talked about first, below it the reminder.
class FrmGjView : public EditorFormView
{
    Q_OBJECT

public:
    FrmGjView(FrmGj &form, QWidget *parent);

protected:
    bool event(QEvent *event) override;

private:
    void addContents(QGroupBox &card);
    void addTick(QGroupBox &card);
    void addFields(int cardNumber);

    FrmGj &m_form;
};

} // namespace ebtq
