#include "screens/look/file_choice.h"

#include "screens/look/window_below.h"

#include <QFileDialog>
#include <QFileIconProvider>

namespace ebtq::look {

namespace {

/// Qt's own looks into each file to learn its type.
class PlainIcons : public QFileIconProvider
{
public:
    using QFileIconProvider::icon;

    [[nodiscard]] QIcon icon(const QFileInfo &file) const override
    {
        return icon(file.isDir() ? QFileIconProvider::Folder : QFileIconProvider::File);
    }
    [[nodiscard]] QString type(const QFileInfo &file) const override
    {
        return file.isDir() ? QStringLiteral("文件夹") : file.suffix();
    }
};

/// `icons` outlives the dialog, whose threads use it.
QString choose(QFileDialog &dialog, PlainIcons &icons, const QString &acceptText)
{
    dialog.setOption(QFileDialog::DontUseNativeDialog); // those of some desktops look into files, too
    dialog.setIconProvider(&icons);
    dialog.setLabelText(QFileDialog::Accept, acceptText);
    dialog.setLabelText(QFileDialog::Reject, QStringLiteral("取消(&C)"));
    dialog.setLabelText(QFileDialog::FileName, QStringLiteral("文件名:"));
    dialog.setLabelText(QFileDialog::FileType, QStringLiteral("类型:"));
    dialog.setLabelText(QFileDialog::LookIn, QStringLiteral("位置:"));
    return runModal(dialog) == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

} // namespace

QString chooseFileToOpen(const QString &title, const QString &folder, const QString &filter)
{
    PlainIcons icons;
    QFileDialog dialog(windowBelow(), title, folder, filter);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return choose(dialog, icons, QStringLiteral("打开(&O)"));
}

QString chooseFileToSave(const QString &title, const QString &proposedPath, const QString &filter)
{
    const QFileInfo proposed(proposedPath);
    PlainIcons icons;
    QFileDialog dialog(windowBelow(), title, proposed.path(), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(proposed.suffix());
    dialog.selectFile(proposed.fileName());
    return choose(dialog, icons, QStringLiteral("保存(&S)"));
}

} // namespace ebtq::look
