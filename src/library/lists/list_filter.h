#pragma once

#include "library/controls/check_box.h"
#include "library/controls/combo_box.h"
#include "library/lists/filter_clauses.h"
#include "library/records/field_look_ups.h"

#include <array>
#include <span>

namespace ebtq {

/// A filter field and how it is looked up.
struct FilterField
{
    /// A parameter that the field's picker always gets.
    struct Parameter
    {
        QStringView name;
        int value;
    };

    int number;
    QStringView caption;
    LookUp lookUp = {};
    std::span<const Parameter> parameters = {};
    /// The field whose text narrows the picker when there is one, as its parameter `narrowedAs`, with "lock";
    /// -1 for none.
    int narrowedBy = -1;
    QStringView narrowedAs = {};
    QStringView text = {};                            ///< its initial text and value
    qzTxt_S::JudgeType judge = qzTxt_S::JudgeNothing; ///< how a text is checked that is not looked up
};

/// The filter row of a list. All of it is constant.
struct ListFilterTables
{
    std::span<const FilterField> fields;
    std::array<QStringView, 2> ticks; ///< captions of the boxes Chk
    QStringView periods = u"最近";    ///< caption of the combo box XPCmb; empty for a filter without
    std::span<const FilterClause> clauses;
    bool refusalsNameTheField = true; ///< of a text that is not found
};

/// The filter controls of a list module, an array qzTxt, and the where clause that they make.
class ListFilter : public QObject, private ModulePart, private LookUpRules
{
    Q_OBJECT

public:
    /// Adds the controls to the module's.
    ListFilter(Module &module, const ListFilterTables &tables);

    /// Throws Failure for a number without a field.
    [[nodiscard]] qzTxt_S &qzTxt(int number);
    /// Numbers 0 and 1.
    [[nodiscard]] CheckBox &Chk(int number);
    [[nodiscard]] bool hasPeriods() const { return m_periods; }
    /// Only of a filter with periods.
    [[nodiscard]] XPCombo &XPCmb() { return *m_periods; }

    /// Part of the module's Init.
    void setUp();
    [[nodiscard]] SqlText where(const QDateTime &now);
    /// Empties the texts of all fields, and the values of some: nothing reads the others. The period stays.
    void clear(std::span<const int> values);

private:
    void setParameters(int number, ParameterList &parameters) override;
    bool check(int number, const Check &check) override { return m_lookUps.lookUp(number, check); }
    void setUpCheck(const FilterField &field);
    [[nodiscard]] const FilterField &fieldOf(int number) const;

    ListFilterTables m_tables;
    FieldLookUps m_lookUps;
    std::array<CheckBox *, 2> m_ticks;
    XPCombo *m_periods = nullptr;
};

} // namespace ebtq
