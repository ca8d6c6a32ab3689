#include "screens/look/message_text.h"

#include <QLoggingCategory>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq::look {

namespace {

Q_LOGGING_CATEGORY(messages, "ebtq.messages")

QString withTitle(const QString &text, const QString &title)
{
    static const QRegularExpression colon(u"[:：]$"_s);
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
    static const QRegularExpression operation(uR"(^\s*(\w*-->\w+|[A-Za-z_]*[a-z]_?[A-Z][A-Za-z_]*)::?\s*)"_s,
                                              QRegularExpression::UseUnicodePropertiesOption);
    static const QRegularExpression position(uR"((^|[:：]\s*)第 \d+ 个字符处：)"_s);
    QString plain = text;
    plain.remove(operation).replace(position, u"\\1"_s);
    return plain.isEmpty() ? text : plain;
}

QString plainMessage(const QString &text, const QString &title)
{
    return withTitle(plainMessage(text), isModuleName(title) ? QString() : title);
}

QString messageToolTip(const QString &text, const QString &title)
{
    return u"<p style='white-space:pre-wrap'>%1</p>"_s.arg(withTitle(text, title).toHtmlEscaped());
}

void logMessage(const QString &text, const QString &title)
{
    qCInfo(messages, "%s", qUtf8Printable(withTitle(text, title)));
}

} // namespace ebtq::look
