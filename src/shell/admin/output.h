#pragma once

#include <QString>

#include <cstdio>

namespace ebtq::admin {

void printLine(std::FILE *stream, const QString &text);

/// Throws Failure when anything printed to the stream until now did not arrive, as on a full disk: a program
/// that reads our output must not take half of it for all. The stream remembers, so one call behind many
/// writes will do.
void requireWritten(std::FILE *stream);

} // namespace ebtq::admin
