#pragma once

#include <QString>

class QCoreApplication;

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

/// Reads the command line; ends the program after --help, --version and an unknown option.
[[nodiscard]] Options readOptions(const QCoreApplication &application);

} // namespace ebtq::shell
