#include "database/transfer/transfer_fixture.h"

#include "database/schema/tables.h"
#include "host/demo/demo.h"

#include <QDir>
#include <QFile>

namespace ebtq::db {

namespace {

constexpr const char *hardRows = R"(
insert into pdmgy(雇员ID,姓名) values(-2147483648,''),(2147483647,null);
insert into pdmcq(产权ID,产权编号,产权名称) values
  (900001,'O''Neil "x" \N \. \\','制表'||char(9)||'换行'||char(13,10)||'末'),(900002,' 空格 ','𠮷野家😀é');
insert into fyxx(房源ID,总面积,实用面积,售房价格,售房底价,租房价格,租房底价,管理费) values
  ('{hard-1}',0.1,0.30000000000000004,1.7976931348623157e308,-5e-324,-123456789012345.67,1e15,-0.0),
  ('{hard-2}',100.05,1e-5,9007199254740992.0,99999999999999.98,1e20,4.35,null);
insert into fyxx(房源ID,委托日期,交房日期,制单日期,操作日期) values
  ('{hard-3}','2026-11-24','2026-11-24 23:59:59','1940-06-01','0100-01-01 00:00:01');
insert into pubAttach(rowIndex,IDs,filename,contents) values
  (800001,'{hard-1}','空',x''),(800002,'{hard-1}',null,null),(800003,'','零',x'00ff005c78270a0d00'),
  (2147483000,'{hard-2}','大',cast(replace(hex(zeroblob(1500000)),'00','照片') as blob));
insert into pubAttach(rowIndex,description) select 800004, replace(hex(zeroblob(1000000)),'00','满五');
)";

/// Made once for all tests.
QString agency()
{
    static const QTemporaryDir folder;
    const QString location = folder.filePath(u"agency.db"_qs);
    if (QFile::exists(location))
        return location;
    const auto connection = Connection::open(location, Connection::Missing::IsCreated);
    host::DemoOptions options;
    options.listings = 5000; // more than one block
    options.customers = 20;
    options.followUps = 30;
    options.passwordCost = host::PasswordCost::lowest();
    host::writeDemo(*connection, options);
    connection->executeNative(hardRows);
    return location;
}

} // namespace

TransferTest::TransferTest()
{
    EXPECT_TRUE(QFile::copy(agency(), path("a.db")));
}

QStringList TransferTest::names() const
{
    return QDir(m_folder.path()).entryList(QDir::Files);
}

std::string literals(Connection &connection)
{
    std::string text;
    for (const TableDefinition &table : schemaTables()) {
        QByteArray row;
        for (const ColumnDefinition &column : table.columns)
            row += (row.isEmpty() ? "quote(\"" : "||','||quote(\"") +
                   QString::fromUtf16(column.name).toUtf8() + "\")";
        const RowBlock rows = connection.queryNative(
            "select " + row + " from \"" + QString::fromUtf16(table.name).toUtf8() + "\" order by 1");
        text += std::string(rows.arena()) + ';' + std::to_string(rows.rowCount());
    }
    return text;
}

int countOf(Connection &connection, const char *table)
{
    return connection.queryNative(QByteArray("select count(*) from ") + table).value(0, 0).toInt();
}

std::string refusal(const std::function<void()> &run)
{
    try {
        run();
    } catch (const DatabaseError &error) {
        EXPECT_GE(error.message().front().unicode(), 0x4E00) << error.what();
        return error.what();
    }
    return {};
}

} // namespace ebtq::db
