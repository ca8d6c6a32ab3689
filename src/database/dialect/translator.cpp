#include "database/dialect/translator.h"

#include "database/dialect/guard.h"
#include "database/dialect/parser.h"
#include "database/dialect/renderer.h"
#include "database/dialect/resolver.h"

namespace ebtq::db {

namespace {

StatementKind kindOf(const Statement &statement)
{
    constexpr StatementKind kinds[] = {StatementKind::Select, StatementKind::Insert, StatementKind::Update,
                                       StatementKind::Delete};
    return kinds[statement.index()];
}

} // namespace

/// The guard runs before the parser: a value that breaks its quotes is reported as such, not by the syntax
/// error that follows from it.
Translation translate(const SqlText &statement, const Dialect &dialect, const Catalog &catalog)
{
    const QStringView text = statement.text();
    const std::vector<Token> tokens = tokenize(text);
    checkTypedSpans(statement, tokens);
    Statement tree = Parser(text, tokens).statement();
    Resolver(text, catalog).resolve(tree);
    Renderer renderer(dialect);
    Translation result{renderer.render(tree, text.size()), kindOf(tree), {}, renderer.counts()};
    if (const auto *select = std::get_if<SelectPtr>(&tree))
        result.columns = std::move((*select)->columns);
    return result;
}

} // namespace ebtq::db
