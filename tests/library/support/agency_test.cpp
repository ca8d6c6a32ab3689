#include "library/support/agency_test.h"

#include "host/module_ids.h"
#include "host/rights.h"
#include "host/setup.h"
#include "library/layout/ini_store.h"

namespace ebtq::test {

bool ScriptedPicker::finish(QString call, QString &text, QVariant &value)
{
    for (const QString &key :
         u"lock,pdmsfmx,组织类型,地区,楼盘,编号,名称,ID,table,where,order"_qs.split(u','))
        if (m_parameters.Exists(key))
            call += u' ' + key + u'=' + m_parameters.text(key);
    m_script.asked.append(call);
    if (m_script.value.isValid())
        std::tie(text, value) = std::tie(m_script.text, m_script.value);
    return m_script.value.isValid();
}

AgencyTest::AgencyTest(const QString &file)
    : connection(db::Connection::open(file, db::Connection::Missing::IsCreated))
{
    host::prepareDatabase(*connection);
    insert({
        u"su_usertype (mtID,mtcode,mtname) values (1,'01','营业一部')",
        u"su_membership (userID,UserTypeID,username) values ('U1',1,'张敏')",
        u"pdmgy (雇员ID,姓名) values (5,'李强')",
        u"pdmfx (房型ID,房型编号,房型名称,房间数,客厅数,卫生间数,阳台数) values (1,'F1','三房',3,2,2,1)",
        u"pdmcq (产权ID,产权编号,产权名称,证件名称,付款方式,付佣金方式) values "
        u"(1,'C1','商品房','房产证','按揭','成交后')",
    });
    insert(u"pdmsjzd (类型,代码,名称)"_qs,
           {u"'交易类型','01','出售'", u"'交易状态','01','有效'", u"'房屋朝向','01','南'"});
    for (const int right : {RightNew, RightEdit, RightDelete})
        setRight(right, true);
    app.setPickerFactory(
        [this](const QString &name) { return std::make_unique<ScriptedPicker>(name, script); });
}

void AgencyTest::insert(std::initializer_list<const char16_t *> rows)
{
    for (const char16_t *row : rows)
        connection->execute(u"insert into "_qs + QString::fromUtf16(row));
}

void AgencyTest::insert(const QString &table, std::initializer_list<const char16_t *> values)
{
    for (const char16_t *row : values)
        connection->execute(u"insert into %1 values (%2)"_qs.arg(table, QString::fromUtf16(row)));
}

void AgencyTest::setRight(int right, bool allowed)
{
    host::setRight(*connection, u"U1"_qs, host::ListingModule, right, allowed);
}

void AgencyTest::put(const QString &section, const QString &key, const QString &value) const
{
    IniStore store;
    store.setFileName(layoutFile);
    store.SetString(section, key, value);
    ASSERT_TRUE(store.save());
}

host::Application &AgencyTest::sealedHost()
{
    const QString file = folder.filePath(u"sealed.db"_qs);
    connection->executeNative("vacuum into '" + file.toUtf8() + '\'');
    m_sealed = db::Connection::open(u"file:%1?mode=ro"_qs.arg(file));
    m_sealedHost = std::make_unique<host::Application>(*m_sealed, host::User{u"U1"_qs, {}, {}},
                                                       host::Settings{folder.path(), {}}, panels);
    return *m_sealedHost;
}

QStringList AgencyTest::asked()
{
    const QStringList fresh = desktop.asked().mid(m_askedBefore);
    m_askedBefore = desktop.asked().size();
    return fresh.filter(u"|"_qs);
}

} // namespace ebtq::test
