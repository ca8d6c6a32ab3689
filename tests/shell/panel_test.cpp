#include "shell/panels/calendar_popup.h"
#include "shell/panels/panel_model.h"
#include "shell/panels/panel_popup.h"
#include "shell/panels/widget_panel_presenter.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include <gtest/gtest.h>

namespace ebtq::shell {
namespace {

using Rows = std::vector<std::vector<std::string>>;

host::Panel panelOf(const Rows &rows, std::vector<host::Panel::ShownColumn> shown)
{
    std::vector<Column> columns;
    for (size_t number = 0; number < rows.front().size(); ++number)
        columns.push_back({QString::number(number), ColumnType::Text});
    RowBlock block(columns);
    for (const auto &row : rows)
        for (const auto &cell : row)
            block.append(cell);
    block.finish();
    return {.title = u"测试"_qs, .rows = std::move(block), .shown = std::move(shown)};
}

host::Panel employees()
{
    return panelOf({{"01", "张敏"}, {"02", "李强"}, {"03", "王芳"}, {"04", "张三A"}},
                   {{0, u"编号"_qs}, {1, u"姓名"_qs}});
}

/// City, districts and quarters by level code; only quarters and the last district can be chosen. The order
/// of the rows is not that of the tree.
host::Panel districts()
{
    host::Panel panel = panelOf({{"0101", "城东", "1"},
                                 {"01", "天河区", "0"},
                                 {"0102", "城西", "1"},
                                 {"02", "海珠区", "0"},
                                 {"020301", "江南", "1"},
                                 {"9", "越秀区", "1"}},
                                {{1, u"地区"_qs}});
    panel.levelCodeColumn = 0;
    panel.choosableColumn = 2;
    return panel;
}

/// One event.
struct Key
{
    Qt::Key key;
    QString text = {};
};
using Keys = std::vector<Key>;

void sendToPopup(const Keys &keys)
{
    QTimer::singleShot(0, qApp, [keys] {
        for (const Key &key : keys) {
            QWidget *popup = QApplication::activePopupWidget();
            ASSERT_NE(popup, nullptr) << "the panel closed before the keys were through";
            QKeyEvent press(QEvent::KeyPress, key.key, Qt::NoModifier, key.text);
            QApplication::sendEvent(popup->focusWidget(), &press);
        }
        QWidget *left = QApplication::activePopupWidget();
        EXPECT_EQ(left, nullptr) << "the keys should have closed the panel";
        if (left)
            left->close();
    });
}

std::optional<qsizetype> choose(const host::Panel &panel, const Keys &keys)
{
    sendToPopup(keys);
    return WidgetPanelPresenter().choose(panel);
}

Key typed(const char16_t *text)
{
    return {Qt::Key_unknown, QString::fromUtf16(text)};
}

constexpr auto none = std::nullopt;

TEST(PanelPopup, IsAsTallAsItsRowsWhileTheyFit)
{
    int before = 0;
    for (const size_t rows : {4, 8, 100, 1000}) {
        const host::Panel panel = panelOf(Rows(rows, {"01", "张敏"}), {{0, u"编号"_qs}, {1, u"姓名"_qs}});
        PanelPopup popup(panel);
        popup.resize(popup.sizeHint());
        popup.show();
        auto &view = *popup.findChild<QTreeView *>();
        const QRect last = view.visualRect(view.model()->index(static_cast<int>(rows) - 1, 0));
        if (rows <= 8) {
            EXPECT_NEAR(view.viewport()->rect().bottom(), last.bottom(), last.height() / 2);
        } else if (rows == 1000) {
            EXPECT_EQ(popup.height(), before);
        }
        before = popup.height();
    }
}

TEST(PanelPopup, KeyboardChoosesFromAList)
{
    const std::tuple<const char *, qsizetype, Keys, std::optional<qsizetype>> cases[] = {
        {"enter takes the first row", -1, {{Qt::Key_Return}}, 0},
        {"enter takes the preset row", 2, {{Qt::Key_Enter}}, 2},
        {"arrows move", -1, {{Qt::Key_Down}, {Qt::Key_Down}, {Qt::Key_Up}, {Qt::Key_Return}}, 1},
        {"arrows stop at the ends", -1, {{Qt::Key_Up}, {Qt::Key_Return}}, 0},
        {"page down goes to the end", -1, {{Qt::Key_PageDown}, {Qt::Key_Return}}, 3},
        {"escape leaves", 2, {{Qt::Key_Down}, {Qt::Key_Escape}}, none},
        {"typing filters by any shown column", -1, {typed(u"03"), {Qt::Key_Return}}, 2},
        {"and moves within what is left", -1, {typed(u"张"), {Qt::Key_Down}, {Qt::Key_Return}}, 3},
        {"without regard to case", -1, {typed(u"三a"), {Qt::Key_Return}}, 3},
        {"nothing to choose is left", -1, {typed(u"无"), {Qt::Key_Return}, {Qt::Key_Escape}}, none},
        {"an emptied box brings the preset back",
         2,
         {typed(u"张"), {Qt::Key_Backspace}, {Qt::Key_Return}},
         2},
    };
    for (const auto &[what, preset, keys, chosen] : cases) {
        host::Panel panel = employees();
        panel.currentRow = preset;
        EXPECT_EQ(choose(panel, keys), chosen) << what;
    }
}

TEST(PanelPopup, KeyboardPassesOverRowsOfATreeThatCannotBeChosen)
{
    const std::tuple<const char *, Keys, std::optional<qsizetype>> cases[] = {
        {"the first choosable row is current", {{Qt::Key_Return}}, 0},
        {"the arrow goes to the next choosable one", {{Qt::Key_Down}, {Qt::Key_Return}}, 2},
        {"across a district", {{Qt::Key_Down}, {Qt::Key_Down}, {Qt::Key_Return}}, 4},
        {"a district's name alone leaves nothing to choose",
         {typed(u"天河"), {Qt::Key_Return}, {Qt::Key_Escape}},
         none},
        {"a quarter is found below its district", {typed(u"江南"), {Qt::Key_Return}}, 4},
        {"a choosable district", {typed(u"越秀"), {Qt::Key_Return}}, 5},
    };
    for (const auto &[what, keys, chosen] : cases)
        EXPECT_EQ(choose(districts(), keys), chosen) << what;
}

/// Does `act` while the panel is open.
std::optional<qsizetype> chooseBy(const host::Panel &panel, const std::function<void(QWidget &popup)> &act)
{
    QTimer::singleShot(0, qApp, [&] { act(*QApplication::activePopupWidget()); });
    return WidgetPanelPresenter().choose(panel);
}

TEST(PanelPopup, DoubleClickChoosesOnlyWhatCanBeChosen)
{
    const auto act = [](QWidget &popup) {
        auto *rows = popup.findChild<QTreeView *>();
        const QModelIndex district = rows->model()->index(0, 0);
        for (const QModelIndex &index : {district, rows->model()->index(1, 0, district)}) {
            EXPECT_TRUE(popup.isVisible());
            const QPoint place = rows->visualRect(index).center();
            QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, place);
            QTest::mouseDClick(rows->viewport(), Qt::LeftButton, {}, place);
        }
    };
    EXPECT_EQ(chooseBy(districts(), act), 2);
}

TEST(PanelPopup, AnEmptyPanelSaysSoAndCanBeLeft)
{
    host::Panel panel = employees();
    panel.rows = RowBlock(panel.rows.columns());
    const auto act = [](QWidget &popup) {
        EXPECT_FALSE(popup.findChild<QTreeView *>()->isVisible());
        EXPECT_TRUE(popup.findChild<QLabel *>()->isVisible());
        QTest::keyClick(popup.focusWidget(), Qt::Key_Return);
        QTest::keyClick(popup.focusWidget(), Qt::Key_Escape);
    };
    EXPECT_EQ(chooseBy(panel, act), none);
}

TEST(PanelPopup, StaysWholeOnTheScreen)
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    for (const QPoint corner : {screen.topLeft(), screen.bottomRight(), QPoint(-500, 5000)}) {
        host::Panel panel = employees();
        panel.left = corner.x();
        panel.top = corner.y();
        const auto act = [&](QWidget &popup) {
            EXPECT_TRUE(screen.contains(popup.geometry())) << corner.x() << "," << corner.y();
            popup.close();
        };
        EXPECT_EQ(chooseBy(panel, act), none);
    }
}

