#include "library/pickers/sel_pdm.h"

#include "contracts/conversions.h"
#include "contracts/null_conv.h"
#include "library/controls/drawn_later.h"
#include "library/pickers/picked_rows.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

enum Column : int { TickColumn = 1, CodeColumn = 2, NameColumn = 3, KeyColumn = 4 };

constexpr int hiddenColumns[] = {KeyColumn};
constexpr int centredColumns[] = {TickColumn};
constexpr PickerGrid grid{.format = u" |选择  |编号      |名称                  |ID",
                          .hidden = hiddenColumns,
                          .centred = centredColumns};

QString tick()
{
    return u"√"_s;
}

QString codeParameter()
{
    return u"编号"_s;
}

QString nameParameter()
{
    return u"名称"_s;
}

QString keyParameter()
{
    return u"ID"_s;
}

/// " where " or another word and the parameter; nothing when it is empty.
QString clause(const QString &word, const QString &parameter)
{
    return parameter.isEmpty() ? QString() : word + parameter;
}

} // namespace

selPdm::selPdm(Desktop &desktop)
    : Picker(u"selPdm"_s, desktop, grid)
{
    connect(&addButton(3, u"全选"_s), &Button::Click, this, [this] { tickAll(tick()); });
    connect(&addButton(4, u"全清"_s), &Button::Click, this, [this] { tickAll({}); });
}

QStringList selPdm::columns() const
{
    return {QString(), parameters().text(codeParameter()), textColumn(), keyColumn()};
}

QString selPdm::keyColumn() const
{
    return parameters().text(keyParameter());
}

QString selPdm::textColumn() const
{
    return parameters().text(nameParameter());
}

/// The null fills the column of ticks.
SqlText selPdm::listStatement()
{
    return u"select null,%1,%2,%3 from %4"_s.arg(parameters().text(codeParameter()), textColumn(),
                                                 keyColumn(), parameters().text(u"table"_s)) +
           clause(u" where "_s, parameters().text(u"where"_s)) +
           clause(u" order by "_s, parameters().text(u"order"_s));
}

SqlText selPdm::checkStatement(const QString &typedText) const
{
    const QString code = parameters().text(codeParameter());
    SqlText sql(
        u"select %1,%2,%3 from %4"_s.arg(code, textColumn(), keyColumn(), parameters().text(u"table"_s)));
    sql += whereAnyEquals({code, textColumn()}, typedText);
    sql += clause(u" and "_s, parameters().text(u"where"_s));
    return sql;
}

std::shared_ptr<const PickedRow> selPdm::emptyRow() const
{
    return std::make_shared<clsPdm>();
}

std::shared_ptr<const PickedRow> selPdm::readRow(const RowReader &read) const
{
    const auto row = std::make_shared<clsPdm>();
    row->lID = NullConv::ToLong(read(keyColumn()));
    row->s编号 = Trim(NullConv::ToText(read(parameters().text(codeParameter()))));
    row->s名称 = Trim(NullConv::ToText(read(textColumn())));
    return row;
}

bool selPdm::choosesByRow() const
{
    return !VS().isColumnInSight(TickColumn);
}

void selPdm::clickRow(int row)
{
    if (isData(row) && !choosesByRow())
        VS().setTextMatrix(row, TickColumn, VS().TextMatrix(row, TickColumn).isEmpty() ? tick() : QString());
}

void selPdm::tickAll(const QString &mark)
{
    drawnLater(VS(), [&] {
        for (int row = VS().FixedRows(); row < VS().Rows(); ++row) {
            if (!VS().TextMatrix(row, CodeColumn).isEmpty())
                VS().setTextMatrix(row, TickColumn, mark);
        }
        return true;
    });
}

/// Without a tick nothing is chosen, not even the current row. Ticks in a column that was hidden by its width
/// do not count.
void selPdm::takeTicked()
{
    if (choosesByRow())
        return;
    QStringList keys;
    QStringList names;
    for (int row = VS().FixedRows(); row < VS().Rows(); ++row) {
        if (VS().TextMatrix(row, TickColumn).isEmpty())
            continue;
        keys.append(NumberText(Val(VS().TextMatrix(row, KeyColumn))));
        names.append(VS().TextMatrix(row, NameColumn));
    }
    setChoice(keys.join(u','), names.join(u','));
}

} // namespace ebtq
