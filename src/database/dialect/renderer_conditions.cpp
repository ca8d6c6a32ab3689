#include "database/dialect/functions.h"
#include "database/dialect/limits.h"
#include "database/dialect/renderer.h"
#include "database/dialect/text_match.h"

namespace ebtq::db {

namespace {

bool isColumn(const Expression &expression)
{
    return expression.as<ColumnReference>() != nullptr;
}

/// The second half of `low<=5 and high>=5`, where one number is asked of two columns.
bool closesRange(const Expression &before, const Expression &each)
{
    const auto *low = before.as<Comparison>();
    const auto *high = each.as<Comparison>();
    if (!low || !high || low->op != Operator::LessOrEqual || high->op != Operator::GreaterOrEqual)
        return false;
    const auto *number = low->right->as<NumberLiteral>();
    const auto *again = high->right->as<NumberLiteral>();
    return number && again && number->value == again->value && isColumn(*low->left) && isColumn(*high->left);
}

/// The iif of `column in (iif(...))`, each branch of which can be compared with the column as it is.
const Call *comparedConditional(const ListTest &test)
{
    if (test.negated || test.items.size() != 1 || !isColumn(*test.value))
        return nullptr;
    const auto *call = test.items.front()->as<Call>();
    if (!call || call->function->form != Function::Form::Iif)
        return nullptr;
    const bool isOneType =
        call->arguments[1]->type == test.value->type && call->arguments[2]->type == test.value->type;
    return isOneType ? call : nullptr;
}

const char *wordOf(Operator op)
{
    switch (op) {
    case Operator::Equal:
        return "=";
    case Operator::NotEqual:
        return "<>";
    case Operator::Less:
        return "<";
    case Operator::LessOrEqual:
        return "<=";
    case Operator::Greater:
        return ">";
    default:
        return ">=";
    }
}

} // namespace

/// An expression of group by must be written as it is in that clause.
void Renderer::condition(const Expression &expression)
{
    if (!m_caselessness.keepsForm(expression) || expression.type != Type::Condition)
        return bareCondition(expression);
    value(expression);
    write("<>0");
}

void Renderer::bareCondition(const Expression &expression)
{
    if (expression.type == Type::Null)
        return value(expression);
    if (expression.type == Type::Condition)
        return std::visit([&](const auto &each) { node(each, expression); }, expression.node);
    operand(expression);
    write("<>0");
}

void Renderer::text(const Expression &expression, Caselessness::Form form)
{
    operand(expression);
    if (form == Caselessness::Form::Exact)
        write(m_dialect.exactType);
    if (form != Caselessness::Form::Collated)
        return;
    if (!isTypedText(expression))
        write(m_dialect.caselessType);
    write(m_dialect.caselessCollation);
}

/// A value that the engine compares with other rows.
void Renderer::caseless(const Expression &expression)
{
    const bool isCollated = Caselessness::isCollatedAlone(Caselessness::operandOf(expression));
    text(expression, isCollated ? Caselessness::Form::Collated : Caselessness::Form::Plain);
}

/// What is compared with a case-insensitive text.
void Renderer::comparedOperand(const Expression &expression)
{
    const bool isCollated = m_caselessness.isCollatedAfter(Caselessness::operandOf(expression));
    text(expression, isCollated ? Caselessness::Form::Collated : Caselessness::Form::Plain);
}

/// Between `between` and `and` the grammar accepts a collation in brackets only.
void Renderer::bound(const Expression &expression)
{
    if (!m_caselessness.isOnBothSides())
        return operand(expression);
    write('(');
    comparedOperand(expression);
    write(')');
}

bool Renderer::isTypedText(const Expression &expression) const
{
    return m_caselessness.keepsForm(expression) &&
           Caselessness::isCollatedAlone(Caselessness::operandOf(expression));
}

void Renderer::comparedOperands(const std::vector<ExpressionPtr> &expressions)
{
    for (size_t at = 0; at < expressions.size(); ++at) {
        if (at > 0)
            write(',');
        if (m_caselessness.isOnBothSides())
            comparedOperand(*expressions[at]);
        else
            value(*expressions[at]);
    }
}

void Renderer::node(const Comparison &comparison, const Expression &self)
{
    const OpenTokens open(*this, open_tokens::operation, self.position);
    compare(*comparison.left, comparison.op, *comparison.right);
}

void Renderer::compare(const Expression &left, Operator op, const Expression &right)
{
    const bool isEquality = op == Operator::Equal || op == Operator::NotEqual;
    const auto sides =
        m_caselessness.sides(Caselessness::operandOf(left), Caselessness::operandOf(right), isEquality);
    text(left, sides.left);
    write(wordOf(op));
    text(right, sides.right);
}

void Renderer::node(const LikeTest &test, const Expression &)
{
    const auto *pattern = test.pattern->as<TextLiteral>();
    const QStringView contained = pattern ? containedText(pattern->value) : QStringView();
    if (!contained.isEmpty() && isCaseless(contained))
        return m_dialect.estimatesPatterns ? exactLike(test) : containment(test, contained);
    const OpenTokens open(*this, open_tokens::call, test.pattern->position);
    if (test.negated)
        write("NOT ");
    beginCall("like");
    value(*test.value);
    write(',');
    value(*test.pattern);
    write(')');
}

void Renderer::containment(const LikeTest &test, QStringView contained)
{
    write(m_dialect.position);
    write('(');
    value(*test.value);
    write(',');
    textLiteral(contained);
    write(test.negated ? ")=0" : ")>0");
}

void Renderer::exactLike(const LikeTest &test)
{
    operand(*test.value);
    write(test.negated ? "::text NOT LIKE " : "::text LIKE ");
    textLiteral(test.pattern->as<TextLiteral>()->value);
    write(" ESCAPE ''");
}

/// Of a column that equals the one or the other, a server estimates next to no rows and joins them badly;
/// of two comparisons it does not.
void Renderer::compareBranches(const Expression &column, const Call &conditional)
{
    write("CASE WHEN ");
    condition(*conditional.arguments[0]);
    write(" THEN ");
    compare(column, Operator::Equal, *conditional.arguments[1]);
    write(" ELSE ");
    compare(column, Operator::Equal, *conditional.arguments[2]);
    write(" END");
}

void Renderer::node(const ListTest &test, const Expression &self)
{
    if (const Call *conditional = comparedConditional(test)) {
        const OpenTokens open(*this, open_tokens::caseForm, self.position);
        return compareBranches(*test.value, *conditional);
    }
    const OpenTokens open(*this, open_tokens::list, self.position);
    caseless(*test.value);
    write(test.negated ? " NOT IN (" : " IN (");
    comparedOperands(test.items);
    write(')');
}

void Renderer::node(const SelectTest &test, const Expression &self)
{
    if (test.value->as<ColumnReference>() && !test.select->where)
        write(m_dialect.testedByRow);
    caseless(*test.value);
    const OpenTokens open(*this, open_tokens::subSelect, self.position);
    write(test.negated ? " NOT IN (" : " IN (");
    select(*test.select, false, false, m_caselessness.isOnBothSides());
    write(')');
}

void Renderer::node(const RangeTest &test, const Expression &self)
{
    const OpenTokens open(*this, open_tokens::range, self.position);
    caseless(*test.value);
    write(test.negated ? " NOT BETWEEN " : " BETWEEN ");
    bound(*test.low);
    write(" AND ");
    bound(*test.high);
}

void Renderer::node(const NullTest &test, const Expression &)
{
    operand(*test.operand);
    write(test.negated ? " IS NOT NULL" : " IS NULL");
}

void Renderer::node(const Not &negation, const Expression &self)
{
    const OpenTokens open(*this, open_tokens::operation, self.position);
    write("NOT ");
    bracketed(*negation.operand, &Renderer::condition);
}

void Renderer::node(const ExistsTest &test, const Expression &self)
{
    const OpenTokens open(*this, open_tokens::subSelect, self.position);
    write("EXISTS (");
    select(*test.select);
    write(')');
}

/// Comparisons need no brackets in a junction; junctions and negations do. Many rows meet one of two stored
/// bounds, few contain the number between them.
void Renderer::junction(const Chain &chain, const char *word)
{
    const auto side = [this](const Expression &each) {
        if (&each == m_rare)
            rare(each);
        else if (each.as<Chain>() || each.as<Not>())
            bracketed(each, &Renderer::condition);
        else
            condition(each);
    };
    side(*chain.first);
    const Expression *before = chain.first.get();
    for (const Chain::Link &link : chain.links) {
        write(word);
        if (link.op == Operator::And && closesRange(*before, *link.operand))
            rare(*link.operand);
        else
            side(*link.operand);
        before = link.operand.get();
    }
}

void Renderer::rare(const Expression &expression)
{
    const bool isSaid = *m_dialect.rareCondition != '\0';
    const OpenTokens open(*this, open_tokens::call, expression.position);
    if (isSaid) {
        write(m_dialect.rareCondition);
        write('(');
    }
    condition(expression);
    if (isSaid)
        write(')');
}

} // namespace ebtq::db
