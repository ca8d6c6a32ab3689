#include "library/records/look_up.h"

namespace ebtq {

QString LookUp::check() const
{
    if (dictionary.isEmpty())
        return statement.toString();
    return QStringLiteral("select 代码,名称 from pdmsjzd where 类型='%1' and (代码='@' or 名称='@')")
        .arg(dictionary);
}

} // namespace ebtq
