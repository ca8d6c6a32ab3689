#include "database/dialect/catalog.h"

namespace ebtq::db {

const Column *Catalog::Table::column(QStringView columnName) const
{
    for (const Column &each : columns) {
        if (each.name.size() == columnName.size() && columnName.compare(each.name, Qt::CaseInsensitive) == 0)
            return &each;
    }
    return nullptr;
}

void Catalog::add(Table table)
{
    const QString key = table.name.toCaseFolded();
    m_tables.insert(key, std::move(table));
}

const Catalog::Table *Catalog::table(QStringView name) const
{
    const auto found = m_tables.constFind(name.toString().toCaseFolded());
    return found == m_tables.constEnd() ? nullptr : &*found;
}

} // namespace ebtq::db
