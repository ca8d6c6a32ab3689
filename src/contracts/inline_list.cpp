#include "contracts/inline_list.h"

#include <QStringList>

namespace ebtq {

InlineList::InlineList(const QString &code)
{
    const QStringList parts = code.split(u'|', Qt::SkipEmptyParts);
    for (const QString &part : parts)
        m_entries.push_back({part.section(u';', 0, 0), part.section(u';', 1, 1)});
}

std::optional<InlineList::Entry> InlineList::find(const QString &typedText) const
{
    for (const Entry &entry : m_entries) {
        if (entry.text.compare(typedText, Qt::CaseInsensitive) == 0 ||
            entry.value.compare(typedText, Qt::CaseInsensitive) == 0)
            return entry;
    }
    return std::nullopt;
}

} // namespace ebtq
