#pragma once

#include "library/frame/desktop.h"

namespace ebtq {

/// The temporary folder with a slash at its end; empty when the system gives none.
[[nodiscard]] inline QString TempFolder(Desktop &desktop)
{
    return desktop.tempFolder();
}

/// A new temporary file of length 0, cut at the first null character; empty when none could be made.
[[nodiscard]] inline QString MakeTempFile(Desktop &desktop, const QString &prefix)
{
    return desktop.makeTempFile(prefix).section(QChar(u'\0'), 0, 0);
}

} // namespace ebtq
