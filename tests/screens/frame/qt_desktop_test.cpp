#include "screens/frame/qt_desktop.h"

#include "library/frame/host_contracts.h"
#include "screens/frame/view_registry.h"
#include "screens/support/screen.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace ebtq;
using namespace ebtq::test;

namespace {

class Form : public QObject
{
    Q_OBJECT
};

/// Refuses to close once.
class FormView : public QWidget
{
    Q_OBJECT

public:
    FormView(Form &, QWidget *parent)
        : QWidget(parent)
    {
        setWindowTitle(QStringLiteral("登记"));
        setMinimumSize(200, 100);
    }
    int refusals = 0;

protected:
    void closeEvent(QCloseEvent *event) override { event->setAccepted(refusals++ > 0); }
};

class QtDesktopTest : public testing::Test
{
protected:
    QtDesktopTest() { views.add<Form, FormView>(); }

    ViewRegistry views;
    QtDesktop desktop{views};
};

QPushButton *buttonWith(QWidget &box, const QString &text)
{
    for (QPushButton *button : box.findChildren<QPushButton *>()) {
        if (button->text() == text)
            return button;
    }
    ADD_FAILURE() << "no button " << text.toStdString();
    return nullptr;
}

TEST_F(QtDesktopTest, MessageBoxesAreAnsweredInChineseAndClosingMeansNo)
{
    struct Case
    {
        Desktop::Buttons buttons;
        std::function<void(QWidget &box)> answer;
        Desktop::Answer result;
    };
    const Case cases[] = {
        {Desktop::Buttons::YesNo, [](QWidget &box) { buttonWith(box, QStringLiteral("是(&Y)"))->click(); },
         Desktop::Answer::Yes},
        {Desktop::Buttons::YesNo, [](QWidget &box) { buttonWith(box, QStringLiteral("否(&N)"))->click(); },
         Desktop::Answer::No},
        {Desktop::Buttons::YesNo, [](QWidget &box) { QTest::keyClick(&box, Qt::Key_Escape); },
         Desktop::Answer::No},
        {Desktop::Buttons::YesNo, [](QWidget &box) { box.close(); }, Desktop::Answer::No},
        {Desktop::Buttons::YesNo, [](QWidget &box) { QTest::keyClick(&box, Qt::Key_Return); },
         Desktop::Answer::No},
        {Desktop::Buttons::Ok, [](QWidget &box) { buttonWith(box, QStringLiteral("确定(&O)"))->click(); },
         Desktop::Answer::Ok},
        {Desktop::Buttons::Ok, [](QWidget &box) { QTest::keyClick(&box, Qt::Key_Escape); },
         Desktop::Answer::Ok},
    };
    for (const Case &expected : cases) {
        const WhenModal modal([&](QWidget &window) {
            const auto *box = qobject_cast<QMessageBox *>(&window);
            ASSERT_TRUE(box);
            EXPECT_EQ(box->text(), QStringLiteral("是否删除 <b>'1'</b>?"));
            EXPECT_EQ(box->textFormat(), Qt::PlainText) << "a value is no markup";
            EXPECT_EQ(box->windowTitle(), QStringLiteral("提示:"));
            EXPECT_EQ(box->icon(), QMessageBox::Question);
            expected.answer(window);
        });
        EXPECT_EQ(desktop.messageBox(QStringLiteral("是否删除 <b>'1'</b>?"), QStringLiteral("提示:"),
                                     Desktop::Icon::Question, expected.buttons),
                  expected.result);
    }
}

TEST_F(QtDesktopTest, InputBoxGivesTheTextOrNothing)
{
    {
        const WhenModal modal([](QWidget &box) {
            EXPECT_EQ(dynamic_cast<QInputDialog &>(box).textValue(), QStringLiteral("旧"));
            typeText(*box.findChild<QLineEdit *>(), QStringLiteral("新")); // the preset is selected
            buttonWith(box, QStringLiteral("确定(&O)"))->click();
        });
        EXPECT_EQ(desktop.inputBox(QStringLiteral("查找"), QStringLiteral("提示"), QStringLiteral("旧")),
                  QStringLiteral("新"));
    }
    const WhenModal modal([](QWidget &box) { buttonWith(box, QStringLiteral("取消(&C)"))->click(); });
    EXPECT_FALSE(desktop.inputBox(QString(), QString(), QStringLiteral("旧")).has_value());
}

TEST_F(QtDesktopTest, FileDialogsGiveAPathOrNothing)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("合同.txt"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    const QString filter = QStringLiteral("文本 (*.txt)");
    {
        const WhenModal modal([&](QWidget &box) {
            auto &dialog = dynamic_cast<QFileDialog &>(box);
            dialog.selectFile(path);
            buttonWith(dialog, QStringLiteral("打开(&O)"))->click();
        });
        EXPECT_EQ(desktop.openDialog(QStringLiteral("打开"), folder.path(), filter), path);
    }
    {
        const WhenModal modal([](QWidget &box) { buttonWith(box, QStringLiteral("取消(&C)"))->click(); });
        EXPECT_EQ(desktop.openDialog(QStringLiteral("打开"), folder.path(), filter), QString());
    }
    const QString proposed = folder.filePath(QStringLiteral("新.txt"));
    const WhenModal modal([](QWidget &box) { buttonWith(box, QStringLiteral("保存(&S)"))->click(); });
    EXPECT_EQ(desktop.saveDialog(QStringLiteral("保存"), proposed, filter), proposed);
}

TEST_F(QtDesktopTest, AModalFormEndsWhenItsScreenAgreesToClose)
{
    Form form;
    const WhenModal modal([](QWidget &dialog) {
        auto *view = dialog.findChild<FormView *>();
        ASSERT_TRUE(view);
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("登记"));
        dialog.close();
        EXPECT_TRUE(dialog.isVisible()) << "the screen refused";
        EXPECT_EQ(view->refusals, 1);
        QTest::keyClick(&dialog, Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    });
    desktop.showModal(form);
    QObject unknown;
    EXPECT_THROW(desktop.showModal(unknown), Failure);
}

TEST_F(QtDesktopTest, WaitCursorNests)
{
    desktop.setWaitCursor(true);
    desktop.setWaitCursor(true);
    desktop.setWaitCursor(false);
    ASSERT_TRUE(QGuiApplication::overrideCursor());
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    desktop.setWaitCursor(false);
    EXPECT_FALSE(QGuiApplication::overrideCursor());
}

TEST_F(QtDesktopTest, TemporaryFilesAndGuidsAreNew)
{
    const QString first = desktop.makeTempFile(QStringLiteral("fj"));
    const QString second = desktop.makeTempFile(QStringLiteral("fj"));
    EXPECT_NE(first, second);
    for (const QString &path : {first, second}) {
        EXPECT_TRUE(QFileInfo(path).fileName().startsWith(QStringLiteral("fj")));
        EXPECT_EQ(QFileInfo(path).size(), 0);
        EXPECT_TRUE(QFile::remove(path)) << "the file is there and the caller's to remove";
    }
    EXPECT_EQ(desktop.makeTempFile(QStringLiteral("no/such/folder/")), QString());
    const QByteArray id = desktop.newGuidBytes();
    EXPECT_EQ(id.size(), 16);
    EXPECT_EQ(id[7] & 0xf0, 0x40) << "the high byte of the third part, where the version stands, comes last";
    EXPECT_NE(id, desktop.newGuidBytes());
    EXPECT_FALSE(desktop.openFile(QStringLiteral("/no/such/file")));
}

} // namespace

#include "qt_desktop_test.moc"
