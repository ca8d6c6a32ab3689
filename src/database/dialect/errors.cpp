#include "database/dialect/errors.h"

using namespace Qt::StringLiterals;

namespace ebtq::db {

void fail(qsizetype position, const QString &why)
{
    throw DialectError(position, u"第 %1 个字符处：%2"_s.arg(position + 1).arg(why));
}

QString quoted(QStringView text)
{
    constexpr qsizetype longest = 24;
    const bool cut = text.size() > longest;
    return u"“%1%2”"_s.arg(text.first(qMin(text.size(), longest)), cut ? u"…" : u"");
}

} // namespace ebtq::db
