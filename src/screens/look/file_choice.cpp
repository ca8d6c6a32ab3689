#include "screens/look/file_choice.h"

#include "screens/look/window_below.h"

#include <QFileDialog>
#include <QFileIconProvider>

using namespace Qt::StringLiterals;

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
        return file.isDir() ? u"文件夹"_s : file.suffix();
    }
};

/// `icons` outlives the dialog, whose threads use it.
QString choose(QFileDialog &dialog, PlainIcons &icons, const QString &acceptText)
{
    dialog.setOption(QFileDialog::DontUseNativeDialog); // those of some desktops look into files, too
    dialog.setIconProvider(&icons);
    dialog.setLabelText(QFileDialog::Accept, acceptText);
    dialog.setLabelText(QFileDialog::Reject, u"取消(&C)"_s);
    dialog.setLabelText(QFileDialog::FileName, u"文件名:"_s);
    dialog.setLabelText(QFileDialog::FileType, u"类型:"_s);
    dialog.setLabelText(QFileDialog::LookIn, u"位置:"_s);
    return runModal(dialog) == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

} // namespace

QString chooseFileToOpen(const QString &title, const QString &folder, const QString &filter)
{
    PlainIcons icons;
    QFileDialog dialog(windowBelow(), title, folder, filter);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return choose(dialog, icons, u"打开(&O)"_s);
}

QString chooseFileToSave(const QString &title, const QString &proposedPath, const QString &filter)
{
    const QFileInfo proposed(proposedPath);
    PlainIcons icons;
    QFileDialog dialog(windowBelow(), title, proposed.path(), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(proposed.suffix());
    dialog.selectFile(proposed.fileName());
    return choose(dialog, icons, u"保存(&S)"_s);
}

} // namespace ebtq::look
