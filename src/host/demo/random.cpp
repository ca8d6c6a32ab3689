#include "host/demo/random.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace ebtq::host {

QString Random::guid()
{
    const QString digits = u"%1%2"_s.arg(m_engine(), 16, 16, QLatin1Char('0'))
                               .arg(m_engine(), 16, 16, QLatin1Char('0'))
                               .toUpper();
    return QStringList{digits.mid(0, 8), digits.mid(8, 4), digits.mid(12, 4), digits.mid(16, 4),
                       digits.mid(20)}
        .join(u'-');
}

} // namespace ebtq::host
