#include "contracts/level_code.h"
#include "library/dictionaries/pdm_cq.h"
#include "library/dictionaries/pdm_fx.h"
#include "library/dictionaries/pdm_lpzd.h"
#include "library/support/agency_test.h"

using namespace ebtq;
using namespace ebtq::test;

namespace {

/// A dictionary over an agency's database, loaded. What it raises is written down as "title|level|text".
template<class Form> class DictionaryTest : public AgencyTest
{
protected:
    DictionaryTest()
    {
        insert(u"pdmdq (地区ID,编码,地区,级次)"_qs,
               {u"1,'01','广州',1", u"2,'0101','天河',2", u"3,'0102','越秀',2", u"4,'0901','孤区',2"});
        insert(u"pdmlpzd (楼盘ID,楼盘编号,楼盘名称,地区ID,售均价)"_qs,
               {u"11,'L1','天河花园',2,2.5", u"12,'L2','骏景',2,3", u"13,'L9','孤楼',77,1"});
        insert(u"pdmdz (栋座ID,栋座编号,栋座名称,总楼层,楼盘ID)"_qs,
               {u"21,'B2','二栋',18,11", u"22,'B1','一栋',9,11", u"23,'B1','骏景一',30,12"});
        QObject::connect(&form, &Form::ErrMessage,
                         [this](const QString &text, int level, const QString &title) {
                             events += u"%1|%2|%3"_qs.arg(title).arg(level).arg(text);
                         });
        form.IFormUI_Init(app, 0, 0);
        form.IFormUI_Refresh();
    }
    [[nodiscard]] Node *node(const QString &key) const { return form.TV().nodes().Item(key); }
    void select(const QString &key)
    {
        form.TV().click(*node(key));
        app.statements.clear();
    }
    /// Of the whole tree, a node each.
    [[nodiscard]] QStringList nodes() const
    {
        QStringList texts;
        for (int index = 1; index <= form.TV().nodes().Count(); ++index) {
            const Node &each = *form.TV().nodes().Item(index);
            texts += each.Key() + u':' + each.Text() + u':' + each.Tag().toString();
        }
        return texts;
    }
    /// All values of a statement, rows separated by "/".
    [[nodiscard]] QString stored(const QString &statement) const
    {
        QStringList lines;
        const RowBlock block = rows(statement);
        for (qsizetype row = 0; row < block.rowCount(); ++row) {
            QStringList values;
            for (int column = 0; column < block.columnCount(); ++column)
                values += block.value(row, column).toString();
            lines += values.join(u' ');
        }
        return lines.join(u" / "_qs);
    }
    void type(int field, const QString &text) { form.qzTxt(field).type(text); }
    [[nodiscard]] QString text(int field) const { return form.qzTxt(field).Text(); }
    QStringList raised() { return std::exchange(events, {}); }

    Form form{desktop};
};

class PdmLpzdTest : public DictionaryTest<PdmLpzd>
{
protected:
    [[nodiscard]] QString allBuildings() const
    {
        return stored(u"select 楼盘ID,楼盘编号,楼盘名称,地区ID,售均价 from pdmlpzd order by 楼盘ID"_qs);
    }
    [[nodiscard]] QString allBlocks() const
    {
        return stored(u"select 栋座ID,栋座编号,栋座名称,总楼层,楼盘ID from pdmdz order by 栋座ID"_qs);
    }
    void edit(int row, int column, const QString &text) { form.blocks().edit(row, column, text); }
};
class PDMCqTest : public DictionaryTest<PDMCq>
{};
class PDMFxTest : public DictionaryTest<PDMFx>
{};

TEST(LevelCode, DividesCodesByTheirScheme)
{
    struct Case
    {
        QString scheme, code, lengths, parent;
    };
    const Case cases[] = {
        {u"222"_qs, u"010203"_qs, u"2460"_qs, u"0102"_qs},  {u"222"_qs, u"01"_qs, u"2460"_qs, {}},
        {u"2-3"_qs, u"01002"_qs, u"2500"_qs, u"01"_qs},     {u"222"_qs, u"01020"_qs, u"2460"_qs, u"0102"_qs},
        {u"22"_qs, u"01020304"_qs, u"2400"_qs, u"0102"_qs}, {{}, u"01"_qs, u"0000"_qs, {}}};
    for (const Case &each : cases) {
        QString lengths;
        for (int level = 1; level <= 4; ++level)
            lengths += QString::number(LevelCode::LevelLength(level, each.scheme));
        EXPECT_EQ(lengths, each.lengths);
        EXPECT_EQ(LevelCode::ParentCode(each.code, each.scheme), each.parent) << each.code.toStdString();
    }
}

TEST_F(PdmLpzdTest, TheTreeHoldsDistrictsAndTheirBuildingsAndLeadsToThem)
{
    EXPECT_EQ(nodes(),
              QStringList({u"ROOT:全部楼盘:"_qs, u"k01:01  广州:1"_qs, u"k0101:0101  天河:2"_qs,
                           u"k0102:0102  越秀:3"_qs, u"lL1:L1 天河花园:11"_qs, u"lL2:L2 骏景:12"_qs}));
    EXPECT_EQ(form.TV().SelectedText(), u"全部楼盘"_qs);
    select(u"lL1"_qs);
    EXPECT_EQ(text(0) + text(1) + text(2) + form.qzTxt(2).Tag() + text(7), u"L1天河花园天河22.5"_qs);
    EXPECT_EQ(form.blocks().Rows(), 3);
    EXPECT_EQ(form.blocks().TextMatrix(2, PdmLpzd::RowNumber) + form.blocks().TextMatrix(1, 2), u"2一栋"_qs);
    select(u"k0101"_qs);
    EXPECT_EQ(text(0) + form.qzTxt(2).Tag(), u"0"_qs);
    EXPECT_EQ(form.blocks().Rows(), 1);
}

TEST_F(PdmLpzdTest, WhatIsNotABuildingIsNeitherEditedNorDeleted)
{
    for (int each = 0; each < 2; ++each)
        desktop.willAnswer(Desktop::Answer::Ok);
    EXPECT_FALSE(form.IFormUI_FileEdit() || form.IFormUI_FileDelete());
    EXPECT_EQ(asked(),
              QStringList({u"提示：|没有选择需要修改的对象!"_qs, u"提示：|没有选择需要删除的对象!"_qs}));
}

TEST_F(PdmLpzdTest, ABuildingIsEditedWithItsBlocks)
{
    select(u"lL1"_qs);
    EXPECT_TRUE(form.IFormUI_FileEdit());
    EXPECT_TRUE(form.Editing() && !form.TV().Enabled() && form.qzTxt(1).Enabled() && !form.IFormUI_IsDirty());
    type(1, u" 天河新园 "_qs);
    edit(1, PdmLpzd::Floors, u" １０ "_qs);
    form.blocks().deleteRow(2); // B2
    form.blocks().addRow();
    edit(2, PdmLpzd::BlockNumber, u"B3"_qs);
    form.blocks().addRow(); // without a number: not saved
    EXPECT_TRUE(form.IFormUI_IsDirty());
    app.statements.clear();
    EXPECT_TRUE(form.IFormUI_FileSave());
    EXPECT_EQ(app.statements.value(2), u"Delete from pdmdz Where 栋座ID in(21)"_qs);
    EXPECT_EQ(
        app.statements.value(3),
        u"UpDate pdmlpzd Set 楼盘编号='L1',楼盘名称='天河新园',拼音缩写='',地区ID=2,物业用途='',物业类型='',"
        u"建房年代='',售均价=2.5,管理费=0,详细地址='',备注='' Where 楼盘ID=11"_qs);
    EXPECT_EQ(allBlocks(), u"22 B1 一栋 10 11 / 23 B1 骏景一 30 12 / 24 B3  0 11"_qs);
    EXPECT_EQ(node(u"lL1"_qs)->Text(), u"L1 天河新园"_qs);
    EXPECT_FALSE(form.Editing() || form.IFormUI_IsDirty());
    // The new block has its key now: saved again it is the same row.
    form.IFormUI_FileEdit();
    edit(2, PdmLpzd::BlockName, u"三栋"_qs);
    EXPECT_TRUE(form.IFormUI_FileSave());
    EXPECT_EQ(allBlocks(), u"22 B1 一栋 10 11 / 23 B1 骏景一 30 12 / 24 B3 三栋 0 11"_qs);
    EXPECT_EQ(raised(), QStringList());
}

TEST_F(PdmLpzdTest, ANewBuildingStandsBelowItsDistrict)
{
    select(u"lL1"_qs);
    EXPECT_TRUE(form.IFormUI_FileNew());
    script = {{}, u"越秀"_qs, 3, nullptr};
    form.qzTxt(2).requestHelp(5, 6);
    EXPECT_EQ(script.asked, QStringList(u"show pdmdq 5 6 pdmsfmx=1"_qs));
    type(0, u"L3"_qs);
    type(1, u"东山口"_qs);
    EXPECT_TRUE(form.IFormUI_FileSave());
    EXPECT_EQ(nodes().last(), u"lL3:L3 东山口:14"_qs);
    EXPECT_EQ(node(u"lL3"_qs)->Parent()->Key(), u"k0102"_qs);
    EXPECT_EQ(form.TV().SelectedItem(), node(u"lL3"_qs));
    form.IFormUI_FileEdit();
    form.IFormUI_FileCancel();
    EXPECT_EQ(text(1), u"东山口"_qs);
}

TEST_F(PdmLpzdTest, WhatCannotBeSavedIsRefusedInTheSpecifiedOrder)
{
    form.IFormUI_FileNew();
    const auto refusal = [this] {
        EXPECT_FALSE(form.IFormUI_FileSave() || !form.Editing());
        return raised().join(u'\n').toStdString();
    };
    EXPECT_EQ(refusal(), "楼盘字典|2|没有具体的楼盘编号,请录入!");
    type(0, u"L1"_qs);
    EXPECT_EQ(refusal(), "楼盘字典|2|没有具体的楼盘名称,请录入!");
    type(1, u"骏景"_qs);
    EXPECT_EQ(refusal(), "楼盘字典|2|楼盘编号重复,请检查!");
    type(0, u"L7"_qs);
    EXPECT_EQ(refusal(), "楼盘字典|2|楼盘名称重复,请检查!");
    type(1, u"新"_qs);
    EXPECT_EQ(refusal(), "楼盘字典|2|没有具体的地区,请录入!");
    type(2, u"无此地"_qs);
    EXPECT_EQ(refusal(), "楼盘字典|2|地区输入有误，请重新输入！");
    type(3, u"无此用途"_qs);
    script = {{}, u"天河"_qs, 2, nullptr};
    EXPECT_EQ(refusal(), "楼盘字典|2|输入有误，请重新输入！物业用途");
    type(3, {});
    type(1, u"O'Neil"_qs);
    const QString refused = QString::fromStdString(refusal());
    EXPECT_TRUE(refused.contains(u"楼盘字典|8|保存数据时出错："_qs) && refused.endsWith(u"（楼盘名称）"_qs));
    EXPECT_EQ(text(1), u"O'Neil"_qs);
}

TEST_F(PdmLpzdTest, ASaveThatFailsAtAnyOfItsStatementsWritesNothingAndKeepsEverything)
{
    const QString buildings = allBuildings();
    const QString blocks = allBlocks();
    bool isDone = false;
    for (int broken = 0; !isDone; ++broken) {
        select(u"lL1"_qs);
        form.IFormUI_FileEdit();
        type(1, u"改名"_qs);
        form.blocks().deleteRow(2);
        form.blocks().addRow();
        edit(2, PdmLpzd::BlockNumber, u"B8"_qs);
        int count = 0;
        app.asRun = [&](const SqlText &sql) { return count++ == broken ? SqlText(u"坏语句"_qs) : sql; };
        isDone = form.IFormUI_FileSave();
        app.asRun = [](const SqlText &sql) { return sql; };
        if (isDone)
            break;
        EXPECT_EQ(raised().size(), 1) << broken;
        EXPECT_EQ(allBuildings() + allBlocks(), buildings + blocks) << broken;
        EXPECT_TRUE(form.Editing() && text(1) == u"改名"_qs);
        EXPECT_EQ(form.blocks().TextMatrix(2, PdmLpzd::BlockId), QString());
        form.IFormUI_FileCancel();
        ASSERT_LT(broken, 40);
    }
    EXPECT_EQ(allBlocks(), u"22 B1 一栋 9 11 / 23 B1 骏景一 30 12 / 24 B8  0 11"_qs);
}

/// The commit is done, and its answer is lost.
TEST_F(PdmLpzdTest, ASaveWhoseAnswerIsLostIsNotWrittenTwice)
{
    form.IFormUI_FileNew();
    script = {{}, u"越秀"_qs, 3, nullptr};
    form.qzTxt(2).requestHelp(5, 6);
    type(0, u"L3"_qs);
    type(1, u"东山口"_qs);
    form.blocks().addRow();
    edit(1, PdmLpzd::BlockNumber, u"B7"_qs);
    app.losesAnswer = true;
    EXPECT_FALSE(form.IFormUI_FileSave());
    EXPECT_EQ(raised(), QStringList(u"楼盘字典|8|保存数据时出错：连接已断开！"_qs));
    EXPECT_TRUE(form.Editing());
    app.losesAnswer = false;
    EXPECT_TRUE(form.IFormUI_FileSave());
    EXPECT_TRUE(allBuildings().endsWith(u"77 1 / 14 L3 东山口 3 0"_qs));
    EXPECT_TRUE(allBlocks().endsWith(u" / 24 B7  0 14"_qs));
    EXPECT_EQ(raised(), QStringList());
}

TEST_F(PdmLpzdTest, AFailedSaveFindsItsDeletionsAgain)
{
    select(u"lL1"_qs);
    form.IFormUI_FileEdit();
    form.blocks().deleteRow(1);
    app.asRun = [](const SqlText &sql) {
        return sql.text().startsWith(u"UpDate") ? SqlText(u"坏语句"_qs) : sql;
    };
    EXPECT_FALSE(form.IFormUI_FileSave());
    EXPECT_TRUE(raised().value(0).startsWith(u"EBTQ_S|8|"_qs));
    app.asRun = [](const SqlText &sql) { return sql; };
    EXPECT_TRUE(form.IFormUI_FileSave());
    EXPECT_EQ(allBlocks(), u"21 B2 二栋 18 11 / 23 B1 骏景一 30 12"_qs);
}

TEST_F(PdmLpzdTest, ARecordThatSomebodyHasDeletedIsNotSavedAndNotShown)
{
    select(u"lL1"_qs);
    form.IFormUI_FileEdit();
    connection->execute(u"delete from pdmlpzd where 楼盘ID=11"_qs);
    EXPECT_FALSE(form.IFormUI_FileSave());
    EXPECT_TRUE(raised().value(0).contains(u"已被他人删除"_qs));
    EXPECT_TRUE(form.Editing());
    form.IFormUI_FileCancel();
    EXPECT_TRUE(raised().value(0).contains(u"已被他人删除"_qs));
    EXPECT_FALSE(form.IFormUI_FileEdit() || form.Editing());
}

TEST_F(PdmLpzdTest, ABuildingIsDeletedWithItsBlocksUnlessListingsUseIt)
{
    insert({u"fyxx (房源ID,楼盘ID) values ('H1',12)"});
    const QString blocks = allBlocks();
    select(u"lL2"_qs);
    desktop.willAnswer(Desktop::Answer::Yes);
    EXPECT_FALSE(form.IFormUI_FileDelete());
    EXPECT_EQ(raised(), QStringList(u"楼盘字典|2|该[楼盘字典]已启用,不能删除!"_qs));
    EXPECT_EQ(allBlocks(), blocks);
    select(u"lL1"_qs);
    desktop.willAnswer(Desktop::Answer::No);
    EXPECT_FALSE(form.IFormUI_FileDelete());
    EXPECT_EQ(asked().last(), u"提示:!|是否删除当前记录:L1 天河花园"_qs);
    desktop.willAnswer(Desktop::Answer::Yes);
    EXPECT_TRUE(form.IFormUI_FileDelete());
    EXPECT_EQ(allBlocks(), u"23 B1 骏景一 30 12"_qs);
    EXPECT_FALSE(node(u"lL1"_qs));
    EXPECT_EQ(text(1), u"骏景"_qs); // beside it
}

TEST_F(PdmLpzdTest, ABuildingDroppedOnADistrictIsEditedThereAndNotSavedYet)
{
    const QString before = allBuildings();
    const auto drop = [this](const QString &target, const QString &source) {
        TreeView &tree = form.TV();
        tree.setViewport(200, 200, 10);
        node(u"k0101"_qs)->EnsureVisible();
        node(u"lL1"_qs)->EnsureVisible();
        const auto y = [&](const QString &key) {
            return static_cast<float>((tree.sight().rowOf(*node(key)) - tree.TopRow()) * 10 + 5);
        };
        Q_EMIT tree.MouseDown(Qt::LeftButton, 5, y(source));
        Q_EMIT tree.MouseMove(Qt::LeftButton, 5, y(source) + 4);
        tree.Drag(TreeView::EndDrag, 5, y(target));
    };
    for (const auto &[target, source] :
         {std::pair(u"lL2"_qs, u"lL1"_qs), std::pair(u"ROOT"_qs, u"lL1"_qs),
          std::pair(u"k0102"_qs, u"k0101"_qs), std::pair(u"lL1"_qs, u"lL1"_qs)}) {
        drop(target, source);
        EXPECT_FALSE(form.Editing());
    }
    drop(u"k0102"_qs, u"lL1"_qs);
    EXPECT_TRUE(form.Editing() && form.IFormUI_IsDirty());
    EXPECT_EQ(text(0) + text(2) + form.qzTxt(2).Tag(), u"L1越秀3"_qs);
    EXPECT_EQ(allBuildings(), before);
    EXPECT_TRUE(form.IFormUI_FileSave());
    EXPECT_TRUE(allBuildings().startsWith(u"11 L1 天河花园 3 "_qs));
}

TEST_F(PdmLpzdTest, TheSearchGoesOnFromTheSelectedNode)
{
    desktop.willType(u"l"_qs);
    EXPECT_TRUE(form.IFormUI_Find({}));
    EXPECT_EQ(asked(), QStringList(u"查找记录|输入要查找的节点名称:"_qs));
    EXPECT_EQ(text(0), u"L1"_qs);
    EXPECT_TRUE(form.IFormUI_FindNext());
    EXPECT_EQ(text(0), u"L2"_qs);
    EXPECT_TRUE(form.IFormUI_RecordPrevious());
    EXPECT_EQ(text(0), u"L1"_qs);
}

TEST_F(PdmLpzdTest, ALayoutBringsTheSelectedRecordBackAndNoTextOfOne)
{
    select(u"lL2"_qs);
    form.Sp().setLeft(5000);
    form.blocks().setColWidth(2, 321);
    form.IFormUI_DoSaveFormStatus();
    form.Sp().setLeft(4000);
    form.blocks().setColWidth(2, 20);
    select(u"ROOT"_qs);
    form.IFormUI_DoGetFormStatus();
    EXPECT_EQ(text(1), u"骏景"_qs);
    EXPECT_EQ(form.Sp().Left() + form.blocks().ColWidth(2), 5321);
}

TEST_F(PdmLpzdTest, ALoadThatFailsLeavesNoRecordToBeSaved)
{
    select(u"lL1"_qs);
    for (const auto &[table, isNamed] : {std::pair(u"from pdmdq "_qs, false), {u"from pdmlpzd "_qs, true}}) {
        app.asRun = [&, name = table](const SqlText &sql) {
            return sql.text().contains(name) ? SqlText(u"坏语句"_qs) : sql;
        };
        EXPECT_FALSE(form.IFormUI_Refresh());
        EXPECT_EQ(text(0), QString());
        EXPECT_EQ(raised().value(0).startsWith(u"楼盘字典|8|刷新数据时出错："_qs), isNamed);
    }
}

TEST_F(PdmLpzdTest, WithoutASchemeTheTreeSaysWhyItIsEmpty)
{
    connection->execute(u"update host_parameters set valueText='' where keyText='dzbm'"_qs);
    form.IFormUI_Init(app, 0, 0);
    EXPECT_TRUE(form.IFormUI_Refresh());
    EXPECT_TRUE(raised().value(0).startsWith(u"楼盘字典|2|系统参数“dzbm”"_qs));
    EXPECT_EQ(nodes().size(), 1);
}

TEST_F(PDMCqTest, TheRootIsEditedAsANewRecordAndNeverDeleted)
{
    EXPECT_EQ(nodes(), QStringList({u"ROOT:全部产权:"_qs, u"KC1:C1 商品房:1"_qs}));
    EXPECT_FALSE(form.IFormUI_FileDelete());
    EXPECT_EQ(raised(), QStringList(u"产权|2|FileDelete::没有选择需要删除的对象！"_qs));
    EXPECT_TRUE(form.IFormUI_FileEdit());
    type(0, u"C2"_qs);
    type(1, u"公房"_qs);
    EXPECT_TRUE(form.IFormUI_FileSave());
    EXPECT_EQ(nodes().last(), u"KC2:C2 公房:2"_qs);
    EXPECT_EQ(raised(), QStringList());
}

/// Listings have no column for the key, so nothing is ever in use; a server that is lost is another matter.
TEST_F(PDMCqTest, ARightIsDeletedUnlessTheLookForItsUseFails)
{
    select(u"KC1"_qs);
    desktop.willAnswer(Desktop::Answer::Yes);
    app.asRun = [](const SqlText &sql) {
        return sql.text().contains(u"from fyxx"_qs, Qt::CaseInsensitive) ? SqlText(u"坏语句"_qs) : sql;
    };
    EXPECT_FALSE(form.IFormUI_FileDelete());
    EXPECT_TRUE(raised().value(0).startsWith(u"产权|2|IsCulterUse::"_qs));
    app.asRun = [](const SqlText &sql) { return sql; };
    desktop.willAnswer(Desktop::Answer::Yes);
    EXPECT_TRUE(form.IFormUI_FileDelete());
    EXPECT_EQ(raised(), QStringList());
    EXPECT_EQ(nodes().size(), 1);
}

TEST_F(PDMCqTest, AFailedSaveSaysSoUnderItsOwnTitle)
{
    select(u"KC1"_qs);
    form.IFormUI_FileEdit();
    type(4, u"it's"_qs);
    EXPECT_FALSE(form.IFormUI_FileSave());
    EXPECT_TRUE(raised().value(0).startsWith(u"产权|8|保存数据时出错："_qs));
    EXPECT_EQ(text(4), u"it's"_qs);
}

TEST_F(PDMFxTest, CountsAreSavedAsNumbersAndTheLastFieldNotAtAll)
{
    form.IFormUI_FileNew();
    type(0, u"F2"_qs);
    type(1, u"二房"_qs);
    type(2, u" ２"_qs);
    type(6, u"无"_qs);
    app.statements.clear();
    EXPECT_TRUE(form.IFormUI_FileSave());
    EXPECT_EQ(app.statements.filter(u"pdmfx("_qs).value(0),
              u"InSert Into pdmfx(房型ID,房型编号,房型名称,房间数,客厅数,卫生间数,阳台数) Values "
              u"(2,'F2','二房',2,0,0,0)"_qs);
}

TEST_F(PDMFxTest, ACallOutOfOrderEndsInAMessage)
{
    form.IFormUI_Clear();
    EXPECT_EQ(form.TV().nodes().Count(), 0);
    EXPECT_FALSE(form.IFormUI_Refresh() || form.IFormUI_FileSave());
    EXPECT_EQ(raised(), QStringList({u"房型|8|刷新数据时出错：模块尚未初始化！"_qs,
                                     u"房型|2|没有具体的房型编号,请录入!"_qs}));
}

} // namespace
