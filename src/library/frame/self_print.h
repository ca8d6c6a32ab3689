#pragma once

#include "contracts/print_contract.h"

#include <QString>

namespace ebtq {

class HostApp;

/// How lists print themselves.

/// The print settings of a module: "Rpt<moduleId>.prn" in the folder "selfPrn" below `folder`, which is made
/// when it is missing. A folder that ends in a separator does not double it. Throws Failure when it cannot be
/// made.
[[nodiscard]] QString printFile(const QString &folder, int moduleId);

/// Hands the job to the host's print object: with `bSetup` its set-up, else print or preview by `bPrint`.
/// Throws Failure with the reason, also for a host that cannot print.
void printSelf(HostApp &app, const PrintObject::Job &job, bool bPrint, bool bSetup);

} // namespace ebtq
