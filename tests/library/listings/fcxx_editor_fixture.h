#pragma once

#include "library/listings/fcxx.h"
#include "library/listings/frm_fx_fixture.h"

namespace ebtq::test {

/// The list over three listings, with its editors: what one opens and the other brings back.
class FcxxEditorTest : public FrmFxTest
{
protected:
    FcxxEditorTest()
    {
        for (int number = 0; number < 3; ++number)
            makeListing();
        connection->execute(u"update fyxx set 楼盘字典='东湖名苑' where 房源编号='FY2026110002'"_qs);
        QObject::connect(&list, &Fcxx::Message, [this](const QString &text) { message = text; });
        QObject::connect(&list, &Fcxx::ErrMessage,
                         [this](const QString &text, int level, const QString &title) {
                             listEvents += u"%1|%2|%3"_qs.arg(text).arg(level).arg(title);
                         });
        EXPECT_TRUE(list.IReportUI_Init(app, host::ListingModule));
        EXPECT_TRUE(list.IReportUI_Refresh());
    }
    [[nodiscard]] qsizetype listings() const { return rows(u"select 房源ID from fyxx"_qs).rowCount(); }
    [[nodiscard]] FrmFx &editor() const { return *list.mFrmFx(); }
    void expectEditor(const std::function<void()> &act)
    {
        desktop.willShow([act](QObject &) { act(); });
    }
    [[nodiscard]] QString cell(int row, int column) { return list.VS().TextMatrix(row, column); }

    Fcxx list{desktop};
    QString message;
    QStringList listEvents;
};

} // namespace ebtq::test
