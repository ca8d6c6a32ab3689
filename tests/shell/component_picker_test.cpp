// Pickers of the real component library, as modules are given them: popups driven by keys and mouse.

#include "shell/panels/component_picker.h"

#include "database/schema/installer.h"
#include "shell/component_loader.h"
#include "shell/panels/picker_popup.h"
#include "shell/panels/widget_panel_presenter.h"

#include <QApplication>
#include <QInputDialog>
#include <QScreen>
#include <QSizeGrip>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace ebtq::shell {
namespace {

class ComponentPickerTest : public ::testing::Test
{
protected:
    ComponentPickerTest()
    {
        db::install(*connection);
        for (const char16_t *row : {u"pdmdq(地区ID,编码,地区,级次,是否明细) values(2,'01','清水湾',1,1)",
                                    u"pdmlpzd(楼盘ID,楼盘编号,楼盘名称,地区ID) values(31,'LP1','碧棠花园',2)",
                                    u"pdmlpzd(楼盘ID,楼盘编号,楼盘名称,地区ID) values(32,'LP2','云锦苑',0)"})
            connection->execute(u"insert into "_qs + QString::fromUtf16(row));
        app.setPickerFactory(componentPickers(library, app));
        app.setFailureReport([this](const QString &failure) { failures.append(failure); });
        window.resize(700, 500);
        window.show();
        window.activateWindow();
    }
    HostPicker &buildings() { return app.Picker(u"SelPdmLpzd"_qs); }
    /// Shows the buildings and does `act` while they are open.
    bool show(const std::function<void(PickerPopup &popup)> &act, const QPoint &corner = {20, 30})
    {
        bool seen = false;
        QTimer::singleShot(0, qApp, [&] {
            auto *popup = qobject_cast<PickerPopup *>(QApplication::activePopupWidget());
            ASSERT_TRUE(popup);
            seen = true;
            act(*popup);
            if (!QTest::qWaitFor([&] { return !popup->isVisible(); })) {
                ADD_FAILURE() << "the panel should have closed";
                popup->hide();
            }
        });
        const bool chosen = buildings().Show(corner.x(), corner.y(), text, value);
        EXPECT_TRUE(seen);
        return chosen;
    }
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QWidget *popup = QApplication::activePopupWidget();
        QTest::keyClick(popup ? popup->focusWidget() : QApplication::focusWidget(), key, modifiers);
    }
    static void leave(PickerPopup &) { press(Qt::Key_Escape); }

    ComponentLibrary &library = loadComponentLibrary({QStringLiteral(EBTQ_COMPONENT_LIBRARY)});
    QTemporaryDir folder;
    std::unique_ptr<db::Connection> connection =
        db::Connection::open(u":memory:"_qs, db::Connection::Missing::IsCreated);
    WidgetPanelPresenter presenter;
    host::Application app{
        *connection, {u"U1"_qs, u"张敏"_qs, {}}, {folder.path(), QDate(2026, 11, 22)}, presenter};
    QWidget window;
    QStringList failures;
    QString text = u"旧"_qs;
    QVariant value = 9;
};

TEST_F(ComponentPickerTest, NamesAreThoseOfItsPickersAlone)
{
    for (const char *name : {"selpdm", "selpdmlpzd", "SelPdmDz", "pdmdq"})
        EXPECT_TRUE(app.Picker(QLatin1String(name)).Ready(0)) << name;
    for (const char *name : {"fcxx", "selpdmxx", ""})
        EXPECT_FALSE(app.Picker(QLatin1String(name)).Ready(0)) << name;
    const host::PickerFactory make = componentPickers(library, app);
    EXPECT_FALSE(make(u"pdmdq"_qs)) << "it is the host's own";
    EXPECT_FALSE(make(u"fcxx"_qs)) << "it is no picker";
}

TEST_F(ComponentPickerTest, ThePanelEndsWithAChoiceOrWithout)
{
    const std::tuple<const char *, std::function<void(PickerPopup & popup)>, QString> cases[] = {
        {"Enter", [](PickerPopup &) { press(Qt::Key_Return); }, u"31|碧棠花园"_qs},
        {"the next row",
         [](PickerPopup &) {
             press(Qt::Key_Down);
             press(Qt::Key_D, Qt::AltModifier);
         },
         u"32|云锦苑"_qs},
        {"Escape", leave, {}},
        {"the button", [](PickerPopup &) { press(Qt::Key_C, Qt::AltModifier); }, {}},
        {"a press outside",
         [](PickerPopup &popup) { QTest::mouseClick(&popup, Qt::LeftButton, {}, QPoint(-20, -20)); },
         {}},
    };
    window.hide();
    window.setWindowModality(Qt::ApplicationModal); // as a form is; it must not be taken for a dialog above
    window.show();
    for (const auto &[what, act, chosen] : cases) {
        text = u"旧"_qs;
        value = 9;
        EXPECT_EQ(show(act), !chosen.isEmpty()) << what;
        EXPECT_EQ(value.toString() + u'|' + text, chosen.isEmpty() ? u"9|旧"_qs : chosen) << what;
    }
    EXPECT_FALSE(buildings().Validate({}, {}, {}, u"无"_qs, value, text));
    EXPECT_EQ(failures, QStringList()) << "no match is no failure";
    EXPECT_FALSE(buildings().Validate({}, {}, {}, u"a'b"_qs, value, text));
    EXPECT_EQ(failures.size(), 1);
}

TEST_F(ComponentPickerTest, StaysOnTheScreenAndKeepsItsSize)
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    QSize sized;
    show(
        [&](PickerPopup &popup) {
            EXPECT_TRUE(screen.contains(popup.geometry()));
            auto *grip = popup.findChild<QSizeGrip *>();
            const QSize before = popup.size();
            const QPoint inside = grip->rect().center();
            QTest::mousePress(grip, Qt::LeftButton, {}, inside);
            QTest::mouseMove(grip, inside + QPoint(0, -60));
            QTest::mouseRelease(grip, Qt::LeftButton, {}, inside);
            sized = popup.size();
            EXPECT_EQ(sized.height(), before.height() - 60);
            leave(popup);
        },
        screen.bottomRight());
    show([&](PickerPopup &popup) {
        EXPECT_EQ(popup.size(), sized);
        leave(popup);
    });
}

TEST_F(ComponentPickerTest, ADialogAbovePutsThePanelAsideForAWhile)
{
    show([&](PickerPopup &popup) {
        QTimer answer;
        QObject::connect(&answer, &QTimer::timeout, &answer, [&] {
            auto *dialog = qobject_cast<QInputDialog *>(QApplication::activeModalWidget());
            if (!dialog || !dialog->isVisible())
                return;
            answer.stop();
            EXPECT_FALSE(popup.isVisible());
            EXPECT_FALSE(QApplication::activePopupWidget()) << "it would take the dialog's keys";
            dialog->setTextValue(u"3"_qs);
            dialog->accept();
        });
        answer.start(0);
        press(Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
        ASSERT_TRUE(QTest::qWaitFor([&] { return popup.isVisible(); }));
        press(Qt::Key_B, Qt::ControlModifier);
        QTest::sendKeyEvent(QTest::Click, popup.focusWidget(), Qt::Key_unknown, u"云锦"_qs, {});
        press(Qt::Key_Down);
        press(Qt::Key_Return);
    });
    EXPECT_EQ(text, u"云锦苑"_qs);
}

} // namespace
} // namespace ebtq::shell
