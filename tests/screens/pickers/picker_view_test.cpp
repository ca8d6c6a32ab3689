#include "screens/pickers/picker_view.h"

#include "library/pickers/picker_fixture.h"
#include "screens/support/screen.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>

using namespace ebtq;
using namespace ebtq::test;

namespace {

class PickerViewTest : public PickerTest
{
protected:
    template<class P> P &onScreen(const QString &parameters = {})
    {
        view.reset();
        P &result = made<P>(parameters);
        view = std::make_unique<PickerView>(result, nullptr);
        view->resize(view->sizeHint());
        EXPECT_TRUE(result.IPickerUI_Refresh());
        showActive(*view);
        return result;
    }
    template<class T = QWidget> [[nodiscard]] T &child(const char *name) const
    {
        return *view->findChild<T *>(QLatin1String(name));
    }
    [[nodiscard]] QTableView &rows() const { return child<QTableView>("VS"); }
    [[nodiscard]] QPoint placeOf(int row, int column) const
    {
        return rows().visualRect(rows().model()->index(row, column)).center();
    }
    void press(int key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }
    [[nodiscard]] QString choice() const
    {
        return picker->IPickerUI_Value().toString() + u'|' + picker->IPickerUI_Text();
    }

    std::unique_ptr<PickerView> view;
};

TEST_F(PickerViewTest, TheKeyboardReachesEverything)
{
    auto &list = onScreen<selPdm>(remarks);
    EXPECT_EQ(focusName(), u"VS"_qs) << "the list has the keyboard when it opens";
    press(Qt::Key_Space);
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    EXPECT_EQ(shown(1), QStringList({u"√"_qs, u"√"_qs, QString()}));
    press(Qt::Key_Space);
    press(Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(focusName(), u"Txt_0"_qs);
    press(Qt::Key_Up);
    EXPECT_EQ(list.VS().Row(), 1) << "arrows in the find box move through the list";
    press(Qt::Key_Return);
    EXPECT_EQ(choice(), u"12|急售"_qs);
    const std::tuple<int, Qt::KeyboardModifiers, QString, QString> cases[] = {
        {Qt::Key_A, Qt::AltModifier, u"√√√"_qs, {}},
        {Qt::Key_E, Qt::AltModifier, QString(), {}},
        {Qt::Key_D, Qt::AltModifier, QString(), u"select"_qs},
        {Qt::Key_C, Qt::AltModifier, QString(), u"cancel"_qs},
        {Qt::Key_A, Qt::AltModifier, u"√√√"_qs, {}},
        {Qt::Key_R, Qt::AltModifier, QString(), {}}};
    for (const auto &[key, modifiers, ticked, event] : cases) {
        events.clear();
        press(key, modifiers);
        // A letter presses its button for a moment, so that the person sees it.
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return shown(1).join(QString()) == ticked && events.join(u',') == event;
        })) << key;
    }
    typeText(child("Txt_0"), u"急"_qs);
    QTest::keyClick(&child("Txt_0"), Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(list.Txt(0).Text(), u"急") << "a command's letter is no text";
    press(Qt::Key_F, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return list.Check().Value() == 1; }));
    EXPECT_FALSE(view->findChild<QLineEdit *>(u"Txt_1"_qs))
        << "the searched columns are asked for by keys only";
}

