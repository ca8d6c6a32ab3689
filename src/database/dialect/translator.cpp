#include "database/dialect/translator.h"

#include "database/dialect/blob_places.h"
#include "database/dialect/guard.h"
#include "database/dialect/lone_bounds.h"
#include "database/dialect/parser.h"
#include "database/dialect/renderer.h"
#include "database/dialect/resolver.h"

#include <limits>

namespace ebtq::db {

namespace {

StatementKind kindOf(const Statement &statement)
{
    constexpr StatementKind kinds[] = {StatementKind::Select, StatementKind::Insert, StatementKind::Update,
                                       StatementKind::Delete};
    return kinds[statement.index()];
}

std::vector<Column> columnsOf(Select &select)
{
    std::vector<Column> columns = std::move(select.columns);
    for (size_t at = 0; at < columns.size(); ++at) {
        const auto place = blobPlace(*select.items[at].expression, select);
        if (!place)
            continue;
        columns[at].type = ColumnType::Integer;
        columns[at].blob = BlobColumn{place->source->resolved->name, place->column->column->name};
    }
    return columns;
}

std::vector<PlanByBound> plansByBound(const Statement &tree, const Dialect &dialect, qsizetype sizeHint)
{
    const auto *select = std::get_if<SelectPtr>(&tree);
    if (*dialect.rareCondition == '\0' || !select)
        return {};
    std::vector<PlanByBound> plans;
    for (const Expression *bound : loneBounds(**select))
        plans.push_back({Renderer(dialect).countWithin((*select)->sources.front(), *bound),
                         Renderer(dialect, bound).render(tree, sizeHint)});
    return plans;
}

} // namespace

const QByteArray &Translation::bestSql(const std::function<CountWithin(const QByteArray &)> &run) const
{
    const QByteArray *best = &sql;
    qint64 least = std::numeric_limits<qint64>::max();
    for (const PlanByBound &plan : plansByBound) {
        const auto [rows, fewRows] = run(plan.count);
        if (rows >= fewRows || rows >= least)
            continue;
        least = rows;
        best = &plan.sql;
    }
    return *best;
}

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
    Translation result{renderer.render(tree, text.size()),
                       kindOf(tree),
                       {},
                       renderer.counts(),
                       plansByBound(tree, dialect, text.size())};
    if (const auto *select = std::get_if<SelectPtr>(&tree))
        result.columns = columnsOf(**select);
    return result;
}

} // namespace ebtq::db
