#pragma once

#include "library/support/agency_test.h"
#include "library/support/grids.h"

namespace ebtq::test {

/// A list module over an agency's database. Its messages and failures, as "text|level|title", are written
/// down in order.
template<class List> class ListTest : public AgencyTest
{
protected:
    ListTest()
    {
        QObject::connect(&list, &List::Message, [this](const QString &text) { events += text; });
        QObject::connect(&list, &List::ErrMessage,
                         [this](const QString &text, int level, const QString &title) {
                             events += u"%1|%2|%3"_qs.arg(text).arg(level).arg(title);
                         });
    }
    void open(int moduleId)
    {
        ASSERT_TRUE(list.IReportUI_Init(app, moduleId));
        ASSERT_TRUE(list.IReportUI_Refresh());
    }
    void press(const QString &key) { list.NavToolbar1().press(key); }
    void type(int number, const QString &text, const QVariant &value = {})
    {
        list.qzTxt(number).setText(text);
        list.qzTxt(number).setValue(value);
    }
    /// A command of an editor; `act` is done while it is shown.
    void edit(const QString &command, const std::function<void()> &act)
    {
        desktop.willShow([act](QObject &) { act(); });
        press(command);
    }
    /// Without the rows that only the detail asks for.
    [[nodiscard]] QString listStatement() const { return app.statements.value(0); }
    [[nodiscard]] QString cell(int row, int column) { return list.VS().TextMatrix(row, column); }

    List list{desktop};
};

} // namespace ebtq::test
