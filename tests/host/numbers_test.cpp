#include "host/bill_numbers.h"

#include "host/host_database.h"
#include "host/host_fixture.h"
#include "library/frame/id_generator.h"

namespace ebtq::test {

class NumbersTest : public HostTest
{
protected:
    QString number(bool take, int moduleId = 101, const QDate &date = loginDate)
    {
        QString code = u"working number"_qs;
        const bool given = m_host->NewBillCode(moduleId, date, code, take);
        EXPECT_EQ(given, m_host->LastError().Description.isEmpty());
        return given ? code : QString();
    }
    QString nextId(const char16_t *table, const char16_t *column, int &id)
    {
        IdGenerator generator;
        generator.Init(m_host->Db());
        return generator.NextID(QString::fromUtf16(table), QString::fromUtf16(column), id);
    }
    int buildingId()
    {
        int id = -1;
        EXPECT_EQ(nextId(u"pdmlpzd", u"楼盘ID", id), QString());
        return id;
    }
};

TEST_F(NumbersTest, NumbersRunThroughTheMonthOfEachModule)
{
    EXPECT_EQ(number(true), u"FY2019110001"_qs);
    EXPECT_EQ(number(true), u"FY2019110001"_qs) << "showing a number used it up";
    EXPECT_EQ(number(false), u"FY2019110001"_qs);
    EXPECT_EQ(number(false, 101, QDate(2019, 11, 1)), u"FY2019110002"_qs);
    EXPECT_EQ(number(true), u"FY2019110003"_qs);
    EXPECT_EQ(number(false, 101, QDate(2019, 12, 1)), u"FY2019120001"_qs);
    EXPECT_EQ(number(false, 102), u"KY2019110001"_qs);
    host::setLastBillNumber(*m_connection, 101, loginDate, 9999);
    EXPECT_EQ(number(false), u"FY20191110000"_qs);
}

TEST_F(NumbersTest, NumbersThatCannotBeGivenSayWhy)
{
    for (const bool take : {true, false}) {
        EXPECT_EQ(number(take, 203), QString()) << "a module without a prefix";
        EXPECT_EQ(number(take, 999), QString());
        EXPECT_EQ(number(take, 101, QDate()), QString());
    }
    EXPECT_EQ(value(u"select count(*) from host_numbers").toInt(), 0);
    EXPECT_FALSE(m_connection->inTransaction());
}

TEST_F(NumbersTest, KeysAreAboveTheTableAndAboveEveryKeyGivenOut)
{
    EXPECT_EQ(buildingId(), 33);
    EXPECT_EQ(buildingId(), 34) << "a key that was not stored yet was given out twice";
    execute(u"insert into pdmlpzd(楼盘ID,楼盘编号) values(100,'imported')");
    EXPECT_EQ(buildingId(), 101);
    execute(u"delete from pdmlpzd");
    EXPECT_EQ(buildingId(), 102) << "the key of a deleted row came back";
    int id = 0;
    EXPECT_EQ(nextId(u"pdmDz", u"栋座ID", id), QString());
    EXPECT_EQ(id, 1);
    EXPECT_EQ(nextId(u"pdmdz", u"栋座ID", id), QString());
    EXPECT_EQ(id, 2) << "the same table in another spelling has a counter of its own";
}

TEST_F(NumbersTest, WhatAnUndoneSaveTookComesBack)
{
    m_host->Db().BeginTrans();
    EXPECT_EQ(number(false), u"FY2019110001"_qs);
    EXPECT_EQ(buildingId(), 33);
    m_host->Db().RollbackTrans();
    EXPECT_EQ(number(false), u"FY2019110001"_qs);
    EXPECT_EQ(buildingId(), 33);
    EXPECT_FALSE(m_connection->inTransaction());
}

TEST_F(NumbersTest, KeysThatCannotBeMadeSayWhyAndLeaveNothingToCommit)
{
    int id = 5;
    IdGenerator unused;
    EXPECT_FALSE(unused.NextID(u"pdmlpzd"_qs, u"楼盘ID"_qs, id).isEmpty());
    EXPECT_TRUE(nextId(u"无此表", u"ID", id).contains(u"无此表"));
    m_host->Db().Release();
    EXPECT_TRUE(nextId(u"pdmlpzd", u"无此列", id).contains(u"无此列"));
    m_host->Db().Release();
    execute(u"insert into pdmlpzd(楼盘ID,楼盘编号) values(2147483647,'last')");
    EXPECT_TRUE(nextId(u"pdmlpzd", u"楼盘ID", id).contains(u"用完"));
    m_host->Db().Release();
    m_host->Db().BeginTrans();
    execute(u"delete from pdmgy");
    EXPECT_FALSE(nextId(u"无此表", u"ID", id).isEmpty());
    m_host->Db().CommitTrans();
    m_host->Db().Release();
    EXPECT_EQ(value(u"select count(*) from pdmgy").toInt(), 2) << "half of an abandoned save was written";
    EXPECT_EQ(id, 5);
    EXPECT_FALSE(m_connection->inTransaction());
}

} // namespace ebtq::test
