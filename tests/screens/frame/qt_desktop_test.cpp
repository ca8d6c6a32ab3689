#include "screens/frame/qt_desktop.h"

#include "contracts/host_contracts.h"
#include "screens/frame/view_registry.h"
#include "screens/look/look.h"
#include "screens/support/screen.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QCloseEvent>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

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
        setWindowTitle(u"登记[*]"_qs);
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

std::function<void(QWidget &box)> clicks(const char16_t *text)
{
    return [text](QWidget &box) { buttonWith(box, QString::fromUtf16(text))->click(); };
}

std::function<void(QWidget &box)> presses(Qt::Key key)
{
    return [key](QWidget &box) { QTest::keyClick(&box, key); };
}

TEST_F(QtDesktopTest, MessageBoxesAreAnsweredInChineseAndClosingMeansNo)
{
    using enum Desktop::Buttons;
    using enum Desktop::Icon;
    using Act = std::function<void(QWidget & box)>;
    const std::tuple<Desktop::Buttons, Act, Desktop::Answer, Desktop::Icon, QString> cases[] = {
        {YesNo, clicks(u"是(&Y)"), Desktop::Answer::Yes, Question, u"dialog-question"_qs},
        {YesNo, clicks(u"否(&N)"), Desktop::Answer::No, Question, u"dialog-question"_qs},
        {YesNo, presses(Qt::Key_Escape), Desktop::Answer::No, Exclamation, u"dialog-warning"_qs},
        {YesNo, [](QWidget &box) { box.close(); }, Desktop::Answer::No, Critical, u"dialog-error"_qs},
        {YesNo, presses(Qt::Key_Return), Desktop::Answer::No, Question, u"dialog-question"_qs},
        {Ok, clicks(u"确定(&O)"), Desktop::Answer::Ok, Information, u"dialog-information"_qs},
        {Ok, presses(Qt::Key_Escape), Desktop::Answer::Ok, Information, u"dialog-information"_qs},
    };
    const auto shape = [](const QPixmap &drawing) {
        return drawing.toImage().convertToFormat(QImage::Format_Alpha8);
    };
    for (const auto &[buttons, act, result, icon, drawing] : cases) {
        const WhenModal modal([&](QWidget &window) {
            const auto &box = dynamic_cast<QMessageBox &>(window);
            EXPECT_EQ(box.text(), u"是否删除 <b>'1'</b>?"_qs);
            EXPECT_EQ(box.textFormat(), Qt::PlainText) << "a value is no markup";
            EXPECT_EQ(box.windowTitle(), u"提示:"_qs);
            const QPixmap shown = box.iconPixmap();
            EXPECT_EQ(shape(shown), shape(look::icon(drawing).pixmap(shown.size())));
            act(window);
        });
        EXPECT_EQ(desktop.messageBox(u"DoSave:是否删除 <b>'1'</b>?"_qs, u"提示:"_qs, icon, buttons), result);
    }
}

TEST_F(QtDesktopTest, AQuestionGivesTheChosenAnswerOrNothing)
{
    const std::pair<std::function<void(QWidget &)>, std::optional<int>> cases[] = {
        {clicks(u"合并(&M)"), 0},
        {clicks(u"覆盖(&O)"), 1},
        {clicks(u"取消(&C)"), std::nullopt},
        {presses(Qt::Key_Escape), std::nullopt},
        {presses(Qt::Key_Return), std::nullopt},
    };
    for (const auto &[answer, result] : cases) {
        const WhenModal modal(answer);
        EXPECT_EQ(desktop.choose(u"<b>"_qs, u"提示:"_qs, {u"合并(&M)"_qs, u"覆盖(&O)"_qs}), result);
    }
}

TEST_F(QtDesktopTest, InputBoxGivesTheTextOrNothing)
{
    {
        const WhenModal modal([](QWidget &box) {
            EXPECT_EQ(dynamic_cast<QInputDialog &>(box).textValue(), u"旧"_qs);
            typeText(*box.findChild<QLineEdit *>(), u"新"_qs); // the preset is selected
            buttonWith(box, u"确定(&O)"_qs)->click();
        });
        EXPECT_EQ(desktop.inputBox(u"查找"_qs, u"提示"_qs, u"旧"_qs), u"新"_qs);
    }
    const WhenModal modal(clicks(u"取消(&C)"));
    EXPECT_FALSE(desktop.inputBox(QString(), QString(), u"旧"_qs).has_value());
}

