#pragma once

#include "database/dialect/blob_places.h"
#include "database/dialect/caselessness.h"
#include "database/dialect/dialect.h"
#include "database/dialect/keyed_count.h"
#include "database/dialect/translator.h"

namespace ebtq::db {

/// Writes a resolved tree in an engine's language. Sources are named t0, t1, ... and every column is
/// qualified, so no name of the statement can clash with another or with a word of the engine.
class Renderer
{
public:
    /// The engine is told that few rows meet the condition `rare`.
    explicit Renderer(const Dialect &dialect, const Expression *rare = nullptr)
        : m_dialect(dialect)
        , m_caselessness(dialect)
        , m_rare(rare)
    {}
    /// Throws DialectError for what is nested deeper than the engine's parser allows.
    [[nodiscard]] QByteArray render(const Statement &statement, qsizetype sizeHint);
    /// The count of a plan by this bound on this table.
    [[nodiscard]] QByteArray countWithin(const Source &table, const Expression &bound);
    /// The counts to be read in addition to the rendered select.
    [[nodiscard]] const std::vector<CountStatement> &counts() const { return m_counts; }

private:
    class OpenTokens;

    void write(QLatin1String text) { m_out.append(text.data(), text.size()); }
    void write(const char *text) { m_out.append(text); }
    void write(char c) { m_out.append(c); }
    void utf8(QStringView text, char16_t doubled);
    void identifier(QStringView name);
    void textLiteral(QStringView text);
    void sourceName(int number);

    void statement(const Insert &insert);
    void statement(const Update &update);
    void statement(const Delete &deletion);
    void statement(const SelectPtr &select);
    void table(const Source &source);
    void where(const ExpressionPtr &condition);

    void select(const Select &select, bool isDerived = false, bool isSingle = false, bool isCompared = false);
    void items(const Select &select, bool isDerived, bool isCompared);
    void countApart(size_t column, const KeyedCount &count);
    void keyOf(const BlobPlace &place);
    [[nodiscard]] QByteArray countStatement(const KeyedCount &count);
    void from(const Select &select);
    void fromItem(const FromItem &item, const Select &select);
    void joinSide(const FromItem &item, const Select &select);
    void groupBy(const Select &select);
    void orderBy(const Select &select);
    void limit(const Select &select, bool isSingle);
    void fewRowsOf(const Source &table);

    void value(const Expression &expression);
    void condition(const Expression &expression);
    void bareCondition(const Expression &expression);
    void operand(const Expression &expression);
    void bracketed(const Expression &expression, void (Renderer::*write)(const Expression &));
    void caseless(const Expression &expression);
    void text(const Expression &expression, Caselessness::Form form);
    void comparedOperand(const Expression &expression);
    void bound(const Expression &expression);
    void compare(const Expression &left, Operator op, const Expression &right);
    void compareBranches(const Expression &column, const Call &conditional);
    void containment(const LikeTest &test, QStringView contained);
    void exactLike(const LikeTest &test);
    void comparedOperands(const std::vector<ExpressionPtr> &expressions);
    /// Whether it is cast to the case-insensitive type wherever it is written.
    [[nodiscard]] bool isTypedText(const Expression &expression) const;
    void real(const Expression &expression);
    void typedNull(const Expression &null, Type type);
    void list(const std::vector<ExpressionPtr> &expressions, size_t from = 0);
    void beginCall(const char *name);

    void node(const NullLiteral &, const Expression &);
    void node(const TextLiteral &literal, const Expression &);
    void node(const NumberLiteral &literal, const Expression &);
    void node(const DateLiteral &literal, const Expression &);
    void node(const ColumnReference &reference, const Expression &);
    void node(const Negation &negation, const Expression &self);
    void node(const Chain &chain, const Expression &self);
    void node(const Comparison &comparison, const Expression &self);
    void node(const LikeTest &test, const Expression &);
    void node(const ListTest &test, const Expression &self);
    void node(const SelectTest &test, const Expression &self);
    void node(const RangeTest &test, const Expression &self);
    void node(const NullTest &test, const Expression &);
    void node(const Not &negation, const Expression &self);
    void node(const ExistsTest &test, const Expression &self);
    void node(const SubSelect &select, const Expression &self);
    void node(const Call &call, const Expression &self);
    void node(const Conversion &conversion, const Expression &self);

    void plainCall(const Call &call, const Expression &self);
    void aggregate(const Call &call, const Expression &self);
    void conditional(const Call &call, const Expression &self);
    void switched(const Call &call, const Expression &self);
    void chosen(const Call &call, const Expression &self);
    void instr(const Call &call, const Expression &self);
    void concatenation(const Chain &chain);
    void joined(const Expression &expression);
    void joinedByFunction(const std::vector<const Expression *> &operands);
    void joinArgument(const Expression &expression);
    void asText(const Expression &expression);
    void arithmetic(const Chain &chain);
    void quotients(const Chain &chain);
    void nestedCalls(const Chain &chain, const Expression &self);
    void junction(const Chain &chain, const char *word);
    void rare(const Expression &expression);

    const Dialect &m_dialect;
    const Caselessness m_caselessness;
    const Expression *const m_rare;
    QByteArray m_out;
    const Select *m_list = nullptr; ///< the statement itself, if it is a select
    std::vector<CountStatement> m_counts;
    int m_openTokens = 0;
};

/// Counts the tokens on the stack of the engine's parser while it reads what is inside.
class Renderer::OpenTokens
{
public:
    OpenTokens(Renderer &renderer, int count, qsizetype position);
    OpenTokens(const OpenTokens &) = delete;
    OpenTokens &operator=(const OpenTokens &) = delete;
    ~OpenTokens() { m_renderer.m_openTokens -= m_count; }

private:
    Renderer &m_renderer;
    int m_count;
};

} // namespace ebtq::db