TEST(PanelModel, HangsARowBelowTheLongestCodeThatBeginsItsOwnAndKeepsItsShape)
{
    const host::Panel panel = districts();
    PanelModel model(panel);
    const std::pair<qsizetype, qsizetype> parents[] = {{0, 1}, {2, 1}, {4, 3}, {5, -1}};
    for (const auto &[row, parent] : parents)
        EXPECT_EQ(model.panelRow(model.indexOfRow(row).parent()), parent) << row;
    EXPECT_EQ(model.rowCount(), 3);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
    for (const char16_t *filter : {u"0", u"江", u"没有", u"", u"区", u" 张 "})
        model.setFilter(QString::fromUtf16(filter));
}

/// A press on the form's button closes the popup, and the form closes with a question.
TEST(PanelPopup, IsNotWaitedForLongerThanTheFormBelow)
{
    const host::Panel panel = employees();
    QDialog form;
    bool hasReturned = false;
    const auto closeForm = [&] {
        QApplication::activePopupWidget()->close();
        QDialog question(&form);
        QTimer::singleShot(0, &question, &QDialog::accept);
        question.exec();
        form.accept();
    };
    QTimer::singleShot(0, &form, [&] {
        QTimer::singleShot(0, &form, closeForm);
        EXPECT_EQ(WidgetPanelPresenter().choose(panel), std::nullopt);
        hasReturned = true;
    });
    form.exec();
    EXPECT_TRUE(hasReturned);
}

TEST(CalendarPopup, KeyboardChoosesADay)
{
    const QDate preset(2026, 2, 28);
    const std::tuple<const char *, Keys, std::optional<QDate>> cases[] = {
        {"the preset day", {{Qt::Key_Return}}, preset},
        {"the day after", {{Qt::Key_Right}, {Qt::Key_Return}}, QDate(2026, 3, 1)},
        {"a week before", {{Qt::Key_Up}, {Qt::Key_Return}}, QDate(2026, 2, 21)},
        {"a month later", {{Qt::Key_PageDown}, {Qt::Key_Return}}, QDate(2026, 3, 28)},
        {"none", {{Qt::Key_Escape}}, none},
    };
    for (const auto &[what, keys, chosen] : cases) {
        sendToPopup(keys);
        EXPECT_EQ(WidgetPanelPresenter().chooseDate(preset, 10, 10), chosen) << what;
    }
}

} // namespace
} // namespace ebtq::shell
