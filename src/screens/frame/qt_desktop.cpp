#include "screens/frame/qt_desktop.h"

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
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryFile>
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

QString QtDesktop::openDialog(const QString &title, const QString &folder, const QString &filter)
{
    return look::chooseFileToOpen(title, folder, filter);
}

QString QtDesktop::saveDialog(const QString &title, const QString &proposedPath, const QString &filter)
{
    return look::chooseFileToSave(title, proposedPath, filter);
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

bool QtDesktop::openFile(const QString &path)
{
    return QFileInfo::exists(path) && QDesktopServices::openUrl(QUrl::fromLocalFile(path));
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

QString QtDesktop::makeTempFile(const QString &prefix)
{
    QTemporaryFile file(QDir::temp().filePath(prefix + u"XXXXXX"_s));
    file.setAutoRemove(false);
    return file.open() ? file.fileName() : QString();
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
