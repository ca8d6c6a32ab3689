#include "database/dialect/errors.h"
#include "database/dialect/parser.h"

using namespace Qt::StringLiterals;

namespace ebtq::db {

SelectPtr Parser::select()
{
    const Level level(*this);
    auto result = std::make_unique<Select>();
    result->position = token().begin;
    step();
    result->isDistinct = take(Keyword::Distinct);
    top(*result);
    selectItems(*result);
    from(*result);
    result->where = where();
    groupBy(*result);
    if (take(Keyword::Having))
        result->having = expression();
    orderBy(*result);
    return result;
}

void Parser::top(Select &select)
{
    if (!take(Keyword::Top))
        return;
    bool isWhole = false;
    const qlonglong count = textOf(token()).toLongLong(&isWhole);
    if (token().kind != TokenKind::Number || !isWhole)
        unexpected(u"整数"_s);
    select.top = count;
    step();
}

void Parser::selectItems(Select &select)
{
    do
        select.items.push_back(selectItem());
    while (take(Symbol::Comma));
}

SelectItem Parser::selectItem()
{
    const qsizetype position = token().begin;
    if (take(Symbol::Star))
        return {nullptr, {}, position};
    if (atName() && token(1).symbol == Symbol::Dot && token(2).symbol == Symbol::Star) {
        const QStringView qualifier = name(u"表名"_s);
        step();
        step();
        return {nullptr, qualifier, position};
    }
    ExpressionPtr value = expression();
    const QStringView alias = take(Keyword::As) ? name(u"别名"_s) : QStringView();
    return {std::move(value), alias, position};
}

void Parser::from(Select &select)
{
    if (!take(Keyword::From)) {
        if (token().kind == TokenKind::Word && token().keyword == Keyword::None)
            unexpected(u"“,”、as 或 from"_s);
        return;
    }
    do
        select.from.push_back(joined(select));
    while (take(Symbol::Comma));
}

std::optional<JoinKind> Parser::joinKind()
{
    JoinKind kind = JoinKind::Inner;
    if (take(Keyword::Left))
        kind = JoinKind::Left;
    else if (take(Keyword::Right))
        kind = JoinKind::Right;
    else if (!at(Keyword::Join) && !take(Keyword::Inner))
        return std::nullopt;
    if (kind != JoinKind::Inner)
        take(Keyword::Outer);
    expect(Keyword::Join, u" join"_s);
    return kind;
}

/// One join at most: another one must enclose it in brackets, and nothing in this system is written
/// otherwise.
FromItem Parser::joined(Select &select)
{
    FromItem left = joinPart(select);
    const std::optional<JoinKind> kind = joinKind();
    if (!kind)
        return left;
    FromItem join;
    join.kind = *kind;
    join.source = left.source;
    join.left = std::make_unique<FromItem>(std::move(left));
    join.right = std::make_unique<FromItem>(joinPart(select));
    join.last = select.sources.size() - 1;
    expect(Keyword::On, u" on"_s);
    join.condition = expression();
    const qsizetype position = token().begin;
    if (at(Keyword::Join) || at(Keyword::Inner) || at(Keyword::Left) || at(Keyword::Right))
        fail(position, u"连接三个以上的表要加括号，如 from (甲 left join 乙 on …) left join 丙 on …"_s);
    return join;
}

FromItem Parser::joinPart(Select &select)
{
    if (!at(Symbol::Open) || token(1).keyword == Keyword::Select)
        return source(select);
    const Level level(*this);
    step();
    FromItem inner = joined(select);
    expect(Symbol::Close, u"“)”或 left join、inner join"_s);
    return inner;
}

FromItem Parser::source(Select &select)
{
    const size_t index = select.sources.size();
    if (!at(Symbol::Open)) {
        select.sources.push_back(table());
    } else {
        const qsizetype position = token().begin;
        step();
        SelectPtr derived = this->select();
        expect(Symbol::Close, u"“)”"_s);
        take(Keyword::As);
        const QStringView alias = name(u"子查询的别名"_s);
        select.sources.push_back({m_sources++, {}, alias, position, std::move(derived)});
    }
    FromItem item;
    item.source = index;
    item.last = index;
    return item;
}

void Parser::groupBy(Select &select)
{
    if (!take(Keyword::Group))
        return;
    expect(Keyword::By, u" by"_s);
    select.groupBy = expressions();
}

void Parser::orderBy(Select &select)
{
    if (!take(Keyword::Order))
        return;
    expect(Keyword::By, u" by"_s);
    do {
        OrderItem item;
        item.expression = expression();
        item.isDescending = take(Keyword::Desc);
        if (!item.isDescending)
            take(Keyword::Asc);
        select.orderBy.push_back(std::move(item));
    } while (take(Symbol::Comma));
}

} // namespace ebtq::db
