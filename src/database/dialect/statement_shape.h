#pragma once

#include "database/values/sql_text.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace ebtq::db {

/// A statement with its typed values cut out. Statements of one shape translate alike and can be prepared
/// once, with the values as parameters: the detail of a listing is read by the same statement for each row
/// that the user passes.
///
/// Only values whose kind is all that the translation depends on have a place in a shape: record keys,
/// which are GUIDs with a letter in them, plain positive numbers beside a comparison, and texts that an
/// update assigns as they are. The content of any other text - a date, a number, a pattern, no letters - may
/// change the translated statement; so would that of a text assigned to a column of numbers, whose sample
/// therefore is none. A value that comes again is the same value also in the shape: what is compared with one
/// number twice is translated with a view to that.
class StatementShape
{
public:
    enum class Kind : quint8 { Key, Whole, Decimal, Assigned };
    struct Value
    {
        Kind kind;
        QStringView text; ///< of the statement, which must outlive it
        [[nodiscard]] bool operator==(const Value &) const = default;
    };

    /// Nothing for a statement with a typed value that has no place in a shape.
    [[nodiscard]] static std::optional<StatementShape> of(const SqlText &statement);

    /// The statement's text with a placeholder for each value, which encodes its kind or the earlier value it
    /// repeats: the same for all of one shape.
    [[nodiscard]] const QString &text() const { return m_text; }
    [[nodiscard]] const std::vector<Value> &values() const { return m_values; }

    /// A part does not hold all values.
    enum class Extent : quint8 { Whole, Part };
    /// A statement of this shape whose values cannot be confused with anything else.
    [[nodiscard]] SqlText sample() const;
    /// Puts ?1, ?2, ... into the translated sample in the places of its values. Nothing when one of them is
    /// not found as a whole literal.
    [[nodiscard]] std::optional<QByteArray> withParameters(QByteArray translatedSample,
                                                           Extent extent = Extent::Whole) const;

private:
    void addValue(const Value &value);
    [[nodiscard]] QString sampleValue(size_t number) const;

    QString m_text;
    std::vector<Value> m_values;
};

} // namespace ebtq::db
