#include "library/layout/grid_layout.h"

#include "contracts/color_parts.h"
#include "contracts/conversions.h"
#include "contracts/host_contracts.h"
#include "library/controls/drawn_later.h"
#include "library/layout/ini_store.h"
#include "library/layout/layout_file.h"

#include <QFileInfo>

#include <algorithm>
#include <numeric>
#include <optional>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int parameterGroup = 12;
/// The largest sensible number of decimals; a wrong entry must not make a format of millions of characters.
constexpr int mostDecimals = 15;
constexpr int groupColor = 128;
constexpr int totalBackColor = 0xFFFF80;

/// In a file a yes is 1 and a no is 2.
QString yesNo(bool yes)
{
    return yes ? u"1"_s : u"2"_s;
}

QString columnKey(int column)
{
    return u"VsCol%1"_s.arg(column);
}

/// Suffix of a grid's section names, so that all grids of a screen share one file.
QString suffixOf(const VSFlexGrid &grid)
{
    const int index = ControlIndex(grid);
    const QString number = index == -1 ? QString() : u"_%1"_s.arg(index);
    return grid.Name().toUpper() == u"VS" ? number : u'_' + grid.Name() + number;
}

// What is written

struct ColumnKey
{
    QStringView section;
    bool isWidth; ///< written also when only widths are kept
    std::optional<QString> (*text)(const VSFlexGrid &grid, int column);
};

using MaybeText = std::optional<QString>;

/// A column without a width keeps the one in the file for the day when it is shown again.
constexpr ColumnKey columnKeys[] = {
    {u"VsIsHidden", true,
     [](const VSFlexGrid &grid, int col) { return MaybeText(yesNo(grid.ColWidth(col) == 0)); }},
    {u"VsColWidth", true,
     [](const VSFlexGrid &grid, int col) {
         const int width = grid.ColWidth(col);
         return width > 0 ? MaybeText(QString::number(width)) : std::nullopt;
     }},
    {u"VsIsColMerge", false,
     [](const VSFlexGrid &grid, int col) { return MaybeText(yesNo(grid.MergeCol(col))); }},
    {u"VsColDataType", false,
     [](const VSFlexGrid &grid, int col) { return MaybeText(QString::number(grid.ColDataType(col))); }},
    {u"VsColFormat", false, [](const VSFlexGrid &grid, int col) { return MaybeText(grid.ColFormat(col)); }},
    {u"VsColAlignment", false,
     [](const VSFlexGrid &grid, int col) { return MaybeText(QString::number(grid.ColAlignment(col))); }},
};

void saveColumn(IniStore &store, const VSFlexGrid &grid, int column, bool onlyColWidth)
{
    for (const ColumnKey &key : columnKeys) {
        if (onlyColWidth && !key.isWidth)
            continue;
        if (const auto text = key.text(grid, column))
            store.SetString(key.section.toString() + suffixOf(grid), columnKey(column), *text);
    }
}

/// Only an order that a user changed gets a key.
void saveOrder(IniStore &store, const VSFlexGrid &grid)
{
    const QString section = u"VsColPosition"_s + suffixOf(grid);
    const std::vector<int> &order = grid.columnOrder();
    if (std::ranges::is_sorted(order))
        return store.removeSection(section);
    for (size_t place = 0; place < order.size(); ++place)
        store.SetInt(section, columnKey(order[place]), static_cast<int>(place));
}

void saveLook(IniStore &store, const VSFlexGrid &grid)
{
    const QString section = u"Vs"_s + suffixOf(grid);
    if (grid.Rows() > grid.FixedRows())
        store.SetInt(section, u"VsRowHeight"_s, grid.RowHeight(grid.FixedRows()));
    if (grid.FixedRows() > 0)
        store.SetInt(section, u"VsFixedRowHeight"_s, grid.RowHeight(0));
    store.SetInt(section, u"VsFixedCols"_s, grid.FrozenCols());
    store.SetInt(section, u"VsGridColor"_s, grid.GridColor());
    store.SetString(section, u"VsWordWrap"_s, yesNo(grid.WordWrap()));
}

// What is read

