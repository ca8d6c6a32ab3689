#include "screens/look/file_choice.h"

#include "screens/look/window_below.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QGridLayout>

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

void caption(QFileDialog &dialog, FileWish::Kind kind)
{
    dialog.setLabelText(QFileDialog::Accept, kind == FileWish::Kind::Open ? u"打开(&O)"_s : u"保存(&S)"_s);
    dialog.setLabelText(QFileDialog::Reject, u"取消(&C)"_s);
    dialog.setLabelText(QFileDialog::FileName, u"文件名:"_s);
    dialog.setLabelText(QFileDialog::FileType, u"类型:"_s);
    dialog.setLabelText(QFileDialog::LookIn, u"位置:"_s);
}

void setMode(QFileDialog &dialog, const FileWish &wish)
{
    if (wish.kind == FileWish::Kind::Save)
        dialog.setAcceptMode(QFileDialog::AcceptSave);
    else if (wish.several)
        dialog.setFileMode(QFileDialog::ExistingFiles);
    else
        dialog.setFileMode(wish.mustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !wish.asksToOverwrite);
    dialog.setDefaultSuffix(wish.suffix);
}

/// A box to tick below the file's name.
QCheckBox *addReadOnlyBox(QFileDialog &dialog, bool isTicked)
{
    auto *box = new QCheckBox(u"以只读方式打开(&R)"_s, &dialog);
    box->setChecked(isTicked);
    if (auto *grid = qobject_cast<QGridLayout *>(dialog.layout()))
        grid->addWidget(box, grid->rowCount(), 1);
    return box;
}

} // namespace

FileChosen chooseFiles(const FileWish &wish)
{
    PlainIcons icons; // outlives the dialog, whose threads use it
    QFileDialog dialog(windowBelow(), wish.title, wish.folder);
    dialog.setOption(QFileDialog::DontUseNativeDialog); // those of some desktops look into files, too
    dialog.setIconProvider(&icons);
    setMode(dialog, wish);
    caption(dialog, wish.kind);
    dialog.setNameFilters(wish.filters);
    dialog.selectNameFilter(wish.filters.value(wish.filter));
    if (!wish.name.isEmpty())
        dialog.selectFile(wish.name);
    const QCheckBox *readOnly = wish.readOnly ? addReadOnlyBox(dialog, *wish.readOnly) : nullptr;
    if (runModal(dialog) != QDialog::Accepted)
        return {};
    const qsizetype filter = dialog.nameFilters().indexOf(dialog.selectedNameFilter());
    return {dialog.selectedFiles(), filter, readOnly && readOnly->isChecked()};
}

QString chooseFileToOpen(const QString &title, const QString &folder, const QString &filter)
{
    FileWish wish;
    wish.title = title;
    wish.folder = folder;
    wish.filters = filter.split(u";;"_s);
    return chooseFiles(wish).files.value(0);
}

QString chooseFileToSave(const QString &title, const QString &proposedPath, const QString &filter)
{
    const QFileInfo proposed(proposedPath);
    FileWish wish;
    wish.kind = FileWish::Kind::Save;
    wish.title = title;
    wish.folder = proposed.path();
    wish.name = proposed.fileName();
    wish.filters = filter.split(u";;"_s);
    wish.suffix = proposed.suffix();
    return chooseFiles(wish).files.value(0);
}

} // namespace ebtq::look
