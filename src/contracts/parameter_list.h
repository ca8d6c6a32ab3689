#pragma once

#include <QString>
#include <QVariant>

#include <vector>

namespace ebtq {

/// One named value of a picker or a designer.
struct Parameter
{
    QVariant Value;
};

/// Named parameters of a picker; names compare without regard to case.
class ParameterList
{
public:
    /// The parameter of that name, made with an empty value when it is not there yet. The reference stays
    /// good until the list changes.
    Parameter &Item(const QString &name);
    [[nodiscard]] bool Exists(const QString &name) const;
    /// The value as trimmed text; the empty string for an absent parameter. Makes none.
    [[nodiscard]] QString text(const QString &name) const;
    void Clear() { m_entries.clear(); }

private:
    struct Entry
    {
        QString name;
        Parameter parameter;
    };
    [[nodiscard]] const Entry *find(const QString &name) const;
    std::vector<Entry> m_entries;
};

/// What the host's designer hands to a module.
using DesignParameters = ParameterList;

} // namespace ebtq
