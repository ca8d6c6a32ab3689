#include "library/records/filled_in.h"

#include "library/controls/check_box.h"
#include "library/controls/control_collection.h"
#include "library/controls/field_control.h"
#include "library/controls/qz_grid.h"
#include "library/controls/text_box.h"

namespace ebtq {

void setFilledInEnabled(const ControlCollection &controls, bool enabled)
{
    for (const auto &control : controls) {
        const QString &type = control->TypeName();
        if (type == u"TextBox" || type == u"qzTxt_S" || type == u"ComboBox" || type == u"CheckBox")
            control->setEnabled(enabled);
        else if (type == u"TreeView" || type == u"ListView")
            control->setEnabled(!enabled);
        else if (auto *grid = qobject_cast<qzGrid *>(control.get()))
            grid->setEditable(enabled);
    }
}

void emptyFilledIn(const ControlCollection &controls)
{
    for (const auto &control : controls) {
        if (auto *box = qobject_cast<TextBox *>(control.get())) {
            box->setText({});
        } else if (auto *field = qobject_cast<qzTxt_S *>(control.get())) {
            field->setValue(0);
            field->setText({});
        } else if (auto *tick = qobject_cast<CheckBox *>(control.get())) {
            tick->setValue(0);
        } else if (auto *grid = qobject_cast<qzGrid *>(control.get())) {
            grid->Clear();
        }
    }
}

} // namespace ebtq
