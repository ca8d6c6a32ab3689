#pragma once

#include "contracts/host_contracts.h"

namespace ebtq {

/// The signed-in user's id as columns named 用户ID hold it: without the braces and apostrophes with which it
/// comes.
[[nodiscard]] inline QString bareUserId(const HostSession &session)
{
    QString id = session.UserID();
    for (const QChar extra : {u'{', u'}', u'\''})
        id.remove(extra);
    return id;
}

} // namespace ebtq
