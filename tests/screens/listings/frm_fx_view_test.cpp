#include "screens/listings/frm_fx_view.h"

#include "library/listings/frm_fx_fixture.h"
#include "screens/frame/form_dialog.h"
#include "screens/listings/frm_fx_layout.h"
#include "screens/support/screen.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMetaProperty>
#include <QPlainTextEdit>
#include <QTest>

using namespace ebtq;
using namespace ebtq::test;

namespace {

/// The editor on the screen.
class FrmFxViewTest : public FrmFxTest
{
protected:
    void openOnScreen(const QString &listing, const std::function<void(QWidget &)> &act,
                      bool hideOwner = false)
    {
        open(
            listing,
            [&] {
                FrmFxView view(form, nullptr);
                view.setFocus();
                showActive(view);
                act(view);
            },
            hideOwner);
    }
    static void click(QWidget &view, const char16_t *button)
    {
        QTest::mouseClick(&child(view, QString::fromUtf16(button)), Qt::LeftButton);
    }
    /// The names of the widgets that Tab goes through, beginning with the first one.
    static QStringList tabOrder()
    {
        QStringList names;
        for (const EditorCell &cell : editorCells()) {
            if (cell.kind == EditorCell::Rooms) {
                for (const RoomCount &room : roomCounts())
                    names.append(u"qzFcTxt_%1"_qs.arg(room.number));
            } else if (cell.kind == EditorCell::Memo) {
                names.append(u"Txt_%1"_qs.arg(cell.number));
                names.append(u"Cmd_%1"_qs.arg(cell.number == 0 ? 3 : 2));
            } else if (cell.kind != EditorCell::Computed && cell.number != 11 && cell.number != 12 &&
                       cell.number != 9) {
                names.append(u"qzFcTxt_%1"_qs.arg(cell.number));
            }
        }
        return names + QStringList{u"Chk_0"_qs, u"Chk_1"_qs, u"Chk_2"_qs, u"Cmd_0"_qs, u"Cmd_1"_qs};
    }
};

TEST_F(FrmFxViewTest, EachFieldInTheOrderOfTabIsItsControls)
{
    openOnScreen(makeListing(), [&](QWidget &) {
        QStringList walked;
        for (qsizetype step = 0; step < tabOrder().size(); ++step) {
            QWidget *focused = QApplication::focusWidget();
            ASSERT_TRUE(focused);
            const QString name = focused->objectName();
            walked.append(name);
            if (!qobject_cast<QAbstractButton *>(focused)) {
                const int number = name.section(u'_', 1).toInt();
                const bool isNumber =
                    name.startsWith(u"qz") && form.qzFcTxt(number).judge_type() == qzTxt_S::JudgeNumber;
                // A deal must be a known one, and the key number can be typed where there is a key.
                const QString text = isNumber                ? QString::number(number)
                                     : name == u"qzFcTxt_23" ? u"出售"_qs
                                     : name == u"qzFcTxt_48" ? u"有匙"_qs
                                                             : u"文"_qs + name;
                QTest::keyClick(focused, Qt::Key_A, Qt::ControlModifier);
                typeText(*focused, text);
                QTest::keyClick(focused, Qt::Key_Tab);
                EXPECT_EQ(name.startsWith(u"Txt_") ? form.Txt(number).Text() : form.qzFcTxt(number).Text(),
                          text);
            } else {
                QTest::keyClick(focused, Qt::Key_Tab);
            }
        }
        EXPECT_EQ(walked, tabOrder());
    });
    openOnScreen(saved, [&](QWidget &view) {
        QTest::keyClick(&view, Qt::Key_S, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !view.isVisible(); })) << "closed by the save";
    });
    EXPECT_EQ(events, u"changed closed"_qs.split(u' '));
}

