#include "database/dialect/guard.h"

#include "database/dialect/errors.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

bool isLiteral(const Token &token)
{
    return token.kind == TokenKind::Text || token.kind == TokenKind::Number || token.kind == TokenKind::Date;
}

bool isInside(const SqlText::Span &span, const Token &token, QStringView text)
{
    if (!isLiteral(token) || span.begin < token.contentBegin() || span.end() > token.contentEnd())
        return false;
    return !token.isDelimited() || !text.sliced(span.begin, span.length).contains(text[token.begin]);
}

[[noreturn]] void refuse(const SqlText::Span &span, const Token &token, QStringView text)
{
    const QStringView value = text.sliced(span.begin, span.length);
    if (value.contains(u'\''))
        throw DialectError(span.begin, u"输入的内容中含有单引号（'），无法执行，请去掉后重试！"_s);
    const bool isDate = token.kind == TokenKind::Date || token.kind == TokenKind::UnclosedDate;
    fail(span.begin, isDate ? u"输入的日期%1有误，请修改后重试！"_s.arg(quoted(value))
                            : u"输入的内容%1不能用在这里，请修改后重试！"_s.arg(quoted(value)));
}

} // namespace

void checkTypedSpans(const SqlText &statement, const std::vector<Token> &tokens)
{
    const QStringView text = statement.text();
    auto token = tokens.begin();
    for (const SqlText::Span &span : statement.typedSpans()) {
        token =
            std::find_if(token, tokens.end() - 1, [&](const Token &each) { return each.end > span.begin; });
        if (!isInside(span, *token, text))
            refuse(span, *token, text);
    }
}

} // namespace ebtq::db
