#pragma once

#include <QString>
#include <QStringList>

namespace ebtq::shell {

/// What the command line says.
struct Options
{
    QString database; ///< file or URL; empty for the one in the user's data folder
    QString user;
    QString tour;    ///< folder for the pictures; empty when no tour is wanted
    QString library; ///< the component library's file; empty to look for it
    bool dark = false;
};

/// Reads the command line, the program's name first; ends the program after --help and --version. Throws
/// Failure for what it does not know.
[[nodiscard]] Options readOptions(const QStringList &arguments);

} // namespace ebtq::shell