TEST_F(PickerViewTest, TheMouseTicksOrChooses)
{
    (void)onScreen<selPdm>(remarks);
    QTest::mouseClick(rows().viewport(), Qt::LeftButton, {}, placeOf(2, 3));
    QTest::mouseClick(rows().viewport(), Qt::LeftButton, {}, QPoint(20, rows().viewport()->height() - 5));
    EXPECT_EQ(shown(1), QStringList({QString(), QString(), u"√"_qs}));
    QTest::mouseClick(rows().viewport(), Qt::LeftButton, {}, placeOf(0, 2));
    QTest::mouseDClick(rows().viewport(), Qt::LeftButton, {}, placeOf(0, 2));
    EXPECT_EQ(events, QStringList()) << "a double click ticks once and chooses nothing";
    for (const auto &[names, ticks] : {std::pair(u"学位未用 急售 满五唯一"_qs, u"√ √ "_qs),
                                       std::pair(u"满五唯一 急售 学位未用"_qs, u" √ √"_qs)}) {
        const QHeaderView &captions = *rows().horizontalHeader();
        QTest::mouseClick(captions.viewport(), Qt::LeftButton, {},
                          {captions.sectionViewportPosition(3) + 20, captions.height() / 2});
        EXPECT_EQ(shown(3).join(u' '), names);
        EXPECT_EQ(shown(1).join(u' '), ticks);
    }

    (void)onScreen<selPdmDz>();
    QTest::mouseClick(rows().viewport(), Qt::LeftButton, {}, placeOf(1, 2));
    EXPECT_EQ(events, QStringList());
    QTest::mouseDClick(rows().viewport(), Qt::LeftButton, {}, placeOf(1, 2));
    EXPECT_EQ(events, QStringList(u"select"_qs));
    EXPECT_EQ(choice(), u"8|一栋"_qs);
}

TEST_F(PickerViewTest, CaptionsThatStayInSightSortToo)
{
    auto &list = onScreen<selPdmLpzd>();
    list.VS().setRow(2);
    view->resize(420, 400);
    QCoreApplication::processEvents();
    rows().horizontalScrollBar()->setValue(60);
    const QHeaderView &captions = *child<QTableView>("VS_frozen").horizontalHeader();
    QTest::mouseClick(captions.viewport(), Qt::LeftButton, {},
                      {captions.sectionViewportPosition(2) + 20, captions.height() / 2});
    EXPECT_EQ(shown(2).join(u' '), u"BTHY QSJ YJY"_qs);
    EXPECT_EQ(list.VS().TextMatrix(list.VS().Row(), 2), u"YJY"_qs)
        << "the current row goes with its contents";
}

TEST_F(PickerViewTest, TheComboBoxTellsDistrictsOfOneNameApart)
{
    auto &list = onScreen<selPdmLpzd>();
    auto &combo = child<QComboBox>("Cmb");
    combo.showPopup();
    QTest::mouseClick(combo.view()->viewport(), Qt::LeftButton, {},
                      combo.view()->visualRect(combo.model()->index(3, 0)).center());
    EXPECT_EQ(shown(1), QStringList(u"LP3"_qs));
    EXPECT_EQ(focusName(), u"VS"_qs);
    combo.setFocus();
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    EXPECT_EQ(list.Cmb()->ListIndex(), 1);
    EXPECT_EQ(shown(1), QStringList(u"LP3"_qs)) << "passing through the entries loads nothing";
    press(Qt::Key_Return);
    EXPECT_EQ(shown(1), QStringList(u"LP1"_qs));

    connection->execute(u"update pdmdq set 地区='青山里' where 地区ID=3"_qs);
    set(u"地区=青山里;lock=1"_qs);
    EXPECT_TRUE(list.IPickerUI_Refresh());
    EXPECT_EQ(combo.itemText(2), u"青山里"_qs);
    EXPECT_EQ(combo.currentText(), u"青山里"_qs);
    EXPECT_FALSE(combo.isEnabled());
}

TEST_F(PickerViewTest, AFailureIsToldOnThePanel)
{
    (void)onScreen<selPdm>(remarks);
    const QLabel &failure = child<QLabel>("lblFailure");
    EXPECT_FALSE(failure.isVisible());
    set(u"table=无此表"_qs);
    press(Qt::Key_R, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return failure.isVisible(); }));
    EXPECT_TRUE(failure.text().contains(u"无此表")) << failure.text().toStdString();
    set(u"table=pdmsjzd"_qs);
    press(Qt::Key_R, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !failure.isVisible(); }));
}

} // namespace
