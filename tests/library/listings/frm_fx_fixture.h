#pragma once

#include "host/application.h"
#include "host/module_ids.h"
#include "host/setup.h"
#include "library/listings/frm_fx.h"
#include "library/listings/frm_fx_fields.h"
#include "support/scripted_desktop.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace ebtq::test {

/// The host with every statement written down as the form gives it.
class WatchedHost : public host::Application
{
public:
    using Application::Application;
    HostDb &Db() override { return m_db; }
    QStringList statements;

private:
    class WatchedDb : public HostDb
    {
    public:
        explicit WatchedDb(WatchedHost &host)
            : m_host(host)
        {}
        std::unique_ptr<HostQuery> CreateQuery(const SqlText &sql, int mode) override
        {
            m_host.statements.append(sql.text());
            return real().CreateQuery(sql, mode);
        }
        bool Release() override { return real().Release(); }
        void BeginTrans() override { real().BeginTrans(); }
        void CommitTrans() override { real().CommitTrans(); }
        void RollbackTrans() override { real().RollbackTrans(); }
        [[nodiscard]] HostDbError LastError() const override { return real().LastError(); }

    private:
        [[nodiscard]] HostDb &real() const { return m_host.Application::Db(); }
        WatchedHost &m_host;
    };
    WatchedDb m_db{*this};
};

class NoPanels : public host::PanelPresenter
{
public:
    std::optional<qsizetype> choose(const host::Panel &) override { return std::nullopt; }
    std::optional<QDate> chooseDate(const QDate &, int, int) override { return std::nullopt; }
};

/// A picker that ends as the test says and writes down what it was asked with.
struct PickerScript
{
    QStringList asked;
    QString text;
    QVariant value; ///< invalid: left without a choice, nothing found
    std::shared_ptr<const PickedRow> row;
};

class ScriptedPicker : public HostPicker
{
public:
    ScriptedPicker(QString name, PickerScript &script)
        : m_name(std::move(name))
        , m_script(script)
    {}
    ParameterList &Parameters() override { return m_parameters; }
    bool Show(int left, int top, QString &text, QVariant &value, int, const QString &) override
    {
        return end(u"show %1 %2 %3"_qs.arg(m_name).arg(left).arg(top), text, value);
    }
    [[nodiscard]] std::shared_ptr<const PickedRow> Objects() const override { return m_script.row; }
    bool Validate(const QString &, const QString &, const QString &, const QString &typedText,
                  QVariant &value, QString &text) override
    {
        return end(u"validate %1 %2"_qs.arg(m_name, typedText), text, value);
    }
    [[nodiscard]] bool Ready(int) const override { return true; }

private:
    bool end(QString call, QString &text, QVariant &value)
    {
        for (const char16_t *name : {u"lock", u"pdmsfmx", u"组织类型", u"地区", u"楼盘", u"编号", u"名称",
                                     u"ID", u"table", u"where", u"order"}) {
            const QString key = QString::fromUtf16(name);
            if (m_parameters.Exists(key))
                call += u' ' + key + u'=' + m_parameters.text(key);
        }
        m_script.asked.append(call);
        if (m_script.value.isValid()) {
            text = m_script.text;
            value = m_script.value;
        }
        return m_script.value.isValid();
    }
    QString m_name;
    PickerScript &m_script;
    ParameterList m_parameters;
};

/// The editor over a database, with its events written down in order.
class FrmFxTest : public ::testing::Test
{
protected:
    explicit FrmFxTest(const QString &file = u":memory:"_qs)
        : connection(db::Connection::open(file, db::Connection::Missing::IsCreated))
    {
        host::prepareDatabase(*connection);
        for (const char16_t *row : {u"su_usertype (mtID,mtcode,mtname) values (1,'01','营业一部')",
                                    u"su_membership (userID,UserTypeID,username) values ('U1',1,'张敏')",
                                    u"pdmgy (雇员ID,姓名) values (5,'李强')",
                                    u"pdmfx (房型ID,房型编号,房型名称,房间数,客厅数,卫生间数,阳台数) values "
                                    u"(1,'F1','三房',3,2,2,1)",
                                    u"pdmcq (产权ID,产权编号,产权名称,证件名称,付款方式,付佣金方式) values "
                                    u"(1,'C1','商品房','房产证','按揭','成交后')",
                                    u"pdmsjzd (类型,代码,名称) values ('交易类型','01','出售')",
                                    u"pdmsjzd (类型,代码,名称) values ('房屋朝向','01','南')"})
            connection->execute(u"insert into "_qs + QString::fromUtf16(row));
        QObject::connect(&form, &FrmFx::ErrMessage,
                         [this](const QString &text, int level, const QString &title) {
                             events += u"error %1|%2|%3"_qs.arg(text).arg(level).arg(title);
                         });
        QObject::connect(&form, &FrmFx::ReturnData, [this](const QString &id, bool isNew) {
            saved = id;
            events += isNew ? u"new"_qs : u"changed"_qs;
        });
        QObject::connect(&form, &FrmFx::unloaded, [this] { events += u"closed"_qs; });
        app.setPickerFactory([this](const QString &name) -> std::unique_ptr<HostPicker> {
            return std::make_unique<ScriptedPicker>(name, script);
        });
    }

    /// Opens the form and lets the person do `act` while it is shown.
    void open(const QString &listing, const std::function<void()> &act, bool hideOwner = false)
    {
        desktop.willShow([&](QObject &shown) {
            EXPECT_EQ(&shown, &form);
            act();
        });
        app.statements.clear();
        form.py_Init(app, host::ListingModule, listing, hideOwner);
    }
    void fillRequired()
    {
        const std::pair<int, const char16_t *> required[] = {
            {1, u"天河区"}, {6, u"翠堤雅居"}, {3, u"A3"}, {23, u"出售"}, {24, u"有效"}};
        for (const auto &[number, text] : required)
            form.qzFcTxt(number).setText(QString::fromUtf16(text));
    }
    void save() { form.Cmd(0).press(); }
    /// Saves a new listing with no more than must be filled in.
    QString makeListing()
    {
        desktop.willAnswer(Desktop::Answer::No);
        open({}, [&] {
            fillRequired();
            form.qzFcTxt(50).setText(u"陈先生"_qs);
            save();
        });
        return saved;
    }
    [[nodiscard]] RowBlock rows(const QString &sql) const { return connection->query(sql); }
    [[nodiscard]] qsizetype listings() const { return rows(u"select 房源ID from fyxx"_qs).rowCount(); }
    [[nodiscard]] QString text(int number) const { return form.qzFcTxt(number).Text(); }
    /// What was asked since the last call.
    QStringList asked()
    {
        const QStringList all = desktop.asked();
        const QStringList fresh = all.mid(m_askedBefore);
        m_askedBefore = all.size();
        return fresh.filter(u"|"_qs);
    }

    QTemporaryDir folder;
    std::unique_ptr<db::Connection> connection;
    NoPanels panels;
    WatchedHost app{
        *connection, {u"U1"_qs, u"张敏"_qs, u"营业一部"_qs}, {folder.path(), QDate(2026, 11, 22)}, panels};
    ScriptedDesktop desktop;
    FrmFx form{desktop};
    PickerScript script;
    QString saved;
    QStringList events;

private:
    qsizetype m_askedBefore = 0;
};

} // namespace ebtq::test
