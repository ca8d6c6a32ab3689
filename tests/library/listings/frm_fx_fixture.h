#pragma once

#include "host/module_ids.h"
#include "library/listings/frm_fx.h"
#include "library/listings/frm_fx_fields.h"
#include "library/support/agency_test.h"

namespace ebtq::test {

/// The editor over a database, with its events written down in order.
class FrmFxTest : public AgencyTest
{
protected:
    explicit FrmFxTest(const QString &file = u":memory:"_qs)
        : AgencyTest(file)
    {
        QObject::connect(&form, &FrmFx::ErrMessage, [this](const QString &text) { events += text; });
        QObject::connect(&form, &FrmFx::ReturnData, [this](const QString &id, bool isNew) {
            saved = id;
            events += isNew ? u"new"_qs : u"changed"_qs;
        });
        QObject::connect(&form, &FrmFx::unloaded, [this] { events += u"closed"_qs; });
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
    /// One value of the only listing that a statement finds.
    [[nodiscard]] QString stored(const QString &columns) const
    {
        const RowBlock found = rows(u"select "_qs + columns + u" from fyxx"_qs);
        return found.rowCount() == 1 ? found.value(0, 0).toString() : u"%1 rows"_qs.arg(found.rowCount());
    }
    /// The one message since the last call.
    std::string onlyMessage()
    {
        const QStringList told = asked();
        EXPECT_EQ(told.size(), 1) << told.join(u'\n').toStdString();
        return told.value(0).toStdString();
    }
    [[nodiscard]] QString text(int number) const { return form.qzFcTxt(number).Text(); }
    [[nodiscard]] QString ticks() const
    {
        return u"%1%2%3"_qs.arg(form.Chk(0).Value()).arg(form.Chk(1).Value()).arg(form.Chk(2).Value());
    }

    const QString required = u"1 天河区,6 翠堤雅居,3 A3,23 出售,24 有效"_qs;
    FrmFx form{desktop};
    QString saved;
};

} // namespace ebtq::test
