#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace ebtq {

/// A field's short list written out in its help code, as "|本人;0|本部;1": texts, each with the value behind
/// it.
class InlineList
{
public:
    struct Entry
    {
        QString text;
        QString value;
    };

    explicit InlineList(const QString &code);
    [[nodiscard]] const std::vector<Entry> &entries() const { return m_entries; }
    /// The entry of that text or that value, without regard to case.
    [[nodiscard]] std::optional<Entry> find(const QString &typedText) const;

private:
    std::vector<Entry> m_entries;
};

} // namespace ebtq
