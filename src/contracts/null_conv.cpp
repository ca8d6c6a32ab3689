#include "contracts/null_conv.h"

#include "contracts/conversions.h"
#include "contracts/host_contracts.h"
#include "database/values/date_text.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

bool isWhole(const QVariant &value)
{
    return value.userType() == QMetaType::Int || value.userType() == QMetaType::LongLong;
}

} // namespace

QString NullConv::ToText(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::Double:
    case QMetaType::Float:
        return NumberText(value.toDouble());
    case QMetaType::QDateTime:
        return regionalDate(value.toDateTime());
    case QMetaType::QDate:
        return regionalDate(value.toDate());
    case QMetaType::Bool:
        return value.toBool() ? u"True"_s : u"False"_s;
    default:
        return value.toString();
    }
}

int NullConv::ToLong(const QVariant &value)
{
    const double number = std::nearbyint(Val(value));
    if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max())
        throw Failure(u"数值 %1 超出范围，请重新输入！"_s.arg(ToText(value)));
    return static_cast<int>(number);
}

QVariant NullConv::ToNumber(const QVariant &value)
{
    if (value.isNull())
        return 0;
    return isWhole(value) ? value : QVariant(Val(value));
}

} // namespace ebtq
