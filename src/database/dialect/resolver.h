#pragma once

#include "database/dialect/tree.h"

namespace ebtq::db {

/// Looks up each name of a statement in the catalog and infers the type of each expression: expands stars,
/// converts literals to the type they are compared with or assigned to, and inserts conversions where types
/// differ. Throws DialectError for what does not match.
class Resolver
{
public:
    Resolver(QStringView text, const Catalog &catalog)
        : m_text(text)
        , m_catalog(catalog)
    {}
    void resolve(Statement &statement);

private:
    /// The sources that a name may mean, and those of the statement around.
    struct Scope
    {
        const Source *sources = nullptr;
        size_t first = 0;
        size_t end = 0;
        const Scope *outer = nullptr;
        bool takesAggregates = false;
        bool hasAggregate = false;
    };

    void select(Select &select, const Scope *outer);
    void sources(Select &select, const Scope *outer);
    void joinConditions(FromItem &item, const Select &select, const Scope *outer);
    void expandStars(Select &select);
    void expandStar(const SelectItem &star, const Select &select, std::vector<SelectItem> &into);
    void resultColumns(Select &select);
    void orderBy(Select &select, Scope &scope);
    bool orderByResult(OrderItem &item, const Select &select);
    void checkDistinctOrder(const Select &select);
    void checkGroups(Select &select);
    void checkGroupTerms(const Select &select);
    void checkGrouped(Expression &expression, const Select &select);
    void checkGroupedInside(const Select &inner, const Select &select) const;
    void checkGroupedInside(const Expression &expression, const Select &select) const;
    void table(Source &source);
    void insert(Insert &insert);
    void insertSelect(Insert &insert, const std::vector<const Column *> &columns);
    void update(Update &update);
    void deletion(Delete &deletion);
    const Column *target(const Target &target, const Source &source,
                         const std::vector<const Column *> &before);
    void assign(ExpressionPtr &value, const Column &column);
    void condition(ExpressionPtr &expression, Scope &scope);
    bool lookUp(ColumnReference &reference, const Scope &scope, qsizetype position);
    bool isSame(const Expression &one, const Expression &other) const;

    void expression(ExpressionPtr &self, Scope &scope);
    void expressions(std::vector<ExpressionPtr> &list, Scope &scope);
    Type infer(NullLiteral &, Expression &, Scope &);
    Type infer(TextLiteral &, Expression &, Scope &);
    Type infer(NumberLiteral &node, Expression &, Scope &);
    Type infer(DateLiteral &, Expression &, Scope &);
    Type infer(ColumnReference &node, Expression &self, Scope &scope);
    Type infer(Negation &node, Expression &, Scope &scope);
    Type infer(Chain &node, Expression &self, Scope &scope);
    Type infer(Comparison &node, Expression &, Scope &scope);
    Type infer(LikeTest &node, Expression &, Scope &scope);
    Type infer(ListTest &node, Expression &, Scope &scope);
    Type infer(SelectTest &node, Expression &self, Scope &scope);
    Type infer(RangeTest &node, Expression &, Scope &scope);
    Type infer(NullTest &node, Expression &, Scope &scope);
    Type infer(Not &node, Expression &, Scope &scope);
    Type infer(ExistsTest &node, Expression &, Scope &scope);
    Type infer(SubSelect &node, Expression &self, Scope &scope);
    Type infer(Call &node, Expression &self, Scope &scope);
    Type infer(Conversion &node, Expression &self, Scope &scope);

    void checkAggregate(const Call &node, const Expression &self, const Scope &scope) const;
    Type callType(Call &node, const Expression &self);
    Type unite(std::vector<ExpressionPtr> &arguments, size_t first, size_t step);
    Type nzType(Call &node, const Expression &self);
    Type switchType(Call &node, const Expression &self);
    Type instrType(Call &node);
    void plainArguments(Call &node);
    void argument(ExpressionPtr &value, char letter);
    void requireCondition(const Expression &value);
    void requireOneColumn(const Select &select);
    void toNumber(ExpressionPtr &value);
    void toText(ExpressionPtr &value);
    Type productType(Chain &node);
    void foldSum(ExpressionPtr &self);
    ExpressionPtr sum(Operator op, ExpressionPtr left, ExpressionPtr right);
    ExpressionPtr dateSum(Operator op, ExpressionPtr left, ExpressionPtr right);
    ExpressionPtr numericSum(Operator op, ExpressionPtr left, ExpressionPtr right);
    void makeComparable(ExpressionPtr &left, ExpressionPtr &right);
    void refuseNumberInTextOrder(const Expression &value, const Expression &bound) const;
    void measure(Expression &self);
    [[nodiscard]] QString describe(const Expression &expression) const;

    QStringView m_text;
    const Catalog &m_catalog;
};

} // namespace ebtq::db