/// What a person types into the widgets, and the columns that it must reach, new and changed. What no list
/// knows is stored as it was typed; the number of a new listing is the host's.
TEST_F(FrmFxViewTest, EveryFieldReachesItsColumn)
{
    const struct
    {
        const char16_t *field;
        const char16_t *typed;
        const char16_t *column;
    } fields[] = {
        {u"qzFcTxt_1", u"城", u"地区"},
        {u"qzFcTxt_6", u"楼", u"楼盘字典"},
        {u"qzFcTxt_3", u"栋", u"栋座位置"},
        {u"qzFcTxt_8", u"1801", u"房号"},
        {u"qzFcTxt_14", u"8", u"楼层"},
        {u"qzFcTxt_10", u"18", u"总楼层"},
        {u"qzFcTxt_4", u"5", u"房型_房"},
        {u"qzFcTxt_19", u"2", u"房型_厅"},
        {u"qzFcTxt_18", u"3", u"房型_卫"},
        {u"qzFcTxt_16", u"1", u"房型_阳台"},
        {u"qzFcTxt_7", u"91.5", u"总面积"},
        {u"qzFcTxt_5", u"80.25", u"实用面积"},
        {u"qzFcTxt_17", u"朝", u"朝向"},
        {u"qzFcTxt_20", u"用", u"用途"},
        {u"qzFcTxt_21", u"类", u"类型"},
        {u"qzFcTxt_22", u"1999", u"建房年代"},
        {u"qzFcTxt_23", u"出售", u"交易方式"},
        {u"qzFcTxt_24", u"状", u"交易状态"},
        {u"qzFcTxt_25", u"201", u"售房价格"},
        {u"qzFcTxt_27", u"202", u"售房底价"},
        {u"qzFcTxt_28", u"税", u"售房包税费"},
        {u"qzFcTxt_29", u"3001", u"租房价格"},
        {u"qzFcTxt_31", u"3002", u"租房底价"},
        {u"qzFcTxt_32", u"103", u"租房原购价"},
        {u"qzFcTxt_33", u"2026-1-2", u"委托日期"},
        {u"qzFcTxt_34", u"委", u"委托方式"},
        {u"qzFcTxt_35", u"2026-1-3", u"交房日期"},
        {u"qzFcTxt_36", u"WT", u"委托编号"},
        {u"qzFcTxt_37", u"2.5", u"管理费"},
        {u"qzFcTxt_38", u"来", u"来源"},
        {u"qzFcTxt_39", u"现", u"现状"},
        {u"qzFcTxt_40", u"装", u"装修"},
        {u"qzFcTxt_41", u"配", u"配套"},
        {u"qzFcTxt_42", u"具", u"家具"},
        {u"qzFcTxt_43", u"电", u"家电"},
        {u"qzFcTxt_44", u"产", u"产权"},
        {u"qzFcTxt_45", u"证", u"证件"},
        {u"qzFcTxt_46", u"付", u"付款"},
        {u"qzFcTxt_47", u"佣", u"付佣"},
        {u"qzFcTxt_48", u"匙", u"看房"},
        {u"qzFcTxt_49", u"A-7", u"钥匙号"},
        {u"qzFcTxt_54", u"附", u"附属房"},
        {u"qzFcTxt_2", u"2026-1-4", u"操作日期"},
        {u"qzFcTxt_50", u"业", u"业主"},
        {u"qzFcTxt_51", u"联", u"联系人"},
        {u"qzFcTxt_52", u"国", u"国籍"},
        {u"qzFcTxt_53", u"139", u"手机"},
        {u"Txt_0", u"联系注", u"联系说明"},
        {u"Txt_1", u"备注", u"备注"},
    };
    for (const bool isNew : {true, false}) {
        for (const auto &each : fields) // nothing is left of what was typed the first time
            connection->execute(u"update fyxx set %1=Null"_qs.arg(QString::fromUtf16(each.column)));
        openOnScreen(isNew ? QString() : saved, [&](QWidget &view) {
            for (const auto &each : fields) {
                QWidget &field = child(view, QString::fromUtf16(each.field));
                field.setFocus();
                QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
                typeText(field, QString::fromUtf16(each.typed));
                QTest::keyClick(&field, Qt::Key_Tab);
            }
            if (isNew)
                desktop.willAnswer(Desktop::Answer::No);
            click(view, u"Cmd_0");
        });
        for (const auto &each : fields)
            EXPECT_EQ(stored(QString::fromUtf16(each.column) + u" & ''"_qs), QString::fromUtf16(each.typed))
                << QString::fromUtf16(each.field).toStdString() << (isNew ? " new" : " changed");
    }
}

TEST_F(FrmFxViewTest, ARefusedDealHoldsTheSaveBackButNotTheWayOut)
{
    openOnScreen(makeListing(), [&](QWidget &view) {
        events.clear();
        QWidget &deal = child(view, u"qzFcTxt_23"_qs);
        deal.setFocus();
        QTest::keyClick(&deal, Qt::Key_A, Qt::ControlModifier);
        typeText(deal, u"送"_qs);
        click(view, u"Cmd_0");
        EXPECT_EQ(events, QStringList());
        EXPECT_EQ(focusName(), u"qzFcTxt_23");
        const auto *bubble = view.findChild<QLabel *>(u"FieldError"_qs);
        ASSERT_TRUE(bubble);
        EXPECT_EQ(bubble->text(), u"交易输入有误，请重新输入！");
        click(view, u"Cmd_1");
        EXPECT_FALSE(view.isVisible());
    });
    EXPECT_EQ(stored(u"交易方式"_qs), u"出售");
}

