#pragma once

#include <QString>

#include <functional>

class QIODevice;

namespace ebtq {

enum class Overwrite { Yes, No };

/// Writes a file as a whole: `fill` writes to a private file in the same folder, which then takes the name.
/// Throws Failure, also when the file exists and is not to be overwritten, and whatever `fill` throws; the
/// path is then as it was.
void writeWholeFile(const QString &path, Overwrite overwrite, const std::function<void(QIODevice &)> &fill);

} // namespace ebtq
