#pragma once

#include "library/support/agency_test.h"

namespace ebtq::test {

/// An editor over an agency's database. What it raises is written down in order: failures as
/// "title|level|text", "new" or "changed" for a saved row, "closed".
template<class Form> class EditorTest : public AgencyTest
{
protected:
    explicit EditorTest(const QString &file = u":memory:"_qs)
        : AgencyTest(file)
    {
        if constexpr (requires { &Form::ErrMessage; })
            QObject::connect(&form, &Form::ErrMessage,
                             [this](const QString &text, int level, const QString &title) {
                                 events += u"%1|%2|%3"_qs.arg(title).arg(level).arg(text);
                             });
        desktop.setNow(QDateTime(QDate(2026, 12, 25), QTime(9, 30))); // not in the month of the login
        QObject::connect(&form, &Form::ReturnData, [this](const QString &id, bool isNew) {
            saved = id;
            events += isNew ? u"new"_qs : u"changed"_qs;
        });
        QObject::connect(&form, &Form::unloaded, [this] { events += u"closed"_qs; });
    }
    /// What the person does while the form is shown next.
    void onceShown(const std::function<void()> &act)
    {
        desktop.willShow([act](QObject &) { act(); });
        app.statements.clear();
    }
    /// The questions that follow are answered in this order.
    void press(int button, std::initializer_list<Desktop::Answer> answers = {})
    {
        for (const Desktop::Answer answer : answers)
            desktop.willAnswer(answer);
        form.Cmd(button).press();
    }
    /// Presses the save and answers what it asks or tells.
    void save(std::initializer_list<Desktop::Answer> answers = {}) { press(0, answers); }
    /// The one message since the last call.
    std::string onlyMessage()
    {
        const QStringList told = asked();
        EXPECT_EQ(told.size(), 1) << told.join(u'\n').toStdString();
        return told.value(0).toStdString();
    }
    /// The first value of each row that a statement finds, blanks between them.
    [[nodiscard]] QString found(const QString &statement) const
    {
        QStringList values;
        const RowBlock block = rows(statement);
        for (qsizetype row = 0; row < block.rowCount(); ++row)
            values += block.value(row, 0).toString();
        return values.join(u' ');
    }

    Form form{desktop};
    QString saved; ///< key of the last saved row
};

} // namespace ebtq::test
