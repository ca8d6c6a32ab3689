#include "library/dictionaries/flat_dictionary.h"

#include "library/frame/statements.h"

using namespace Qt::StringLiterals;

namespace ebtq {

bool FlatDictionary::fillTree()
{
    const QString number = record().load[0].column.toString();
    const QString name = record().load[1].column.toString();
    const auto rows = openRows(db(), u"select * from %1 order by %2"_s.arg(record().table, number));
    for (; !rows->Eof(); rows->MoveNext()) {
        const auto text = [&](const QString &column) { return rows->Fields(column).Value.toString(); };
        tv().NodeAdd({.relative = rootKey(),
                      .key = recordKey(text(number)),
                      .text = text(number) + u' ' + text(name),
                      .tag = rows->Fields(record().key.toString()).Value});
    }
    return true;
}

SqlText FlatDictionary::recordStatement(int id) const
{
    return u"select * from %1 where %2=%3"_s.arg(record().table, record().key).arg(id);
}

/// The same words for a deletion: the rules have them so.
bool FlatDictionary::mayEdit()
{
    if (tv().IsSelected())
        return true;
    tell(u"无选择项目,不能进行编辑"_s, u"提示："_s);
    return false;
}

std::vector<SqlText> FlatDictionary::deleteStatements(int id) const
{
    return {u"delete from %1 where %2=%3"_s.arg(record().table, record().key).arg(id)};
}

DictionaryForm::SaveReport FlatDictionary::saveReport() const
{
    return {u"保存数据时出错："_s, caption()};
}

} // namespace ebtq
