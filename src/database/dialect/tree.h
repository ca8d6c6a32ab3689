#pragma once

#include "database/dialect/catalog.h"
#include "database/dialect/functions.h"

#include <QStringView>

#include <memory>
#include <optional>
#include <variant>
#include <vector>

namespace ebtq::db {

/// The tree of one statement. The parser builds it; the resolver fills in what the catalog says (types,
/// columns, the expansion of *) and turns literals into the type they are compared with; the renderers only
/// read it. Names are views into the statement's text.

struct Expression;
struct Select;
using ExpressionPtr = std::unique_ptr<Expression>;
using SelectPtr = std::unique_ptr<Select>;

enum class Operator : quint8 {
    Concatenate, ///< & : Null counts as empty
    Append,      ///< + between texts: Null gives Null
    Add,
    Subtract,
    Multiply,
    Divide,
    IntegerDivide,
    Modulo,
    Power,
    And,
    Or,
    Equal,
    NotEqual,
    Less,
    LessOrEqual,
    Greater,
    GreaterOrEqual,
};

struct NullLiteral
{};
struct TextLiteral
{
    QString value; ///< shares the statement's memory where it can
};
struct NumberLiteral
{
    double value;
};
struct DateLiteral
{
    QString stored;
};
struct ColumnReference
{
    QStringView qualifier; ///< empty when not written
    QStringView name;
    int source = -1; ///< number of the source in the statement; set by the resolver, as is what follows
    int index = -1;
    const Column *column = nullptr;
    bool isDerived = false;   ///< a column of a sub-select in from
    bool isUnindexed = false; ///< a column of a table, known to begin no index
};
struct Negation
{
    ExpressionPtr operand;
};
/// Operands of one rank, joined from the left: a - b + c. Never nested for its own sake, so that a long one
/// needs no recursion.
struct Chain
{
    struct Link
    {
        Operator op;
        ExpressionPtr operand;
    };
    ExpressionPtr first;
    std::vector<Link> links;
};
struct Comparison
{
    Operator op;
    ExpressionPtr left;
    ExpressionPtr right;
};
struct LikeTest
{
    bool negated;
    ExpressionPtr value;
    ExpressionPtr pattern;
};
struct ListTest
{
    bool negated;
    ExpressionPtr value;
    std::vector<ExpressionPtr> items;
};
struct SelectTest
{
    bool negated;
    ExpressionPtr value;
    SelectPtr select;
};
struct RangeTest
{
    bool negated;
    ExpressionPtr value;
    ExpressionPtr low;
    ExpressionPtr high;
};
struct NullTest
{
    bool negated;
    ExpressionPtr operand;
};
struct Not
{
    ExpressionPtr operand;
};
struct ExistsTest
{
    SelectPtr select;
};
struct SubSelect
{
    SelectPtr select;
};
struct Call
{
    const Function *function;
    std::vector<ExpressionPtr> arguments;
    bool isDistinct = false;
    bool isStar = false; ///< count(*)
};
/// The operand in the type of this expression.
struct Conversion
{
    ExpressionPtr operand;
};

struct Expression
{
    using Node = std::variant<NullLiteral, TextLiteral, NumberLiteral, DateLiteral, ColumnReference, Negation,
                              Chain, Comparison, LikeTest, ListTest, SelectTest, RangeTest, NullTest, Not,
                              ExistsTest, SubSelect, Call, Conversion>;
    Node node;
    qsizetype position; ///< where it begins, for messages
    qsizetype end;
    Type type = Type::Null;
    int height = 1;         ///< of the tree below as an engine counts it, with room for what rendering adds
    bool isGrouped = false; ///< is an expression of group by, or reads like one; set by the resolver

    template<class T> [[nodiscard]] const T *as() const { return std::get_if<T>(&node); }
    template<class T> [[nodiscard]] T *as() { return std::get_if<T>(&node); }
};

struct SelectItem
{
    ExpressionPtr expression; ///< none for a star, which the resolver replaces by the columns
    QStringView alias;        ///< the alias; for a star its qualifier
    qsizetype position;
};

/// A table or a sub-select in the from clause.
struct Source
{
    int number;
    QStringView table;
    QStringView alias;
    qsizetype position;
    SelectPtr derived;
    const Catalog::Table *resolved = nullptr;
    [[nodiscard]] QStringView name() const { return alias.isEmpty() ? table : alias; }
};

enum class JoinKind : quint8 { Inner, Left, Right };

struct FromItem
{
    size_t source = 0; ///< in Select::sources; of a join the first one of its left side
    size_t last = 0;   ///< the last source that belongs to it
    std::unique_ptr<FromItem> left;
    std::unique_ptr<FromItem> right;
    JoinKind kind = JoinKind::Inner;
    ExpressionPtr condition;
    [[nodiscard]] bool isJoin() const { return left != nullptr; }
};

struct OrderItem
{
    ExpressionPtr expression;
    std::optional<size_t> resultColumn; ///< the item of the select list that it names; set by the resolver
    bool isDescending = false;
};

struct Select
{
    qsizetype position = 0;
    bool isDistinct = false;
    std::optional<qint64> top;
    std::vector<SelectItem> items;
    std::vector<Source> sources;
    std::vector<FromItem> from; ///< separated by commas
    ExpressionPtr where;
    std::vector<ExpressionPtr> groupBy;
    ExpressionPtr having;
    std::vector<OrderItem> orderBy;
    std::vector<Column> columns; ///< of the result; set by the resolver
    bool isGrouped = false;      ///< group by or an aggregate; set by the resolver
};

struct Target
{
    ExpressionPtr column;
    ExpressionPtr value; ///< none in an insert
};

struct Insert
{
    Source table;
    std::vector<Target> columns; ///< empty: all of the table
    std::vector<ExpressionPtr> values;
    SelectPtr select; ///< in place of values
};

struct Update
{
    Source table;
    std::vector<Target> assignments;
    ExpressionPtr where;
};

struct Delete
{
    Source table;
    ExpressionPtr where;
};

using Statement = std::variant<SelectPtr, Insert, Update, Delete>;

} // namespace ebtq::db
