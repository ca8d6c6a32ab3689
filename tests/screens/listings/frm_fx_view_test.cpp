#include "screens/listings/frm_fx_view.h"

#include "library/frame/null_conv.h"
#include "library/listings/frm_fx_fixture.h"
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
    static QWidget &child(QWidget &view, const QString &name)
    {
        auto *widget = view.findChild<QWidget *>(name);
        if (!widget)
            throw std::runtime_error("no widget " + name.toStdString());
        return *widget;
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
    /// Goes through the whole form with Tab and types a text into every field.
    static void fillByKeyboard(const std::function<QString(const QString &)> &textFor)
    {
        QStringList walked;
        for (qsizetype step = 0; step < tabOrder().size(); ++step) {
            QWidget *focused = QApplication::focusWidget();
            ASSERT_TRUE(focused);
            const QString name = focused->objectName();
            walked.append(name);
            if (!qobject_cast<QAbstractButton *>(focused)) {
                QTest::keyClick(focused, Qt::Key_A, Qt::ControlModifier);
                typeText(*focused, textFor(name));
            }
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        EXPECT_EQ(walked, tabOrder());
    }
    /// What column holds after the form was filled with these texts.
    void expectStored(const std::function<QString(const QString &)> &textFor)
    {
        const RowBlock row = connection->query(u"select * from fyxx"_qs);
        ASSERT_EQ(row.rowCount(), 1);
        for (const ListingValue &value : listingValues()) {
            const bool typed = value.holder == Holder::FieldText || value.holder == Holder::Memo;
            const QString name =
                (value.holder == Holder::Memo ? u"Txt_%1"_qs : u"qzFcTxt_%1"_qs).arg(value.number);
            if (!typed || value.saved == Saved::Not || !tabOrder().contains(name) || value.number == 0)
                continue;
            const QString text = NullConv::ToText(row.value(0, row.columnNamed(value.column)));
            EXPECT_EQ(text, textFor(name)) << value.column.toString().toStdString();
        }
    }
};

QString numberOf(const QString &name)
{
    return name.section(u'_', 1);
}

/// Every field a text of its own, in the shape that it is stored in; `shift` makes it another one.
QString textOf(const QString &name, int shift)
{
    const int number = numberOf(name).toInt();
    if (name.startsWith(u"Txt_"))
        return u"说明%1"_qs.arg(number + shift);
    const ListingValue &value = editorField(number);
    if (number == 23)
        return u"出售"_qs;
    if (number == 48)
        return u"有匙%1"_qs.arg(shift); // the key number can be typed
    if (value.saved == Saved::Date)
        return u"2026-%1-%2"_qs.arg(1 + shift).arg(number / 3 + 1);
    return value.saved == Saved::Number ? QString::number(number + shift) : u"文%1"_qs.arg(number + shift);
}

TEST_F(FrmFxViewTest, WhatIsTypedIntoTheFieldsIsStoredColumnByColumn)
{
    for (const int shift : {0, 3}) {
        const auto textFor = [shift](const QString &name) { return textOf(name, shift); };
        openOnScreen(saved, [&](QWidget &view) {
            EXPECT_EQ(focusName(), u"qzFcTxt_0");
            fillByKeyboard(textFor);
            if (shift == 0)
                desktop.willAnswer(Desktop::Answer::No);
            QTest::keyClick(&view, Qt::Key_S, Qt::AltModifier);
            EXPECT_TRUE(QTest::qWaitFor([&] { return !view.isVisible(); })) << "closed by the save";
        });
        expectStored(textFor);
    }
    EXPECT_EQ(events, QStringList({u"new"_qs, u"closed"_qs, u"changed"_qs, u"closed"_qs}));
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
            QMap<int, QSet<int>> leftEdges;
            QList<QRect> places;
            for (const QWidget *leaf : view.findChildren<QWidget *>()) {
                const bool isLeaf =
                    qobject_cast<const QLabel *>(leaf) || qobject_cast<const QLineEdit *>(leaf) ||
                    qobject_cast<const QAbstractButton *>(leaf) || qobject_cast<const QPlainTextEdit *>(leaf);
                if (!isLeaf || !leaf->isVisible() || qobject_cast<QLineEdit *>(leaf->parentWidget()))
                    continue;
                const QRect place(leaf->mapTo(&view, QPoint()), leaf->size());
                EXPECT_TRUE(view.rect().contains(place)) << leaf->objectName().toStdString();
                const bool isBox = qobject_cast<const QPlainTextEdit *>(leaf);
                EXPECT_GE(place.height(),
                          isBox ? 3 * leaf->fontMetrics().height() : leaf->minimumSizeHint().height())
                    << leaf->objectName().toStdString();
                const auto *label = qobject_cast<const QLabel *>(leaf);
                EXPECT_TRUE(!label || place.width() >= label->sizeHint().width())
                    << label->text().toStdString();
                for (const QRect &other : places)
                    EXPECT_FALSE(place.intersects(other)) << leaf->objectName().toStdString();
                places.append(place);
            }
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
