#include "host/demo/demo.h"
#include "host/host_fixture.h"
#include "screens/controls/qz_grid_view.h"
#include "screens/controls/tree_view_widget.h"
#include "screens/dictionaries/pdm_cq_view.h"
#include "screens/dictionaries/pdm_fx_view.h"
#include "screens/dictionaries/pdm_lpzd_view.h"
#include "screens/support/screen.h"
#include "support/scripted_desktop.h"

#include <QClipboard>
#include <QPushButton>
#include <QScrollBar>

using namespace ebtq;
using namespace ebtq::test;

namespace {

/// A dictionary on the screen, over the invented agency in memory.
template<class Form, class View> class DictionaryScreen : public ::testing::Test
{
protected:
    DictionaryScreen()
    {
        host::DemoOptions options;
        options.listings = 20;
        options.customers = 2;
        options.followUps = 2;
        options.today = today;
        options.passwordCost = host::PasswordCost::lowest();
        host::writeDemo(*connection, options);
        app = std::make_unique<host::Application>(*connection,
                                                  host::signIn(*connection, u"演示"_qs, u"demo"_qs),
                                                  host::Settings{folder.path(), today}, panels);
        QObject::connect(&form, &Form::ErrMessage,
                         [this](const QString &text, int, const QString &) { errors.append(text); });
        form.IFormUI_Init(*app, 0, 0);
        view.resize(1080, 600);
        showActive(view);
        EXPECT_TRUE(form.IFormUI_Refresh());
    }
    /// Goes to the first record.
    void showFirst()
    {
        Node *node = form.TV().nodes().Item(1);
        while (node->FirstChild())
            node = node->FirstChild();
        node->EnsureVisible();
        form.TV().click(*node);
        child<TreeViewWidget>(view, u"TV"_qs).settle();
    }

    const QDate today{2026, 11, 22};
    std::unique_ptr<db::Connection> connection =
        db::Connection::open(u":memory:"_qs, db::Connection::Missing::IsCreated);
    QTemporaryDir folder;
    ScriptedPanels panels;
    std::unique_ptr<host::Application> app;
    ScriptedDesktop desktop;
    Form form{desktop};
    View view{form, nullptr};
    QStringList errors;
};

using CqScreen = DictionaryScreen<PDMCq, PdmCqView>;
using FxScreen = DictionaryScreen<PDMFx, PdmFxView>;

class LpzdScreen : public DictionaryScreen<PdmLpzd, PdmLpzdView>
{
protected:
    [[nodiscard]] QzGridView &grid() const { return child<QzGridView>(view, u"qzGrid"_qs); }
    void key(int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(code), modifiers);
        QApplication::processEvents(); // an editor is closed after Enter
    }
    void typed(const QString &text) const
    {
        for (const QChar letter : text) // the first one opens an editor
            typeText(*QApplication::focusWidget(), letter);
    }
    /// The columns that are edited, cells separated by commas and rows by "/".
    [[nodiscard]] std::string blocks() const
    {
        QStringList lines;
        for (int row = 1; row < form.blocks().Rows(); ++row) {
            QStringList cells;
            for (int column = 0; column <= PdmLpzd::Floors; ++column)
                cells += form.blocks().TextMatrix(row, column);
            lines += cells.join(u',');
        }
        return lines.join(u'/').toStdString();
    }
};

TEST_F(CqScreen, ShowsAllOfItAndTurnsToTheFieldsWhileEditing)
{
    showFirst();
    EXPECT_GT(expectNothingIsCut(view), 10);
    EXPECT_FALSE(child(view, u"qzTxt_1"_qs).isEnabled());
    form.IFormUI_FileEdit();
    EXPECT_EQ(focusName(), u"qzTxt_1"_qs);
    EXPECT_FALSE(child(view, u"TV"_qs).isEnabled() || child(view, u"Filter"_qs).isEnabled());
}

TEST_F(FxScreen, ShowsTheCountsInOneRow)
{
    showFirst();
    EXPECT_GT(expectNothingIsCut(view), 10);
    EXPECT_EQ(child(view, u"qzTxt_2"_qs).mapTo(&view, QPoint()).y(),
              child(view, u"qzTxt_5"_qs).mapTo(&view, QPoint()).y());
}

TEST_F(LpzdScreen, BlocksAreTypedCellByCell)
{
    showFirst();
    EXPECT_GE(expectNothingIsCut(view), 25);
    for (const QSize size : {QSize(1270, 815), QSize(1112, 540)}) {
        view.resize(size);
        QApplication::processEvents();
    }
    EXPECT_FALSE(grid().horizontalScrollBar()->isVisible()); // also in the first picture of a smaller window
    form.IFormUI_FileNew();
    child<QPushButton>(view, u"addBlock"_qs).click();
    typed(u"A1"_qs);
    key(Qt::Key_Tab);
    typed(u"一栋"_qs);
    key(Qt::Key_Return);
    typed(u"18"_qs);
    key(Qt::Key_Return); // after the last cell: another row
    typed(u"A2"_qs);
    key(Qt::Key_Tab);
    key(Qt::Key_Backtab);
    typed(u"A3"_qs);
    key(Qt::Key_Escape); // gives up the cell, not the record
    EXPECT_EQ(blocks(), "1,A1,一栋,18/2,A2,,");
    typed(u"A4"_qs);
    EXPECT_FALSE(form.IFormUI_FileSave()); // a number is missing
    EXPECT_EQ(blocks(), "1,A1,一栋,18/2,A4,,");
    EXPECT_TRUE(form.Editing());
    grid().setFocus();
    form.blocks().setCurrent(2, PdmLpzd::Floors);
    key(Qt::Key_Tab); // passing through adds nothing
    EXPECT_FALSE(grid().hasFocus());
    grid().setFocus();
    form.blocks().setCurrent(1, 1);
    key(Qt::Key_Delete);
    key(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(blocks(), "1,A4,,");
    key(Qt::Key_Insert);
    typed(u"B"_qs);
    form.IFormUI_FileCancel();
    for (const auto *editor : grid().findChildren<QLineEdit *>())
        EXPECT_TRUE(editor->isHidden());
    grid().setFocus();
    key(Qt::Key_Insert);
    EXPECT_EQ(errors.size(), 1);
}

TEST_F(LpzdScreen, ABlockOfCellsIsPastedAndRowsAreAddedForIt)
{
    form.IFormUI_FileNew();
    grid().setFocus();
    QApplication::clipboard()->setText(u"A1\t\"一\"\"栋\n座\"\t18\textra\r\nA2\t\t9\r\n"_qs);
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(blocks(), "1,A1,一\"栋 座,18/2,A2,,9");
    form.blocks().setCurrent(2, 2);
    QApplication::clipboard()->setText(u"二栋\n\"三"_qs);
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(blocks(), "1,A1,一\"栋 座,18/2,A2,二栋,9/3,,\"三,");
    QObject::connect(&form.blocks(), &qzGrid::AddVsRow, [](int, bool &isAllowed) { isAllowed = false; });
    form.blocks().setCurrent(3, 2);
    QApplication::clipboard()->setText(u"x\ny"_qs);
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(blocks(), "1,A1,一\"栋 座,18/2,A2,二栋,9/3,,x,");
}

} // namespace
