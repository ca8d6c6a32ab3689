#include "shell/admin/output.h"

#include "contracts/host_contracts.h"

namespace ebtq::admin {

void printLine(std::FILE *stream, const QString &text)
{
    std::fprintf(stream, "%s\n", text.toUtf8().constData());
}

void requireWritten(std::FILE *stream)
{
    const bool flushed = std::fflush(stream) == 0;
    if (!flushed || std::ferror(stream) != 0)
        throw Failure(QStringLiteral("输出未能全部写出，请检查磁盘空间和输出的去处！"));
}

} // namespace ebtq::admin
