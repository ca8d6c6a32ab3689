#pragma once

#include <QList>
#include <QString>

#include <concepts>

namespace ebtq {

/// A value that a person typed or that was read from a row, on its way into a statement.
struct TypedText
{
    QString text;
};
[[nodiscard]] inline TypedText typed(QString text)
{
    return {std::move(text)};
}

/// A statement in the making. Its text is the plain concatenation, nothing is escaped or doubled; but it
/// remembers which spans were typed. The translation refuses a statement in which such a span does not come
/// out inside one literal, so that no value can ever change what a statement does.
class SqlText
{
public:
    struct Span
    {
        qsizetype begin;
        qsizetype length;
        [[nodiscard]] qsizetype end() const { return begin + length; }
    };

    SqlText() = default;
    SqlText(
        QString fixed) // NOLINT(google-explicit-constructor): a fixed text is a statement without typed spans
        : m_text(std::move(fixed))
    {}

    [[nodiscard]] const QString &text() const { return m_text; }
    /// Where typed text stands, in UTF-16 units, in order and without overlap. Empty values leave no span.
    [[nodiscard]] const QList<Span> &typedSpans() const { return m_typed; }
    [[nodiscard]] bool isEmpty() const { return m_text.isEmpty(); }

    SqlText &operator+=(QStringView fixed);
    SqlText &operator+=(const QString &fixed) { return *this += QStringView(fixed); }
    SqlText &operator+=(const TypedText &value);
    SqlText &operator+=(const SqlText &part);
    /// The text without its first `count` units, such as the leading " and " of a chain of conditions.
    [[nodiscard]] SqlText withoutFirst(qsizetype count) const;
    /// Each `mark` in `pattern` replaced by the typed value: the check statement of a look-up field.
    [[nodiscard]] static SqlText filledIn(const QString &pattern, QChar mark, const QString &value);

private:
    QString m_text;
    QList<Span> m_typed;
};

/// Only for a text that is a SqlText already: a QString on the left is joined as Qt does it.
template<std::same_as<SqlText> Text, class Part> [[nodiscard]] Text operator+(Text text, const Part &part)
{
    text += part;
    return text;
}

} // namespace ebtq
