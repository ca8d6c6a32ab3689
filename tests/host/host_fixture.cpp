#include "host/host_fixture.h"

#include "host/setup.h"

namespace ebtq::test {

namespace {

constexpr const char *sampleRows =
    "insert into pdmdq(地区ID,编码,地区,级次,是否明细) values(1,'01','云泽市',1,0),(2,'0101','锦溪区',2,0),"
    "(3,'010101','石桥头',3,1),(4,'010102','清水湾',3,1);"
    "insert into pdmgy(雇员ID,姓名) values(7,'陈晓雯'),(12,'Amy Lee');"
    "insert into pdmfx(房型ID,房型编号,房型名称,房间数,客厅数,卫生间数,阳台数) values(1,'01','两房',2,1,1,1),"
    "(2,'02','三房',3,2,2,1);"
    "insert into pdmsjzd(类型,代码,名称) values('交易状态','A1','有效'),('交易状态','A2','已售'),"
    "('房屋朝向','A1','南');"
    "insert into su_usertype(mtID,mtcode,mtname) values(5,'01','营业一部'),(6,'02','营业二部');"
    "insert into pdmlpzd(楼盘ID,楼盘编号,楼盘名称,拼音缩写,地区ID) values(31,'LP1','碧棠花园','BTHY',3),"
    "(32,'LP2','云锦苑','YJY',4);";

QString cellText(const RowBlock &rows, qsizetype row, int column)
{
    return rows.value(row, column).toString();
}

} // namespace

ScriptedPanels::~ScriptedPanels()
{
    EXPECT_TRUE(m_choices.empty() && m_dates.empty()) << "scripted, but never shown";
}

std::optional<qsizetype> ScriptedPanels::choose(const host::Panel &panel)
{
    m_shownRows.clear();
    m_captions.clear();
    m_place = {panel.left, panel.top};
    m_levelCodeColumn = panel.levelCodeColumn;
    m_choosableColumn = panel.choosableColumn;
    for (const host::Panel::ShownColumn &shown : panel.shown)
        m_captions << shown.caption;
    for (qsizetype row = 0; row < panel.rows.rowCount(); ++row)
        m_shownRows << cellText(panel.rows, row, panel.shown.front().column);
    m_currentRow = panel.currentRow < 0 ? QString() : m_shownRows.at(panel.currentRow);
    if (m_choices.empty()) {
        ADD_FAILURE() << "a panel that nobody scripted: " << panel.title.toStdString();
        return std::nullopt;
    }
    const QString wanted = m_choices.front();
    m_choices.pop_front();
    const qsizetype row = m_shownRows.indexOf(wanted);
    EXPECT_TRUE(wanted.isEmpty() || row >= 0) << "no such row: " << wanted.toStdString();
    return row < 0 ? std::nullopt : std::optional(row);
}

std::optional<QDate> ScriptedPanels::chooseDate(const QDate &preset, int /*left*/, int /*top*/)
{
    m_presetDate = preset;
    if (m_dates.empty()) {
        ADD_FAILURE() << "a calendar that nobody scripted";
        return std::nullopt;
    }
    const auto date = m_dates.front();
    m_dates.pop_front();
    return date;
}

HostTest::HostTest()
    : m_connection(db::Connection::open(u":memory:"_qs))
{
    host::prepareDatabase(*m_connection);
    m_connection->executeNative(sampleRows);
    m_host = std::make_unique<host::Application>(
        *m_connection, host::User{agentId, u"陈晓雯"_qs, u"营业一部"_qs},
        host::Settings{m_folder.filePath(u"work"_qs), loginDate}, m_panels);
    m_host->setFailureReport([this](const QString &text) { m_failures << text; });
}

void HostTest::execute(const char16_t *statement)
{
    m_connection->execute(QString::fromUtf16(statement));
}

QVariant HostTest::value(const char16_t *statement)
{
    return m_connection->query(QString::fromUtf16(statement)).value(0, 0);
}

} // namespace ebtq::test
