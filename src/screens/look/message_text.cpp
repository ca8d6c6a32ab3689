#include "shell/message_text.h"

#include <QRegularExpression>

#include <algorithm>

namespace ebtq::shell {

namespace {

QString withTitle(const QString &text, const QString &title)
{
    return title.isEmpty() ? text : QStringLiteral("%1：%2").arg(title, text);
}

bool isProgramName(const QString &title)
{
    return std::ranges::all_of(title, [](QChar c) { return c.unicode() < 128; });
}

} // namespace

QString plainMessage(const QString &text, const QString &title)
{
    static const QRegularExpression prefix(QStringLiteral(R"(^(\w*-->\w+::?)?\s*(第 \d+ 个字符处：)?)"));
    const QString plain = text.mid(prefix.match(text).capturedLength());
    return withTitle(plain.isEmpty() ? text : plain, isProgramName(title) ? QString() : title);
}

QString wholeMessage(const QString &text, const QString &title)
{
    return withTitle(text, title);
}

} // namespace ebtq::shell
