#include "library/layout/grid_layout.h"

#include "contracts/color_parts.h"
#include "host/host_parameters.h"
#include "library/controls/check_box.h"
#include "library/controls/combo_box.h"
#include "library/controls/control_collection.h"
#include "library/controls/field_control.h"
#include "library/controls/qz_grid.h"
#include "library/controls/text_box.h"
#include "library/layout/form_status.h"
#include "library/layout/ini_store.h"
#include "library/layout/layout_file.h"
#include "library/support/agency_test.h"
#include "library/support/grids.h"

#include <QFile>

#include <set>

using namespace ebtq;
using namespace ebtq::test;

namespace {

class GridLayoutTest : public AgencyTest
{
protected:
    GridLayoutTest()
    {
        grid.setFormatString(u"标记|编号    |城区  |面积"_qs);
        grid.setFixedCols(0);
        RowBlock block({Column(), Column(), Column(), {u"面积"_qs, ColumnType::Number}});
        for (const char *cell : {"", "2", "天河", "80.5", "", "1", "天河", "19.5", "", "3", "海珠", "7"})
            block.append(cell);
        block.finish();
        grid.LoadArray(std::move(block));
    }
    [[nodiscard]] QString kept(const QString &section, const QString &key) const
    {
        IniStore store;
        store.setFileName(layoutFile);
        return store.GetString(section, key, u"-"_qs);
    }
    /// Entries as "section key value,section key value".
    void expectKept(const QString &entries) const
    {
        for (const QString &each : entries.split(u',')) {
            const QStringList entry = each.split(u' ');
            EXPECT_EQ(kept(entry[0], entry[1]), entry[2]) << each.toStdString();
        }
    }
    [[nodiscard]] QByteArray contents() const
    {
        QFile in(layoutFile);
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    }
    void restore(bool onlyColWidth = false) { GridRestore(layoutFile, grid, onlyColWidth, app); }

