#include "library/pickers/narrowed_picker.h"

#include "contracts/conversions.h"
#include "contracts/null_conv.h"
#include "library/frame/statements.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

QString allOwners()
{
    return u"全部"_s;
}

} // namespace

NarrowedPicker::NarrowedPicker(const QString &name, Desktop &desktop, const NarrowedList &list)
    : Picker(name, desktop, list.grid)
    , m_list(list)
    , m_owner(controls().add<XPCombo>(u"Cmb"_s))
{
    m_owner.setCaption(list.caption.toString());
    connect(&m_owner, &XPCombo::Click, this, &NarrowedPicker::reload);
}

QStringList NarrowedPicker::columns() const
{
    return m_list.columns.toString().split(u',');
}

QString NarrowedPicker::ownerParameter() const
{
    return m_list.parameter.toString();
}

bool NarrowedPicker::isLocked() const
{
    return Val(parameters().text(u"lock"_s)) != 0;
}

bool NarrowedPicker::prepareList()
{
    if (parameters().Exists(ownerParameter()))
        m_wanted = parameters().text(ownerParameter());
    m_owner.setEnabled(!isLocked());
    if (m_wanted.isEmpty())
        m_wanted = allOwners();
    const bool filled = fillOwners();
    m_owner.setText(m_wanted);
    return filled;
}

bool NarrowedPicker::fillOwners()
{
    QStringList names{allOwners()};
    QList<int> keys{XPCombo::noKey};
    const auto rows = open(m_list.owners.toString());
    for (; !rows->Eof(); rows->MoveNext()) {
        names.append(NullConv::ToText(rows->Fields(m_list.ownerName.toString()).Value));
        keys.append(NullConv::ToLong(rows->Fields(m_list.ownerKey.toString()).Value));
    }
    m_owner.setItems(names, keys);
    m_owner.setListIndex(0);
    return lblFailure().Caption().isEmpty();
}

/// A name that is none of the combo box's has no key, and no row is found for it.
SqlText NarrowedPicker::listStatement()
{
    SqlText sql(m_list.list.toString());
    if (m_owner.Text() != allOwners()) {
        sql += u" where %1="_s.arg(m_list.listOwner);
        sql += QString::number(m_owner.ItemData(m_owner.ListIndex()));
    }
    sql += u" order by %1"_s.arg(m_list.order);
    return sql;
}

SqlText NarrowedPicker::checkStatement(const QString &typedText) const
{
    SqlText sql(m_list.check.toString());
    sql += whereAnyEquals(m_list.matches.toString().split(u','), typedText);
    const QString owner = parameters().text(ownerParameter());
    if (isLocked() && !owner.isEmpty()) {
        sql += u" and %1="_s.arg(m_list.ownerName);
        sql += quoted(owner);
    }
    return sql;
}

} // namespace ebtq