TEST_F(QtDesktopTest, FileDialogsGiveAllThatWasChosenOrNothing)
{
    const QTemporaryDir folder;
    QStringList paths;
    for (const QString &name : {u"a.txt"_qs, u"b.txt"_qs}) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        paths += file.fileName();
    }
    const QChar null(u'\0');
    FileDialog dialog;
    dialog.filter = u"图片(*.jpg)%1*.jpg%1文本%1*.txt%1%1"_qs.arg(null);
    dialog.initialDir = folder.path();
    dialog.defaultExt = u"jpg"_qs;
    dialog.filterIndex = 2;
    dialog.flags = FileDialog::FileMustExist | FileDialog::MultiSelect;
    {
        const WhenModal modal(clicks(u"取消(&C)"));
        EXPECT_FALSE(desktop.openDialog(dialog));
        EXPECT_TRUE(dialog.file.isEmpty());
    }
    {
        const WhenModal modal([&](QWidget &box) {
            auto &choice = dynamic_cast<QFileDialog &>(box);
            EXPECT_EQ(choice.nameFilters(), QStringList({u"图片 (*.jpg)"_qs, u"文本 (*.txt)"_qs}));
            box.findChild<QCheckBox *>()->click();
            choice.selectFile(paths.at(1));
            EXPECT_TRUE(QTest::qWaitFor([&] { return buttonWith(box, u"打开(&O)"_qs)->isEnabled(); }));
            buttonWith(box, u"打开(&O)"_qs)->click();
        });
        ASSERT_TRUE(desktop.openDialog(dialog));
    }
    EXPECT_EQ(dialog.file, paths.at(1));
    EXPECT_EQ(dialog.filterIndex, 2);
    EXPECT_EQ(dialog.flags, FileDialog::FileMustExist | FileDialog::MultiSelect | FileDialog::ReadOnly |
                                FileDialog::ExtensionDiffers);
    FileDialog saved;
    saved.file = folder.filePath(u"新.txt"_qs);
    const WhenModal modal(clicks(u"保存(&S)"));
    ASSERT_TRUE(desktop.saveDialog(saved));
    EXPECT_EQ(saved.file, folder.filePath(u"新.txt"_qs));
    EXPECT_EQ(saved.fileTitle, u"新.txt"_qs);
}

TEST_F(QtDesktopTest, TheSystemSaysWhyAFileCannotBeOpened)
{
    const QTemporaryDir folder;
    EXPECT_EQ(desktop.shellExecute(u"open"_qs, folder.filePath(u"a.pdf"_qs), {}, {}, 1), 2);
    EXPECT_EQ(desktop.shellExecute(u"open"_qs, folder.filePath(u"b/a.pdf"_qs), {}, {}, 1), 3);
    EXPECT_EQ(desktop.shellExecute(u"print"_qs, folder.path(), {}, {}, 1), 31);
    EXPECT_EQ(desktop.shellExecute(u"open"_qs, folder.path(), u"-x"_qs, {}, 1), 11);
    EXPECT_GE(desktop.shellExecute(u"open"_qs, u"/bin/true"_qs, u"-x"_qs, folder.path(), 1), 33);
}

/// As another program sees it: the record lock that this one holds on a file.
bool isLocked(int file)
{
    const pid_t other = fork();
    if (other == 0) {
        struct flock lock = {};
        lock.l_type = F_WRLCK;
        _exit(fcntl(file, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK ? 0 : 1);
    }
    int status = 1;
    waitpid(other, &status, 0);
    return status == 0;
}

TEST_F(QtDesktopTest, AFileDialogTakesNoLockFromTheDatabaseBesideIt)
{
    const QTemporaryDir folder;
    QFile database(folder.filePath(u"a.db"_qs));
    ASSERT_TRUE(database.open(QFile::ReadWrite));
    database.write("SQLite format 3");
    database.flush();
    struct flock lock = {};
    lock.l_type = F_RDLCK;
    ASSERT_EQ(fcntl(database.handle(), F_SETLK, &lock), 0);
    const WhenModal modal([&](QWidget &box) {
        auto *files = box.findChild<QAbstractItemView *>(u"treeView"_qs);
        ASSERT_TRUE(QTest::qWaitFor([&] { return files->model()->rowCount(files->rootIndex()) > 0; }));
        box.grab();
        QTest::qWait(100);
        buttonWith(box, u"取消(&C)"_qs)->click();
    });
    FileDialog dialog;
    dialog.initialDir = folder.path();
    EXPECT_FALSE(desktop.openDialog(dialog));
    EXPECT_TRUE(isLocked(database.handle()));
}

TEST_F(QtDesktopTest, AModalFormEndsWhenItsScreenAgreesToClose)
{
    Form form;
    QWidget program;
    program.show();
    QApplication::setActiveWindow(nullptr);
    const WhenModal modal([&](QWidget &dialog) {
        EXPECT_EQ(dialog.parentWidget(), &program) << "its dialogs stay above it while another has the focus";
        auto *view = dialog.findChild<FormView *>();
        ASSERT_TRUE(view);
        EXPECT_EQ(dialog.windowTitle(), u"登记[*]"_qs);
        view->setWindowModified(true);
        EXPECT_TRUE(dialog.isWindowModified());
        dialog.close();
        EXPECT_TRUE(dialog.isVisible()) << "the screen refused";
        EXPECT_EQ(view->refusals, 1);
        QTest::keyClick(&dialog, Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    });
    desktop.showModal(form);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &program; }));
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
    const QString first = desktop.makeTempFile(u"fj"_qs);
    const QString second = desktop.makeTempFile(u"fj"_qs);
    EXPECT_NE(first, second);
    for (const QString &path : {first, second}) {
        EXPECT_TRUE(QFileInfo(path).fileName().startsWith(u"fj"_qs));
        EXPECT_EQ(QFileInfo(path).size(), 0);
        EXPECT_TRUE(QFile::remove(path)) << "the file is there and the caller's to remove";
    }
    EXPECT_EQ(desktop.makeTempFile(u"no/such/folder/"_qs), QString());
    const QByteArray id = desktop.newGuidBytes();
    EXPECT_EQ(id.size(), 16);
    EXPECT_EQ(id[7] & 0xf0, 0x40) << "the high byte of the third part, where the version stands, comes last";
    EXPECT_NE(id, desktop.newGuidBytes());
}

} // namespace

#include "qt_desktop_test.moc"
