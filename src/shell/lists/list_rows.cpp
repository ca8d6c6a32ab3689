#include "shell/lists/list_rows.h"

#include <QMetaObject>
#include <QVariant>

namespace ebtq::shell {

int ListRows::number(const char *property) const
{
    return m_grid ? m_grid->property(property).toInt() : 0;
}

QString ListRows::cell(int row, int column) const
{
    QString text;
    QMetaObject::invokeMethod(m_grid, "TextMatrix", Q_RETURN_ARG(QString, text), Q_ARG(int, row),
                              Q_ARG(int, column));
    return text;
}

int ListRows::columnOf(QStringView caption) const
{
    for (int column = 0; column < number("Cols"); ++column) {
        if (cell(0, column).trimmed() == caption)
            return column;
    }
    return -1;
}

int ListRows::count() const
{
    return number("Rows") - number("FixedRows");
}

QStringList ListRows::column(QStringView caption) const
{
    QStringList cells;
    const int column = columnOf(caption);
    for (int row = number("FixedRows"); column >= 0 && row < number("Rows"); ++row)
        cells.append(cell(row, column));
    return cells;
}

QString ListRows::currentColumn() const
{
    bool isHidden = true;
    const int column = number("Col");
    QMetaObject::invokeMethod(m_grid, "ColHidden", Q_RETURN_ARG(bool, isHidden), Q_ARG(int, column));
    return isHidden ? QString() : cell(0, column).trimmed();
}

QString ListRows::current(QStringView caption) const
{
    const int row = number("Row");
    const int column = columnOf(caption);
    const bool isRow = row >= number("FixedRows") && row < number("Rows");
    return isRow && column >= 0 ? cell(row, column) : QString();
}

} // namespace ebtq::shell