    VSFlexGrid grid{u"VS"_qs};
};

TEST_F(GridLayoutTest, AFirstStartWritesTheShapeThatTheScreenWasBuiltWith)
{
    grid.setColWidth(2, 0);
    restore(true);
    EXPECT_FALSE(QFile::exists(layoutFile)) << "widths alone write nothing";
    restore();
    expectKept(u"VsIsHidden VsCol1 2,VsIsHidden VsCol2 1,VsColWidth VsCol1 %1,VsColWidth VsCol2 "
               u"-,VsIsColMerge VsCol0 2,"
               u"VsColDataType VsCol0 0,VsColFormat VsCol0 ,VsColAlignment VsCol0 9,VsIsSort VsCol0 -,"
               u"VsColFormat_Xs VsCol0 -,VsColValDataType VsCol0 -,VsIsGroupOn VsCol0 -,VsIsTotalOn VsCol0 -,"
               u"VsColPosition VsCol0 -,Vs VsRowHeight 28,Vs VsFixedRowHeight 28,Vs VsFixedCols 0,"
               u"Vs VsGridColor %2,Vs VsWordWrap 2,Vs VsTotalSave -"_qs.arg(grid.ColWidth(1))
                   .arg(0xF0F0F0));
}

TEST_F(GridLayoutTest, EveryKeyComesBack)
{
    ASSERT_TRUE(GridSave(layoutFile, grid, true));
    expectKept(u"Vs VsWordWrap -"_qs); // widths only
    const int formerWidth = grid.ColWidth(1);
    grid.setColWidth(0, 33);
    grid.setColWidth(1, 0);
    grid.setMergeCol(2, true);
    grid.setColDataType(2, 8);
    grid.setColFormat(3, u"#.##"_qs);
    grid.setColAlignment(3, VSFlexGrid::AlignCentre);
    grid.setColumnOrder({3, 0, 1, 2});
    grid.setRowHeight(1, 40);
    grid.setRowHeight(0, 50);
    grid.setFrozenCols(2);
    grid.setGridColor(0x123456);
    grid.setWordWrap(true);
    ASSERT_TRUE(GridSave(layoutFile, grid, false));
    VSFlexGrid other(u"Vs"_qs);
    other.setFormatString(grid.FormatString());
    other.LoadArray(blockOf(4, {{u"x"_qs, {}, {}, {}}}));
    GridRestore(layoutFile, other, false, app);
    const QByteArray before = contents();
    ASSERT_TRUE(GridSave(layoutFile, other, false));
    EXPECT_EQ(contents(), before) << "what was restored is saved alike";
    expectKept(
        u"VsColWidth VsCol0 33,VsIsHidden VsCol1 1,VsIsColMerge VsCol2 1,VsIsColMerge VsCol3 2,"
        u"VsColDataType VsCol2 8,VsColFormat VsCol3 #.##,VsColAlignment VsCol3 4,VsColPosition VsCol3 0,"
        u"Vs VsRowHeight 40,Vs VsFixedRowHeight 50,Vs VsFixedCols 2,Vs VsGridColor 1193046,"
        u"Vs VsWordWrap 1"_qs);
    EXPECT_EQ(other.widthWhenShown(1), formerWidth);
    put(u"VsIsHidden"_qs, u"VsCol1"_qs, u"2"_qs);
    GridRestore(layoutFile, other, true, app);
    EXPECT_EQ(other.ColWidth(1), formerWidth);
}

TEST_F(GridLayoutTest, FormatsTakeTheirDigitsFromTheFileOrTheAgency)
{
    // The column's kind, its format, VsColFormat_Xs, VsColValDataType and what comes of them. The keys of the
    // parameters are 7 8 9 12 10 13 11 14, and each has 6 less for its digits.
    const QString cases =
        u"0; #,##0.00 ;;0;#,##0.00|0;#,##0.00;3;1;#,###.###|5;#,##0.00;0;0;#,###|"
        u"0;#,##0; 2 ;0;#,##0.##|0;.00;1;0;#.#|0;0.0;-4;0;#|0;0.0;99999999999;0;#.###############|"
        u"0;;3;1;|0;0.0;;1;#.#|0;0.0;;2;#.##|0;0.0;;3;#.###|0;0.0;;4;#.######|0;0.0;;5;#.####|"
        u"0;0.0;;6;#.#######|0;0.0;;7;#.#####|0;0.0;;8;#.########|0;0.0;;9;0.0|0;0.0;;-1;0.0|"
        u"8; 0.0 ;3;1;0.0|8;#,###.00;;0;|7;yyyy-mm;;0;yyyy-mm"_qs;
    for (int key = 7; key <= 14; ++key)
        host::setParameter(*connection, {}, 12, QString::number(key), QString::number(key - 6));
    const QString sections[] = {u"VsColDataType"_qs, u"VsColFormat"_qs, u"VsColFormat_Xs"_qs,
                                u"VsColValDataType"_qs};
    for (const QString &each : cases.split(u'|')) {
        const QStringList c = each.split(u';');
        for (int at = 0; at < 4; ++at)
            put(sections[at], u"VsCol3"_qs, c[at]);
        restore();
        EXPECT_EQ(grid.ColFormat(3), c[4]) << each.toStdString();
    }
    connection->executeNative("drop table host_parameters");
    put(u"VsColDataType"_qs, u"VsCol3"_qs, u"0"_qs);
    put(u"VsColFormat"_qs, u"VsCol3"_qs, u"0.0"_qs);
    put(u"VsColValDataType"_qs, u"VsCol3"_qs, u"4"_qs);
    put(u"Vs"_qs, u"VsWordWrap"_qs, u"1"_qs);
    restore();
    EXPECT_EQ(grid.ColFormat(3), u"0.0");
    EXPECT_TRUE(grid.WordWrap()) << "one failure does not stop the rest";
    EXPECT_EQ(grid.displayText(1, 3), u"80.5");
}

TEST_F(GridLayoutTest, GroupsAndTotalsStandWhereTheAdministratorPutThem)
{
    put(u"VsIsSort"_qs, u"VsCol1"_qs, u"1"_qs);
    put(u"VsIsGroupOn"_qs, u"VsCol2"_qs, u"1"_qs);
    put(u"VsIsTotalOn"_qs, u"VsCol3"_qs, u"1"_qs);
    grid.setColHidden(0, true);
    grid.setCurrent(1, 2);
    const auto rows = [this] { return rowTexts(grid).join(u' '); };
    const QString oneGroup =
        u"|1|天河|19.5 |2|天河|80.5 天河小计|天河小计||100 |3|海珠|7 海珠小计|海珠小计||7 合计|合计||107"_qs;
    restore();
    EXPECT_EQ(rows(), oneGroup);
    EXPECT_EQ(grid.CellForeColor(3, 0, 3), 128);
    EXPECT_EQ(grid.CellBackColor(6, 0, 3), 0xFFFF80);
    EXPECT_EQ(grid.Col(), 2) << "the sort leaves the person's column";
    EXPECT_EQ(grid.TextMatrix(grid.Row(), 1), u"2");
    restore();
    EXPECT_EQ(rows(), oneGroup) << "the former sums go before the next come";

    put(u"VsIsGroupOn"_qs, u"VsCol1"_qs, u"1"_qs);
    restore();
    EXPECT_EQ(rows(), u"|1|天河|19.5 ||天河小计|19.5 |1小计||19.5 |2|天河|80.5 ||天河小计|80.5 |2小计||80.5 "
                      u"|3|海珠|7 ||海珠小计|7 |3小计||7 合计|合计||107"_qs);

    put(u"Vs"_qs, u"VsTotalSave"_qs, u"1"_qs);
    restore();
    EXPECT_EQ(rows(), u"|1|天河|19.5 |2|天河|80.5 |3|海珠|7"_qs);
    grid.setRows(1);
    put(u"Vs"_qs, u"VsTotalSave"_qs, u"0"_qs);
    put(u"Vs"_qs, u"VsRowHeight"_qs, u"60"_qs);
    restore();
    EXPECT_EQ(grid.Rows(), 1) << "an empty list stays empty";
    EXPECT_EQ(grid.RowHeight(1), 28) << "heights are set with rows there";
}

TEST_F(GridLayoutTest, DamagedNumbersLeaveAScreenThatCanBeUsed)
{
    const QString wrong[] = {u"-5"_qs, u"99999999999999"_qs, u"房"_qs, u"1e300"_qs, u"2147483663"_qs, u""_qs};
    const QStringList columnSections =
        u"VsIsHidden VsColWidth VsIsSort VsIsColMerge VsColDataType VsColFormat VsColFormat_Xs "
        u"VsColValDataType VsColAlignment VsIsGroupOn VsIsTotalOn VsColPosition"_qs.split(u' ');
    for (const QString &value : wrong) {
        SCOPED_TRACE(value.toStdString());
        for (const QString &section : columnSections) {
            for (int col = -1; col < 6; ++col)
                put(section, u"VsCol%1"_qs.arg(col), value);
        }
        for (const QString &key :
             u"VsRowHeight VsFixedRowHeight VsFixedCols VsGridColor VsWordWrap VsTotalSave"_qs.split(u' '))
            put(u"Vs"_qs, key, value);
        restore();
        EXPECT_EQ(grid.Rows(), 4);
        EXPECT_EQ(std::set<int>(grid.columnOrder().begin(), grid.columnOrder().end()).size(), 4u);
        EXPECT_TRUE(grid.RowHeight(1) <= 1000 && grid.RowHeight(0) >= 8 && grid.FrozenCols() <= 4);
        for (int col = 0; col < 4; ++col)
            EXPECT_TRUE(grid.ColWidth(col) > 0 && grid.ColWidth(col) <= 10000);
    }
    put(u"Vs"_qs, u"VsGridColor"_qs, u"2147483663"_qs);
    restore();
    EXPECT_EQ(grid.GridColor(), 0xF0F0F0) << "the ground of buttons, as it stands without a sign";
}

TEST(ColorParts, SplitsPlainAndSystemColours)
{
    using Parts = std::tuple<int, int, int>;
    for (const auto &[color, parts] : {std::pair(0x123456, Parts(0x56, 0x34, 0x12)),
                                       {128, Parts(128, 0, 0)},
                                       {-2147483633, Parts(240, 240, 240)},
                                       {static_cast<int>(0x80000005U), Parts(255, 255, 255)},
                                       {-1, Parts(0, 0, 0)},
                                       {0x7F0000FF, Parts(255, 0, 0)}}) {
        int red = -1;
        int green = -1;
        int blue = -1;
        ColorParts(color, red, green, blue);
        EXPECT_EQ(Parts(red, green, blue), parts) << color;
    }
}

/// Trees and lists do not exist as controls yet; what the layout asks of one is that property.
class Tree : public Control
{
    Q_OBJECT
    Q_PROPERTY(QString SelectedText MEMBER selected)

public:
    explicit Tree(const QString &name)
        : Control(u"TreeView"_qs, name)
    {}
    QString selected = u"根"_qs;
};

class Form
{
public:
    ControlCollection controls;
    qzTxt_S &field = controls.add<qzTxt_S>(u"qzTxt"_qs, 4);
    CheckBox &box = controls.add<CheckBox>(u"Chk"_qs, 0);
    XPCombo &combo = controls.add<XPCombo>(u"XPCmb"_qs);
    TextBox &text = controls.add<TextBox>(u"Txt"_qs, 1);
    Tree &tree = controls.add<Tree>(u"tv"_qs);
    qzGrid &widths = controls.add<qzGrid>(u"qzGrid1"_qs);
    VSFlexGrid &list = controls.add<VSFlexGrid>(u"VS"_qs);
    VSFlexGrid &second = controls.add<VSFlexGrid>(u"VsGj"_qs);

