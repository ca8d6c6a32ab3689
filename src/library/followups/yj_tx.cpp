#include "library/followups/yj_tx.h"

#include "contracts/user_id.h"
#include "database/values/date_text.h"
#include "library/followups/follow_up_rows.h"
#include "library/frame/statements.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int numberColumn = 0;
constexpr int hiddenColumns[] = {FollowUpKey};
constexpr QStringView caption = u"跟进提醒";
constexpr int turquoise = 0xC0C000;

constexpr ListGrid grid{
    .format =
        u"序号|跟进日期            |跟进内容                                          |部门    |经纪人  "
        u"|下次提醒|提醒时间         |提醒范围|提醒内容                    |处理内容              "
        u"|处理时间            |跟进ID",
    .hiddenColumns = hiddenColumns,
    .selectionColor = turquoise};

constexpr ListTables list{.grid = grid,
                          .firstColumn = FollowUpTime,
                          .keyColumn = FollowUpKey,
                          .wheel = ListTables::Wheel::None,
                          .printTitle = u"跟进提醒\r",
                          .printTag = u"->Print:"};

} // namespace

YjTx::YjTx(Desktop &desktop)
    : FollowUpList(u"YjTx"_s, desktop, {u"YjTx"_s, caption.toString()}, list)
    , m_panel(controls().add<qzPanel>(u"Panel1"_s))
    , m_caption(controls().add<Label>(u"lblCaption"_s))
{
    m_caption.setCaption(caption.toString());
}

/// Each range but the user's own compares 用户ID with itself, which holds for everybody; 本部 is deliberately
/// not narrowed to the department.
SqlText YjTx::statement()
{
    const HostSession &session = app().Session();
    SqlText sql(u"select"_s);
    sql += followUpSource();
    sql += u" where 下次提醒=1 and 提醒日期%1#%2# and 处理结果=''"_s.arg(m_includesOverdue ? u"<=" : u"=",
                                                                         regionalDate(session.LoginDate()));
    sql += QStringView(u" and 用户ID in(iif(提醒范围=0 or 提醒范围 is null,");
    sql += quoted(bareUserId(session));
    sql += QStringView(u",用户ID)) order by 操作日期 desc");
    return sql;
}

void YjTx::rowsLoaded()
{
    for (int row = VS().FixedRows(); row < VS().Rows(); ++row)
        VS().setTextMatrix(row, numberColumn, QString::number(row - VS().FixedRows() + 1));
}

/// In the working folder: where the component is installed nothing can be written.
QString YjTx::printSettings()
{
    return app().Session().AppPath() + u"/YjTx.Prn"_s;
}

} // namespace ebtq
