#include "contracts/level_code.h"

namespace ebtq {

int LevelCode::LevelLength(int level, const QString &scheme)
{
    int length = 0;
    for (const QChar character : scheme) {
        const int added = character.digitValue();
        if (level <= 0 || added <= 0)
            continue;
        length += added;
        --level;
    }
    return level == 0 ? length : 0;
}

QString LevelCode::ParentCode(const QString &code, const QString &scheme)
{
    int length = 0;
    for (int level = 1;; ++level) {
        const int next = LevelLength(level, scheme);
        if (next == 0 || next >= code.size())
            return code.first(length);
        length = next;
    }
}

} // namespace ebtq
