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
    /// What is run for a statement.
    std::function<SqlText(const SqlText &)> asRun = [](const SqlText &sql) { return sql; };

private:
    struct WatchedDb : HostDb
    {
        WatchedDb(HostDb &db, WatchedHost &owner)
            : real(db)
            , watched(owner)
        {}
        std::unique_ptr<HostQuery> CreateQuery(const SqlText &sql, int mode) override
        {
            watched.statements.append(sql.text());
            return real.CreateQuery(watched.asRun(sql), mode);
        }
        bool Release() override { return real.Release(); }
        void BeginTrans() override { real.BeginTrans(); }
        void CommitTrans() override { real.CommitTrans(); }
        void RollbackTrans() override { real.RollbackTrans(); }
        [[nodiscard]] HostDbError LastError() const override { return real.LastError(); }
        HostDb &real;
        WatchedHost &watched;
    };
    WatchedDb m_db{Application::Db(), *this};
};

struct NoPanels : host::PanelPresenter
{
    std::optional<qsizetype> choose(const host::Panel &) override { return std::nullopt; }
    std::optional<QDate> chooseDate(const QDate &, int, int) override { return std::nullopt; }
};

/// How all pickers end, and what they were asked with.
struct PickerScript
{
    QStringList asked;
    QString text;
    QVariant value; ///< invalid: left without a choice, nothing found
    std::shared_ptr<const PickedRow> row;
};

struct ScriptedPicker : HostPicker
{
    ScriptedPicker(QString pickerName, PickerScript &end)
        : name(std::move(pickerName))
        , script(end)
    {}
    ParameterList &Parameters() override { return parameters; }
    bool Show(int left, int top, QString &text, QVariant &value, int, const QString &) override
    {
        return finish(u"show %1 %2 %3"_qs.arg(name).arg(left).arg(top), text, value);
    }
    [[nodiscard]] std::shared_ptr<const PickedRow> Objects() const override { return script.row; }
    bool Validate(const QString &, const QString &, const QString &, const QString &typedText,
                  QVariant &value, QString &text) override
    {
        return finish(u"validate %1 %2"_qs.arg(name, typedText), text, value);
    }
    [[nodiscard]] bool Ready(int) const override { return true; }

    bool finish(QString call, QString &text, QVariant &value)
    {
        for (const QString &key :
             u"lock,pdmsfmx,组织类型,地区,楼盘,编号,名称,ID,table,where,order"_qs.split(u','))
            if (parameters.Exists(key))
                call += u' ' + key + u'=' + parameters.text(key);
        script.asked.append(call);
        if (script.value.isValid())
            std::tie(text, value) = std::tie(script.text, script.value);
        return script.value.isValid();
    }
    QString name;
    PickerScript &script;
    ParameterList parameters;
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
        QObject::connect(&form, &FrmFx::ErrMessage, [this](const QString &text) { events += text; });
        QObject::connect(&form, &FrmFx::ReturnData, [this](const QString &id, bool isNew) {
            saved = id;
            events += isNew ? u"new"_qs : u"changed"_qs;
        });
        QObject::connect(&form, &FrmFx::unloaded, [this] { events += u"closed"_qs; });
        app.setPickerFactory(
            [this](const QString &name) { return std::make_unique<ScriptedPicker>(name, script); });
    }

    /// Opens the form and lets the person do `act` while it is shown.
    void open(const QString &listing, const std::function<void()> &act, bool hideOwner = false)
    {
        desktop.willShow([&](QObject &) { act(); });
        app.statements.clear();
        form.py_Init(app, host::ListingModule, listing, hideOwner);
    }
    /// `texts` as "number text,number text".
    static void fill(const FrmFx &editor, const QString &texts)
    {
        for (const QString &text : texts.split(u','))
            editor.qzFcTxt(text.section(u' ', 0, 0).toInt()).setText(text.section(u' ', 1));
    }
    /// Presses the save and answers what it asks or tells.
    void save(std::optional<Desktop::Answer> answer = std::nullopt)
    {
        if (answer)
            desktop.willAnswer(*answer);
        form.Cmd(0).press();
    }
    /// Saves a new listing with little more than must be filled in.
    QString makeListing()
    {
        open({}, [&] {
            fill(form, required);
            form.qzFcTxt(50).setText(u"陈先生"_qs);
            save(Desktop::Answer::No);
        });
        (void)asked();
        events.clear();
        return saved;
    }
    [[nodiscard]] RowBlock rows(const QString &sql) const { return connection->query(sql); }
    /// One value of the only listing that a statement finds.
    [[nodiscard]] QString stored(const QString &columns) const
    {
        const RowBlock rows = connection->query(u"select "_qs + columns + u" from fyxx"_qs);
        return rows.rowCount() == 1 ? rows.value(0, 0).toString() : u"%1 rows"_qs.arg(rows.rowCount());
    }
    [[nodiscard]] QString text(int number) const { return form.qzFcTxt(number).Text(); }
    [[nodiscard]] QString ticks() const
    {
        return u"%1%2%3"_qs.arg(form.Chk(0).Value()).arg(form.Chk(1).Value()).arg(form.Chk(2).Value());
    }
    /// What was asked since the last call.
    [[nodiscard]] QStringList asked()
    {
        const QStringList fresh = desktop.asked().mid(m_askedBefore);
        m_askedBefore = desktop.asked().size();
        return fresh.filter(u"|"_qs);
    }

    const QString required = u"1 天河区,6 翠堤雅居,3 A3,23 出售,24 有效"_qs;
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