struct DecimalsParameter
{
    int kind; ///< value of VsColValDataType
    int key;
};
constexpr DecimalsParameter decimalsParameters[] = {{1, 7},  {2, 8},  {3, 9},  {4, 12},
                                                    {5, 10}, {6, 13}, {7, 11}, {8, 14}};

class Restorer
{
public:
    Restorer(const IniStore &store, VSFlexGrid &grid, HostApp &app)
        : m_store(store)
        , m_grid(grid)
        , m_app(app)
        , m_suffix(suffixOf(grid))
    {}

    void restoreColumns(bool onlyColWidth)
    {
        for (int column = 0; column < m_grid.Cols(); ++column) {
            restoreWidth(column);
            if (!onlyColWidth)
                restoreColumn(column);
        }
    }
    void findTotals(int column);
    void restoreOrder();
    void restoreTotals();
    void restoreLook();

private:
    [[nodiscard]] QString text(QStringView section, int column, const QString &present) const
    {
        return m_store.GetString(section.toString() + m_suffix, columnKey(column), present);
    }
    [[nodiscard]] int number(QStringView section, int column, int present) const
    {
        return m_store.GetInt(section.toString() + m_suffix, columnKey(column), present);
    }
    [[nodiscard]] int gridNumber(const QString &key, int present) const
    {
        return m_store.GetInt(u"Vs"_s + m_suffix, key, present);
    }

    void restoreWidth(int column);
    void restoreColumn(int column);
    void restoreSort(int column);
    [[nodiscard]] QString format(int column) const;
    [[nodiscard]] QString numberFormat(int column) const;
    [[nodiscard]] std::optional<QString> decimals(int column) const;
    [[nodiscard]] int labelColumn() const;
    void addTotals();
    [[nodiscard]] bool isGroupRow(int row, int fromColumn) const
    {
        return m_grid.CellForeColor(row, fromColumn, m_grid.Cols() - 1) == groupColor;
    }
    void labelGroups();
    void clearBesideGroups();
    void restoreGridColor();

    const IniStore &m_store;
    VSFlexGrid &m_grid;
    HostApp &m_app;
    const QString m_suffix;
    std::vector<int> m_groups;
    std::vector<int> m_totals;
};

/// The width of a hidden column is kept for the day when it is shown again.
void Restorer::restoreWidth(int column)
{
    const int present = m_grid.ColWidth(column);
    const int width = number(u"VsColWidth", column, present);
    m_grid.setColWidth(column, width > 0 ? width : m_grid.widthWhenShown(column));
    if (Val(text(u"VsIsHidden", column, yesNo(present == 0))) == 1)
        m_grid.setColWidth(column, 0);
}

void Restorer::restoreColumn(int column)
{
    restoreSort(column);
    m_grid.setMergeCol(column, Val(text(u"VsIsColMerge", column, yesNo(m_grid.MergeCol(column)))) == 1);
    m_grid.setColDataType(column, number(u"VsColDataType", column, m_grid.ColDataType(column)));
    m_grid.setColFormat(column, format(column));
    m_grid.setColAlignment(column, number(u"VsColAlignment", column, m_grid.ColAlignment(column)));
    findTotals(column);
}

void Restorer::findTotals(int column)
{
    if (number(u"VsIsGroupOn", column, 0) == 1)
        m_groups.push_back(column);
    if (number(u"VsIsTotalOn", column, 0) == 1)
        m_totals.push_back(column);
}

/// The sort goes by the current column; afterwards the one of the person is current again.
void Restorer::restoreSort(int column)
{
    const int order = number(u"VsIsSort", column, 0);
    if (m_grid.Rows() <= m_grid.FixedRows() || order == 0)
        return;
    const int current = m_grid.Col();
    m_grid.setCol(column);
    m_grid.setSort(order);
    m_grid.setCol(current);
}

QString Restorer::format(int column) const
{
    constexpr int generic = 0;
    constexpr int doubleNumber = 5;
    const int type = m_grid.ColDataType(column);
    if (type == generic || type == doubleNumber)
        return numberFormat(column);
    const QString stored = Trim(text(u"VsColFormat", column, m_grid.ColFormat(column)));
    return stored.contains(u"###") ? QString() : stored;
}

