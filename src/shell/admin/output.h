#pragma once

#include <QString>

#include <cstdio>

namespace ebtq::admin {

void printLine(std::FILE *stream, const QString &text);

/// Throws Failure when anything printed so far was not written, as on a full disk: a program that reads our
/// output must not take half of it for all. The stream keeps its error, so one call after many writes is
/// enough.
void requireWritten(std::FILE *stream);

} // namespace ebtq::admin
