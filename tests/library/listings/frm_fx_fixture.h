#pragma once

#include "host/module_ids.h"
#include "library/listings/frm_fx.h"
#include "library/listings/frm_fx_fields.h"
#include "library/support/editor_test.h"

namespace ebtq::test {

/// Texts of an editor as "number text,number text".
struct ListingTexts
{
    static inline const QString required = u"1 天河区,6 翠堤雅居,3 A3,23 出售,24 有效"_qs;

    static void fill(const FrmFx &editor, const QString &texts)
    {
        for (const QString &text : texts.split(u','))
            editor.qzFcTxt(text.section(u' ', 0, 0).toInt()).setText(text.section(u' ', 1));
    }
};

/// The listing editor over a database.
class FrmFxTest : public EditorTest<FrmFx>, protected ListingTexts
{
protected:
    using EditorTest::EditorTest;

    /// Opens the form and lets the person do `act` while it is shown.
    void open(const QString &listing, const std::function<void()> &act, bool hideOwner = false)
    {
        onceShown(act);
        form.py_Init(app, host::ListingModule, listing, hideOwner);
    }
    /// Saves a new listing with little more than must be filled in.
    QString makeListing()
    {
        open({}, [&] {
            fill(form, required + u",50 陈先生"_qs);
            save({Desktop::Answer::No});
        });
        (void)asked();
        events.clear();
        return saved;
    }
    [[nodiscard]] QString stored(const QString &columns) const
    {
        return found(u"select %1 from fyxx"_qs.arg(columns));
    }
    [[nodiscard]] QString text(int number) const { return form.qzFcTxt(number).Text(); }
    [[nodiscard]] QString ticks() const
    {
        return u"%1%2%3"_qs.arg(form.Chk(0).Value()).arg(form.Chk(1).Value()).arg(form.Chk(2).Value());
    }
};

} // namespace ebtq::test