/// When the file or a parameter of the agency gives the number of decimals, the column's own are dropped: the
/// format is cut before the last digit of its integer part, then that digit and the decimals are appended.
QString Restorer::numberFormat(int column) const
{
    const QString full = Trim(text(u"VsColFormat", column, m_grid.ColFormat(column)));
    const auto count = decimals(column);
    if (full.isEmpty() || !count)
        return full;
    constexpr int versionWithHash = 700;
    const qsizetype point = full.indexOf(u'.');
    QString format = full;
    if (point >= 0)
        format = full.left(std::max<qsizetype>(point - 1, 0)) +
                 (m_grid.Version() == versionWithHash ? u'#' : u'0');
    const int digits = std::clamp(WholePart(Val(*count)), 0, mostDecimals);
    return digits == 0 ? format : format + u'.' + QString(digits, u'#');
}

/// Nothing when nothing is said about the column.
std::optional<QString> Restorer::decimals(int column) const
{
    if (const QString own = Trim(text(u"VsColFormat_Xs", column, {})); !own.isEmpty())
        return own;
    const int kind = number(u"VsColValDataType", column, 0);
    const auto *parameter = std::ranges::find(decimalsParameters, kind, &DecimalsParameter::kind);
    if (parameter == std::end(decimalsParameters))
        return std::nullopt;
    try {
        return m_app.SystemParameter(parameterGroup, parameter->key).Text;
    } catch (const std::exception &) { // a database that fails now shows in the load itself
        return std::nullopt;
    }
}

/// Whatever the file says, every column has one place: equal places go by number, missing ones to the end.
void Restorer::restoreOrder()
{
    std::vector<int> order(static_cast<size_t>(m_grid.Cols()));
    std::iota(order.begin(), order.end(), 0);
    std::ranges::stable_sort(order, {},
                             [this](int column) { return number(u"VsColPosition", column, column); });
    m_grid.setColumnOrder(order);
}

void Restorer::restoreTotals()
{
    const bool isDropped = gridNumber(u"VsTotalSave"_s, 0) == 1;
    if (!isDropped && m_totals.empty())
        return;
    m_grid.clearSubtotals();
    m_grid.setSubtotalPosition(SubtotalPosition::Below);
    if (isDropped)
        return;
    addTotals();
    if (m_groups.size() == 1)
        labelGroups();
    else
        clearBesideGroups();
    if (labelColumn() != m_grid.FixedCols() && m_grid.isSubtotal(m_grid.Rows() - 1))
        m_grid.setTextMatrix(m_grid.Rows() - 1, labelColumn(), u"合计"_s);
}

int Restorer::labelColumn() const
{
    for (int column = m_grid.FixedCols(); column < m_grid.Cols(); ++column) {
        if (!m_grid.ColHidden(column) && m_grid.ColWidth(column) > 0)
            return column;
    }
    return m_grid.FixedCols();
}

/// All in one go, so that each total column is read once: the labels of the groups do not depend on the row
/// with the totals of all.
void Restorer::addTotals()
{
    std::vector<Subtotal> wanted;
    for (const int group : m_groups) {
        for (const int total : m_totals) {
            Subtotal subtotal{.groupColumn = group, .totalColumn = total, .foreColor = groupColor};
            subtotal.caption = u"%s小计"_s;
            if (m_groups.size() == 1) {
                subtotal.matchFrom = group;
                subtotal.totalOnly = true;
            }
            wanted.push_back(subtotal);
        }
    }
    for (const int total : m_totals)
        wanted.push_back({.totalColumn = total, .backColor = totalBackColor, .caption = u"合计"_s});
    m_grid.addSubtotals(wanted);
}

void Restorer::labelGroups()
{
    const int label = labelColumn();
    for (int row = m_grid.FixedRows(); row < m_grid.Rows(); ++row) {
        if (isGroupRow(row, m_grid.FixedCols()))
            m_grid.setTextMatrix(row, label, m_grid.TextMatrix(row, m_grid.FixedCols()));
    }
}

