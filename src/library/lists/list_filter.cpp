#include "library/lists/list_filter.h"

#include "contracts/conversions.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

QString arrayName()
{
    return u"qzTxt"_s;
}

} // namespace

ListFilter::ListFilter(Module &module, const ListFilterTables &tables)
    : ModulePart(module)
    , m_tables(tables)
    , m_lookUps(module, arrayName(), *this)
{
    for (int number = 0; number < 2; ++number) {
        auto &tick = controls().add<CheckBox>(u"Chk"_s, number);
        tick.setCaption(tables.ticks[static_cast<size_t>(number)].toString());
        m_ticks[static_cast<size_t>(number)] = &tick;
    }
    if (!tables.periods.isEmpty()) {
        m_periods = &controls().add<XPCombo>(u"XPCmb"_s);
        m_periods->setCaption(tables.periods.toString());
    }
    for (const FilterField &field : tables.fields) {
        auto &control = controls().add<qzTxt_S>(arrayName(), field.number);
        control.setCaption(field.caption.toString());
        if (!field.text.isEmpty()) {
            control.setText(field.text.toString());
            control.setValue(field.text.toString());
        }
        m_lookUps.add(control, field.lookUp);
    }
}

const FilterField &ListFilter::fieldOf(int number) const
{
    const auto found = std::ranges::find(m_tables.fields, number, &FilterField::number);
    if (found == m_tables.fields.end())
        throw Failure(u"没有编号为 %1 的筛选栏！"_s.arg(number));
    return *found;
}

qzTxt_S &ListFilter::qzTxt(int number)
{
    // The field's row in the table says that the control is there.
    return static_cast<qzTxt_S &>(*controls().find(arrayName(), fieldOf(number).number));
}

CheckBox &ListFilter::Chk(int number)
{
    if (number != 0 && number != 1)
        throw Failure(u"没有编号为%1的选择框！"_s.arg(number));
    return *m_ticks[static_cast<size_t>(number)];
}

void ListFilter::setUp()
{
    m_lookUps.setUp();
    for (const FilterField &field : m_tables.fields)
        setUpCheck(field);
    if (m_periods)
        m_periods->setItems(periodCaptions());
}

void ListFilter::setUpCheck(const FilterField &field)
{
    qzTxt_S &control = qzTxt(field.number);
    if (field.judge != qzTxt_S::JudgeNothing) {
        control.set_judge_type(field.judge);
        control.set_judge_time(qzTxt_S::JudgeOnLeaving);
        control.set_error_message(Trim(field.caption) + FieldLookUps::refusal());
    }
    if (!m_tables.refusalsNameTheField)
        control.set_error_message(FieldLookUps::refusal());
}

SqlText ListFilter::where(const QDateTime &now)
{
    FilterValues values{.first = Chk(0).Value() == 1,
                        .second = Chk(1).Value() == 1,
                        .period = m_periods ? m_periods->Text() : QString()};
    for (const FilterField &field : m_tables.fields) {
        const qzTxt_S &control = qzTxt(field.number);
        values.fields[field.number] = {control.Text(), Val(control.Value())};
    }
    return filterWhere(m_tables.clauses, values, now);
}

void ListFilter::clear(std::span<const int> values)
{
    for (const int number : values)
        qzTxt(number).setValue({});
    for (const FilterField &field : m_tables.fields)
        qzTxt(field.number).setText({});
}

void ListFilter::setParameters(int number, ParameterList &parameters)
{
    const FilterField &field = fieldOf(number);
    for (const FilterField::Parameter &parameter : field.parameters)
        parameters.Item(parameter.name.toString()).Value = parameter.value;
    const QString narrowing = field.narrowedBy < 0 ? QString() : qzTxt(field.narrowedBy).Text();
    if (narrowing.isEmpty())
        return;
    parameters.Item(u"lock"_s).Value = 1;
    parameters.Item(field.narrowedAs.toString()).Value = narrowing;
}

} // namespace ebtq
