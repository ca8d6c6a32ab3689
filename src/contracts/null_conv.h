#pragma once

#include <QString>
#include <QVariant>

namespace ebtq {

/// Values of database fields as the rules take them: Null is the empty text or 0.
class NullConv
{
public:
    /// Numbers without a trailing ".0", dates in regional form.
    [[nodiscard]] static QString ToText(const QVariant &value);
    /// The leading number, rounded half to even. Throws Failure for one that does not fit.
    [[nodiscard]] static int ToLong(const QVariant &value);
    /// A whole number stays one; anything else gives its leading number.
    [[nodiscard]] static QVariant ToNumber(const QVariant &value);
};

} // namespace ebtq