    Form()
    {
        for (VSFlexGrid *grid : {static_cast<VSFlexGrid *>(&widths), &list, &second})
            grid->setFormatString(u"a  |b  "_qs);
    }
    [[nodiscard]] QVariantList state() const
    {
        return {field.Text(), field.Value().toInt(), box.Value(),      combo.Text(),
                text.Text(),  widths.ColWidth(1),    list.ColWidth(1), second.ColWidth(1)};
    }
};

using FormStatus = AgencyTest;

TEST_F(FormStatus, EachKindOfControlIsKeptUnderItsName)
{
    Form form;
    form.field.setText(u"营业\n一部"_qs);
    form.field.setValue(12);
    form.box.setValue(1);
    form.combo.setText(u" 十天内"_qs);
    form.text.setText(u"一行\r\n两行"_qs);
    form.tree.selected.clear();
    form.widths.setColWidth(1, 61);
    form.list.setColWidth(1, 62);
    form.second.setColWidth(1, 63);
    ASSERT_TRUE(saveForm(layoutFile, false, form.controls));

    IniStore store;
    store.setFileName(layoutFile);
    for (const QString &key : u"QZTXT_S_qzTxt_4_Text QZTXT_S_qzTxt_4_Value CHECKBOX_Chk_0 XPCOMBO_XPCmb "
                              u"TEXTBOX_Txt_1 TREEVIEW_tv QZGRID_qzGrid1_Col1"_qs.split(u' '))
        EXPECT_TRUE(store.contains(u"Form"_qs, key)) << key.toStdString();
    EXPECT_EQ(store.GetString(u"VsColWidth_VsGj"_qs, u"VsCol1"_qs, {}), u"63");

    Form other;
    restoreForm(layoutFile, false, other.controls, app);
    EXPECT_EQ(other.state(), form.state()) << "but for the tree: an empty entry leaves it alone";
    EXPECT_EQ(other.tree.selected, u"根");

    store.SetString(u"Form"_qs, u"TREEVIEW_tv"_qs, u"二级"_qs);
    store.SetString(u"Form"_qs, u"CHECKBOX_Chk_0"_qs, u"坏"_qs);
    ASSERT_TRUE(store.save());
    restoreForm(layoutFile, true, other.controls, app);
    EXPECT_EQ(other.tree.selected, u"二级");
    EXPECT_EQ(other.box.Value(), 1) << "no number, no change";
    Form untouched;
    untouched.field.setText(u"原样"_qs);
    restoreForm(folder.filePath(u"none.txt"_qs), true, untouched.controls, app);
    EXPECT_EQ(untouched.field.Text(), u"原样");
}

} // namespace

#include "grid_layout_test.moc"
