#pragma once

#include <QString>

namespace ebtq {

/// Codes in which each level goes on from its parent's, such as 01, 0102, 010203. A scheme gives how many
/// characters each level adds, a digit a level; other characters in it are passed over.
class LevelCode
{
public:
    /// How long a code of that level is, counted from 1; 0 for a level that the scheme has not.
    [[nodiscard]] static int LevelLength(int level, const QString &scheme);
    /// The code's beginning that is a code of the level above; empty for the first level. A code of no level
    /// is cut to the longest one that is shorter.
    [[nodiscard]] static QString ParentCode(const QString &code, const QString &scheme);
};

} // namespace ebtq