TEST_F(FrmFxViewTest, EscapeAndTheCloseBoxAskBeforeTheyDiscard)
{
    open(makeListing(), [&] {
        FormDialog dialog(nullptr);
        dialog.setView(new FrmFxView(form, &dialog));
        showActive(dialog);
        form.Txt(1).setText(u"注"_qs);
        const std::function<void()> ways[] = {[&] { QTest::keyClick(&dialog, Qt::Key_Escape); },
                                              [&] { dialog.close(); }};
        for (const auto &close : ways) {
            desktop.willChoose(std::nullopt);
            close();
            EXPECT_TRUE(dialog.isVisible());
        }
        desktop.willChoose(1);
        dialog.close();
        EXPECT_FALSE(dialog.isVisible());
    });
}

TEST_F(FrmFxViewTest, ForReadingOnlyItSaysSoAndTakesNothing)
{
    const QString id = makeListing();
    openOnScreen(
        id,
        [&](QWidget &view) {
            EXPECT_TRUE(child(view, u"readOnly"_qs).isVisible());
            const QString before = app.lastStatement.text();
            for (QWidget *input : view.findChildren<QWidget *>()) {
                if (qobject_cast<QLineEdit *>(input) || qobject_cast<QPlainTextEdit *>(input)) {
                    input->setFocus();
                    QTest::keyClicks(input, u"1"_qs);
                    QTest::keyClick(input, Qt::Key_F4);
                }
            }
            click(view, u"Cmd_0");
            EXPECT_FALSE(form.isDirty());
            EXPECT_EQ(app.lastStatement.text(), before);
        },
        true);
    openOnScreen(id, [](QWidget &view) { EXPECT_FALSE(view.findChild<QWidget *>(u"readOnly"_qs)); });
}

TEST_F(FrmFxViewTest, WithoutTheOwnerNoWidgetKnowsAnythingOfHim)
{
    const QString id = makeListing();
    const QString secret = u"隐私"_qs;
    connection->execute(
        u"update fyxx set 业主='隐私一',联系人='隐私二',国籍='隐私三',手机='隐私四',联系说明='隐私五'"_qs);
    openOnScreen(
        id,
        [&](QWidget &view) {
            QList<QObject *> all = view.findChildren<QObject *>();
            all.append(&view);
            for (const QObject *object : all) {
                for (int at = 0; at < object->metaObject()->propertyCount(); ++at) {
                    const QMetaProperty property = object->metaObject()->property(at);
                    const QString text = property.read(object).toString();
                    EXPECT_FALSE(text.contains(secret) || text == u"业主" || text == u"手机")
                        << property.name() << " of " << object->objectName().toStdString();
                }
            }
        },
        true);
}

TEST_F(FrmFxViewTest, FieldsLineUpAndNothingIsCut)
{
    const QString longText = u"一个很长很长很长的楼盘名称，放不进它的输入框里"_qs;
    for (const QSize size : {QSize(), QSize(1280, 690), QSize(2560, 1400)}) {
        openOnScreen({}, [&](QWidget &view) {
            if (size.isValid())
                view.resize(size);
            form.qzFcTxt(6).setText(longText);
            form.qzFcTxt(27).setText(u"123456789012345678901234567890"_qs);
            QCoreApplication::processEvents();
            EXPECT_LE(view.minimumSizeHint().width(), 1240);
            EXPECT_LE(view.minimumSizeHint().height(), 660);
            EXPECT_GT(expectNothingIsCut(view, 3), 100);
            QMap<int, QSet<int>> leftEdges;
            for (const EditorCell &cell : editorCells()) {
                if (cell.kind != EditorCell::Memo)
                    leftEdges[cell.pair].insert(
                        child(view, u"qzFcTxt_%1"_qs.arg(cell.number)).mapTo(&view, QPoint()).x());
            }
            for (const QSet<int> &edges : leftEdges)
                EXPECT_EQ(edges.size(), 1) << "fields of one column of the form";
        });
    }
}

} // namespace
