#pragma once

#include "host/module_ids.h"
#include "host/rights.h"
#include "library/customers/frm_kh.h"
#include "library/customers/frm_kh_fields.h"
#include "library/support/agency_test.h"

namespace ebtq::test {

/// The customer editor over a database, with its events written down in order.
class FrmKhTest : public AgencyTest
{
protected:
    using Number = CustomerNumber;

    explicit FrmKhTest(const QString &file = u":memory:"_qs)
        : AgencyTest(file)
    {
        host::setRight(*connection, u"U1"_qs, host::CustomerModule, RightDelete, true);
        QObject::connect(&form, &frmKh::ErrMessage,
                         [this](const QString &text, int level, const QString &title) {
                             events += u"%1|%2|%3"_qs.arg(title).arg(level).arg(text);
                         });
        QObject::connect(&form, &frmKh::ReturnData, [this](const QString &id, bool isNew) {
            events += (isNew ? u"new "_qs : u"changed "_qs) + id;
        });
        QObject::connect(&form, &frmKh::unloaded, [this] { events += u"closed"_qs; });
    }

    /// Opens the form and lets the person do `act` while it is shown.
    void open(const QString &id, const std::function<void()> &act, bool readOnly = false)
    {
        desktop.willShow([&](QObject &) { act(); });
        app.statements.clear();
        form.py_Init(app, host::CustomerModule, id, readOnly);
    }
    /// The questions that follow are answered in this order.
    void press(int button, std::initializer_list<Desktop::Answer> answers = {})
    {
        for (const Desktop::Answer answer : answers)
            desktop.willAnswer(answer);
        form.Cmd(button).press();
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
    /// One value of all rows.
    [[nodiscard]] QString stored(const QString &columns) const
    {
        QStringList found;
        const RowBlock block = rows(u"select %1 from fykh order by 客源编号"_qs.arg(columns));
        for (qsizetype row = 0; row < block.rowCount(); ++row)
            found += block.value(row, 0).toString();
        return found.join(u' ');
    }
    [[nodiscard]] QString text(int number) const { return form.qzTxt(number).Text(); }
    [[nodiscard]] QString place() const
    {
        return u"%1 %2/%3"_qs.arg(text(0)).arg(form.recordPosition()).arg(form.recordCount());
    }

    frmKh form{desktop};
};

} // namespace ebtq::test
