#include "screens/frame/qt_desktop.h"

#include "archive/one_file_archive.h"
#include "contracts/host_contracts.h"
#include "screens/frame/form_dialog.h"
#include "screens/frame/view_registry.h"
#include "screens/look/file_choice.h"
#include "screens/look/look.h"
#include "screens/look/message_text.h"
#include "screens/look/question.h"
#include "screens/look/window_below.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QUrl>
#include <QUuid>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

/// The program's own drawings: they follow the colours in force, also where no icons are installed.
QIcon iconOf(Desktop::Icon icon)
{
    switch (icon) {
    case Desktop::Icon::Question:
        return look::icon(u"dialog-question"_s, &look::Tokens::brand);
    case Desktop::Icon::Exclamation:
        return look::icon(u"dialog-warning"_s, &look::Tokens::salePrice);
    case Desktop::Icon::Critical:
        return look::icon(u"dialog-error"_s, &look::Tokens::danger);
    default:
        return look::icon(u"dialog-information"_s, &look::Tokens::brand);
    }
}

void keepWhole(QMessageBox &box, const QString &text, const QString &title)
{
    box.setToolTip(look::messageToolTip(text, title));
    look::logMessage(text, title);
}

enum ShellResult {
    FileNotFound = 2,
    PathNotFound = 3,
    AccessDenied = 5,
    BadProgram = 11,
    NoAssociation = 31,
    Begun = 33
};

/// As "text (*.a *.b)" from names and patterns in turn.
QStringList nameFilters(const QString &filter)
{
    const QStringList parts = filter.split(QChar(u'\0'), Qt::SkipEmptyParts);
    QStringList filters;
    for (qsizetype at = 0; at < parts.size(); at += 2) {
        const QString pattern = parts.value(at + 1, u"*"_s).trimmed().replace(u';', u' ');
        filters += u"%1 (%2)"_s.arg(parts.at(at).section(u'(', 0, 0).trimmed(),
                                    pattern == u"*.*" ? u"*"_s : pattern);
    }
    return filters;
}

look::FileWish wishOf(const FileDialog &dialog)
{
    const QFileInfo proposed(dialog.file);
    look::FileWish wish;
    wish.title = dialog.title;
    wish.folder = dialog.initialDir.isEmpty() ? proposed.path() : dialog.initialDir;
    wish.name = proposed.fileName();
    wish.filters = nameFilters(dialog.filter);
    wish.filter = dialog.filterIndex - 1;
    wish.suffix = dialog.defaultExt;
    return wish;
}

bool take(const look::FileChosen &chosen, FileDialog &dialog)
{
    if (chosen.files.isEmpty())
        return false;
    const QFileInfo first(chosen.files.first());
    dialog.file = first.filePath();
    dialog.fileTitle = first.fileName();
    if (chosen.files.size() > 1) {
        dialog.file = first.path();
        for (const QString &file : chosen.files)
            dialog.file += QChar(u'\0') + QFileInfo(file).fileName();
    }
    dialog.filterIndex = static_cast<int>(chosen.filter) + 1;
    const bool differs =
        !dialog.defaultExt.isEmpty() && first.suffix().compare(dialog.defaultExt, Qt::CaseInsensitive) != 0;
    dialog.flags &= ~unsigned(FileDialog::ReadOnly | FileDialog::ExtensionDiffers);
    dialog.flags |=
        (chosen.readOnly ? FileDialog::ReadOnly : 0U) | (differs ? FileDialog::ExtensionDiffers : 0U);
    return true;
}

} // namespace

QtDesktop::QtDesktop(const ViewRegistry &views)
    : m_views(views)
{}

Desktop::Answer QtDesktop::messageBox(const QString &text, const QString &title, Icon icon, Buttons buttons)
{
    const QString plain = look::plainMessage(text);
    QMessageBox box(QMessageBox::NoIcon, title, plain, QMessageBox::NoButton, look::windowBelow());
    if (plain != text)
        keepWhole(box, text, title);
    look::showIcon(box, iconOf(icon));
    box.setTextFormat(Qt::PlainText);
    if (buttons == Buttons::Ok) {
        box.setDefaultButton(box.addButton(u"确定(&O)"_s, QMessageBox::AcceptRole));
        look::runModal(box);
        return Answer::Ok;
    }
    const QPushButton *yes = box.addButton(u"是(&Y)"_s, QMessageBox::YesRole);
    QPushButton *no = box.addButton(u"否(&N)"_s, QMessageBox::NoRole);
    box.setDefaultButton(no);
    box.setEscapeButton(no);
    look::runModal(box);
    return box.clickedButton() == yes ? Answer::Yes : Answer::No;
}