/// Otherwise the outer group's name would be repeated in each row of the inner one.
void Restorer::clearBesideGroups()
{
    for (int row = m_grid.FixedRows(); row < m_grid.Rows(); ++row) {
        const auto group =
            std::ranges::find_if(m_groups, [&](int column) { return isGroupRow(row, column); });
        if (group != m_groups.end() && *group != 0)
            m_grid.setTextMatrix(row, *group - 1, {});
    }
}

void Restorer::restoreLook()
{
    const int height = gridNumber(u"VsRowHeight"_s, m_grid.RowHeight(m_grid.FixedRows()));
    if (m_grid.Rows() > m_grid.FixedRows())
        m_grid.setRowHeight(m_grid.FixedRows(), height);
    if (m_grid.FixedRows() > 0)
        m_grid.setRowHeight(0, gridNumber(u"VsFixedRowHeight"_s, m_grid.RowHeight(0)));
    m_grid.setFrozenCols(gridNumber(u"VsFixedCols"_s, m_grid.FrozenCols()));
    restoreGridColor();
    const QString wraps = m_store.GetString(u"Vs"_s + m_suffix, u"VsWordWrap"_s, yesNo(m_grid.WordWrap()));
    m_grid.setWordWrap(Val(wraps) == 1);
}

/// The file holds a system colour as an unsigned number above the signed range; 30 less that number is the
/// signed form of the grids' default colour. Other system colours are not restored exactly.
void Restorer::restoreGridColor()
{
    constexpr double largestSigned = 2147483647;
    constexpr double bridge = 30;
    double stored =
        Val(m_store.GetString(u"Vs"_s + m_suffix, u"VsGridColor"_s, QString::number(m_grid.GridColor())));
    if (stored > largestSigned)
        stored = bridge - stored;
    int red = 0;
    int green = 0;
    int blue = 0;
    ColorParts(WholePart(stored), red, green, blue);
    m_grid.setGridColor(red | green << 8 | blue << 16);
}

} // namespace

void saveGrid(IniStore &store, const VSFlexGrid &grid, bool onlyColWidth)
{
    for (int column = 0; column < grid.Cols(); ++column)
        saveColumn(store, grid, column, onlyColWidth);
    if (onlyColWidth)
        return;
    saveOrder(store, grid);
    saveLook(store, grid);
}

bool GridSave(const QString &file, const VSFlexGrid &grid, bool onlyColWidth)
{
    IniStore store;
    store.setFileName(file);
    saveGrid(store, grid, onlyColWidth);
    return store.save();
}

void GridRestore(const QString &file, VSFlexGrid &grid, bool onlyColWidth, HostApp &app)
{
    IniStore store;
    store.setFileName(file);
    drawnLater(grid, [&] {
        Restorer restorer(store, grid, app);
        restorer.restoreColumns(onlyColWidth);
        if (onlyColWidth)
            return true;
        restorer.restoreOrder();
        restorer.restoreTotals();
        restorer.restoreLook();
        return true;
    });
    if (!onlyColWidth && !QFileInfo::exists(file))
        GridSave(file, grid, false);
}

void RecountTotals(const QString &file, VSFlexGrid &grid, HostApp &app)
{
    IniStore store;
    store.setFileName(file);
    Restorer restorer(store, grid, app);
    for (int column = 0; column < grid.Cols(); ++column)
        restorer.findTotals(column);
    restorer.restoreTotals();
}

bool isLayoutByRows(const QString &file, const VSFlexGrid &grid)
{
    constexpr QStringView sections[] = {u"VsIsSort", u"VsIsGroupOn", u"VsIsTotalOn", u"VsColValDataType"};
    IniStore store;
    store.setFileName(file);
    const QString suffix = suffixOf(grid);
    for (int column = 0; column < grid.Cols(); ++column) {
        for (const QStringView section : sections) {
            if (store.contains(section.toString() + suffix, columnKey(column)))
                return true;
        }
    }
    return store.contains(u"Vs"_s + suffix, u"VsTotalSave"_s);
}

} // namespace ebtq
