#pragma once

#include "library/frame/desktop.h"

namespace ebtq {

/// The error object that a failed ShellOpen sets.
struct ShellError
{
    int number = 0;
    QString source;
    QString description;
};

/// Opens a file with the program of its type, or runs it as a program when it has parameters or a folder.
/// Empty on success, otherwise the message for the result; `error`, where given, has number and source as
/// well.
QString ShellOpen(Desktop &desktop, const QString &file, int showCmd, const QString &parameters,
                  const QString &folder, const QString &verb, ShellError *error = nullptr);

} // namespace ebtq
