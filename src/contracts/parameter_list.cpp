#include "contracts/parameter_list.h"

#include "contracts/conversions.h"
#include "contracts/null_conv.h"

namespace ebtq {

const ParameterList::Entry *ParameterList::find(const QString &name) const
{
    for (const Entry &entry : m_entries) {
        if (entry.name.compare(name, Qt::CaseInsensitive) == 0)
            return &entry;
    }
    return nullptr;
}

Parameter &ParameterList::Item(const QString &name)
{
    for (Entry &entry : m_entries) {
        if (entry.name.compare(name, Qt::CaseInsensitive) == 0)
            return entry.parameter;
    }
    return m_entries.emplace_back(Entry{name, {}}).parameter;
}

bool ParameterList::Exists(const QString &name) const
{
    return find(name) != nullptr;
}

QString ParameterList::text(const QString &name) const
{
    const Entry *entry = find(name);
    return entry ? Trim(NullConv::ToText(entry->parameter.Value)) : QString();
}

} // namespace ebtq
