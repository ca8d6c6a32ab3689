#include "screens/look/message_text.h"

#include <QLoggingCategory>
#include <QRegularExpression>

#include <algorithm>

namespace ebtq::look {

namespace {

Q_LOGGING_CATEGORY(messages, "ebtq.messages")

QString withTitle(const QString &text, const QString &title)
{
    static const QRegularExpression colon(QStringLiteral("[:：]$"));
    return title.isEmpty() ? text : QString(title).remove(colon) + u'：' + text;
}

bool isModuleName(const QString &title)
{
    return std::ranges::all_of(title, [](QChar c) { return c.unicode() < 128; });
}

} // namespace

QString plainMessage(const QString &text)
{
    // An operation's name without an arrow is known by a capital inside it: "ERROR:" and "C:" stay.
    static const QRegularExpression operation(
        QStringLiteral(R"(^\s*(\w*-->\w+|[A-Za-z_]*[a-z][A-Z][A-Za-z_]*)::?\s*)"),
        QRegularExpression::UseUnicodePropertiesOption);
    static const QRegularExpression position(QStringLiteral(R"((^|[:：]\s*)第 \d+ 个字符处：)"));
    QString plain = text;
    plain.remove(operation).replace(position, QStringLiteral("\\1"));
    return plain.isEmpty() ? text : plain;
}

QString plainMessage(const QString &text, const QString &title)
{
    return withTitle(plainMessage(text), isModuleName(title) ? QString() : title);
}

QString messageToolTip(const QString &text, const QString &title)
{
    return QStringLiteral("<p style='white-space:pre-wrap'>%1</p>")
        .arg(withTitle(text, title).toHtmlEscaped());
}

void logMessage(const QString &text, const QString &title)
{
    qCInfo(messages, "%s", qUtf8Printable(withTitle(text, title)));
}

} // namespace ebtq::look
