#include "screens/listings/frm_fx_view.h"

#include "library/listings/frm_fx_fixture.h"
#include "screens/frame/form_dialog.h"
#include "screens/listings/frm_fx_layout.h"
#include "screens/support/screen.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QMetaProperty>
#include <QPlainTextEdit>

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
};

TEST_F(FrmFxViewTest, EachFieldInTheOrderOfTabIsItsControls)
{
    const QString tabOrder =
        u"0 1 6 3 8 14 10 4 19 18 16 7 5 17 20 21 22 23 24 25 27 28 29 31 "
        "32 33 34 35 36 37 38 39 40 41 42 43 44 45 46 47 48 49 54 2 13 "
        "50 51 52 53 Txt_0 Cmd_3 Txt_1 Cmd_2 Chk_0 Chk_1 Chk_2 Cmd_4 Cmd_5 Cmd_0 Cmd_1"_qs;
    openOnScreen(makeListing(), [&](QWidget &) {
        for (const QString &expected : tabOrder.split(u' ')) {
            QWidget *focused = QApplication::focusWidget();
            ASSERT_TRUE(focused);
            const QString name = focused->objectName();
            EXPECT_EQ(name, expected[0].isDigit() ? u"qzFcTxt_"_qs + expected : expected);
            if (!qobject_cast<QAbstractButton *>(focused)) {
                const int number = name.section(u'_', 1).toInt();
                const bool isNumber =
                    name.startsWith(u"qz") && form.qzFcTxt(number).judge_type() == qzTxt_S::JudgeNumber;
                // A deal must be a known one, and the key number can be typed where there is a key.
                const bool isDate =
                    name.startsWith(u"qz") && form.qzFcTxt(number).judge_type() == qzTxt_S::JudgeDate;
                const QString text = isNumber                ? QString::number(number)
                                     : isDate                ? u"2026-1-2"_qs
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
    });
    openOnScreen(saved, [&](QWidget &view) {
        EXPECT_EQ(view.windowTitle(), u"房源信息 FY2026110001[*]"_qs);
        EXPECT_FALSE(view.isWindowModified());
        form.Txt(1).setText(u"注"_qs);
        EXPECT_TRUE(view.isWindowModified());
        QTest::keyClick(&view, Qt::Key_S, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !view.isVisible(); })) << "closed by the save";
    });
    EXPECT_EQ(events, u"changed closed"_qs.split(u' '));
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
