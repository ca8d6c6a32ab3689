#include "library/records/look_up.h"

using namespace Qt::StringLiterals;

namespace ebtq {

QString LookUp::check() const
{
    if (dictionary.isEmpty())
        return statement.toString();
    return u"select 代码,名称 from pdmsjzd where 类型='%1' and (代码='@' or 名称='@')"_s.arg(dictionary);
}

} // namespace ebtq