std::optional<int> QtDesktop::choose(const QString &text, const QString &title, const QStringList &answers)
{
    return look::choose(text, title, answers);
}

std::optional<QString> QtDesktop::inputBox(const QString &prompt, const QString &title, const QString &preset)
{
    QInputDialog dialog(look::windowBelow());
    dialog.setWindowTitle(title);
    dialog.setLabelText(prompt);
    dialog.setTextValue(preset);
    dialog.setOkButtonText(u"确定(&O)"_s);
    dialog.setCancelButtonText(u"取消(&C)"_s);
    if (look::runModal(dialog) != QDialog::Accepted)
        return std::nullopt;
    return dialog.textValue();
}

bool QtDesktop::openDialog(FileDialog &dialog)
{
    look::FileWish wish = wishOf(dialog);
    wish.mustExist = (dialog.flags & FileDialog::FileMustExist) != 0;
    wish.several = (dialog.flags & FileDialog::MultiSelect) != 0;
    if ((dialog.flags & FileDialog::HideReadOnly) == 0)
        wish.readOnly = (dialog.flags & FileDialog::ReadOnly) != 0;
    return take(look::chooseFiles(wish), dialog);
}

bool QtDesktop::saveDialog(FileDialog &dialog)
{
    look::FileWish wish = wishOf(dialog);
    wish.kind = look::FileWish::Kind::Save;
    wish.asksToOverwrite = (dialog.flags & FileDialog::OverwritePrompt) != 0;
    return take(look::chooseFiles(wish), dialog);
}

QString QtDesktop::popUpMenu(const QList<MenuItem> &items)
{
    QMenu menu(look::windowBelow());
    for (const MenuItem &item : items) {
        QAction *action = menu.addAction(item.text);
        action->setData(item.key);
        action->setEnabled(item.isEnabled);
    }
    const QAction *chosen = menu.exec(QCursor::pos());
    return chosen ? chosen->data().toString() : QString();
}

void QtDesktop::showModal(QObject &form)
{
    FormDialog dialog(look::windowBelow());
    QWidget *view = m_views.createView(form, &dialog);
    if (!view)
        throw Failure(u"没有可以显示的窗体: "_s + form.objectName());
    dialog.setView(view);
    look::runModal(dialog);
}

int QtDesktop::shellExecute(const QString &verb, const QString &file, const QString &parameters,
                            const QString &folder, int /*showCmd*/)
{
    const QFileInfo found(file);
    if (!found.exists())
        return found.dir().exists() ? FileNotFound : PathNotFound;
    if (!found.isReadable())
        return AccessDenied;
    if (verb.compare(u"open"_s, Qt::CaseInsensitive) != 0)
        return NoAssociation;
    if (parameters.isEmpty() && folder.isEmpty())
        return QDesktopServices::openUrl(QUrl::fromLocalFile(file)) ? Begun : NoAssociation;
    return QProcess::startDetached(file, QProcess::splitCommand(parameters), folder) ? Begun : BadProgram;
}

void QtDesktop::setWaitCursor(bool on)
{
    if (on)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

QDateTime QtDesktop::now() const
{
    return QDateTime::currentDateTime();
}

QString QtDesktop::tempFolder()
{
    return m_folder.path();
}

QString QtDesktop::tempPath(const QString &name, const QString &owner)
{
    return m_folder.pathFor(name, owner);
}

QString QtDesktop::makeTempFile(const QString &prefix)
{
    return m_folder.makeFile(prefix);
}

bool QtDesktop::pack(const QString &file, const QString &archive)
{
    try {
        archive::pack(file, archive);
        return true;
    } catch (const archive::ArchiveError &error) {
        qInfo("%s", error.what());
        return false;
    }
}

void QtDesktop::unpack(const QString &archive, QIODevice &to, qint64 size)
{
    archive::unpack(archive, to, size);
}

/// In memory the first three parts of a GUID have their low byte first.
QByteArray QtDesktop::newGuidBytes()
{
    const QUuid id = QUuid::createUuid();
    QByteArray bytes(16, Qt::Uninitialized);
    qToLittleEndian(id.data1, bytes.data());
    qToLittleEndian(id.data2, bytes.data() + 4);
    qToLittleEndian(id.data3, bytes.data() + 6);
    std::copy(std::begin(id.data4), std::end(id.data4), bytes.data() + 8);
    return bytes;
}

} // namespace ebtq
