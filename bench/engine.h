#pragma once

#include "agency.h"

#include <QByteArray>

#include <functional>

namespace ebtq::bench {

/// What a benchmark does with statements of the engine's own, past everything that the system adds.
struct Engine
{
    std::function<void(const QByteArray &text)> run; ///< every value read
    std::function<QByteArray(const QByteArray &text)> plan;
    bool isServer;
    const char *name;
};

/// `agency` outlives it.
[[nodiscard]] Engine engineOf(Agency &agency);

} // namespace ebtq::bench
