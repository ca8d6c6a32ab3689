#pragma once

#include "host/module_ids.h"
#include "host/rights.h"
#include "library/customers/frm_kh.h"
#include "library/customers/frm_kh_fields.h"
#include "library/support/editor_test.h"

namespace ebtq::test {

/// The customer editor over a database.
class FrmKhTest : public EditorTest<frmKh>
{
protected:
    using Number = CustomerNumber;

    FrmKhTest() { host::setRight(*connection, u"U1"_qs, host::CustomerModule, RightDelete, true); }
    /// Opens the form and lets the person do `act` while it is shown.
    void open(const QString &id, const std::function<void()> &act, bool readOnly = false)
    {
        onceShown(act);
        form.py_Init(app, host::CustomerModule, id, readOnly);
    }
    /// What a new request needs.
    void fill(const QString &name) const
    {
        form.qzTxt(Number::Name).setText(name);
        form.qzTxt(Number::Telephone).setText(u"138"_qs);
    }
    /// Requests with these numbers and the keys C1, C2 and so on.
    void insertCustomers(const QString &numbers) const
    {
        int key = 0;
        for (const QString &number : numbers.split(u' '))
            connection->execute(u"insert into fykh(客源ID,客源编号,客户名称,电话,委托日期) "
                                u"values('C%1','%2','甲%1','1',#2026-1-2#)"_qs.arg(++key)
                                    .arg(number));
    }
    [[nodiscard]] QString stored(const QString &columns) const
    {
        return found(u"select %1 from fykh order by 客源编号"_qs.arg(columns));
    }
    [[nodiscard]] QString text(int number) const { return form.qzTxt(number).Text(); }
    [[nodiscard]] QString place() const
    {
        return u"%1 %2/%3"_qs.arg(text(0)).arg(form.recordPosition()).arg(form.recordCount());
    }
};

} // namespace ebtq::test
