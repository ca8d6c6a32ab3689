#include "library/attachments/m_common_dialog.h"

#include "library/attachments/b_file.h"

namespace ebtq {

namespace {

constexpr unsigned neverPassed = 0x60;

QString separatedByNulls(QString filter)
{
    return filter.replace(u'|', QChar(u'\0')).replace(u':', QChar(u'\0')) + QString(2, QChar(u'\0'));
}

QString untilNull(const QString &text)
{
    return text.section(QChar(u'\0'), 0, 0);
}

FileDialog asked(const CommonDialog &dialog, unsigned flags)
{
    return {dialog.file,
            dialog.fileTitle,
            separatedByNulls(dialog.filter),
            dialog.filterIndex,
            dialog.initialDir,
            dialog.title,
            dialog.defaultExt,
            flags | (dialog.flags & ~neverPassed)};
}

bool chosen(CommonDialog &dialog, const FileDialog &answer, bool several)
{
    dialog.file = several ? answer.file : untilNull(answer.file);
    dialog.fileTitle = several ? answer.fileTitle : untilNull(answer.fileTitle);
    dialog.flags = answer.flags;
    dialog.filterIndex = answer.filterIndex;
    dialog.filter = FilterAtIndex(answer.filter, answer.filterIndex);
    return true;
}

bool cancelled(CommonDialog &dialog, int filterIndex)
{
    dialog.file.clear();
    dialog.fileTitle.clear();
    dialog.filter.clear();
    dialog.flags = 0;
    dialog.filterIndex = filterIndex;
    return false;
}

} // namespace

bool ShowOpenDialog(Desktop &desktop, CommonDialog &dialog)
{
    FileDialog record = asked(dialog, (dialog.mustExist ? FileDialog::FileMustExist : 0U) |
                                          (dialog.multiSelect ? FileDialog::MultiSelect : 0U) |
                                          (dialog.readOnly ? FileDialog::ReadOnly : 0U) |
                                          (dialog.hideReadOnly ? FileDialog::HideReadOnly : 0U));
    if (!desktop.openDialog(record))
        return cancelled(dialog, -1);
    dialog.readOnly = (record.flags & FileDialog::ReadOnly) != 0;
    return chosen(dialog, record, dialog.multiSelect);
}

bool ShowSaveDialog(Desktop &desktop, CommonDialog &dialog)
{
    FileDialog record =
        asked(dialog, (dialog.overwritePrompt ? FileDialog::OverwritePrompt : 0U) | FileDialog::HideReadOnly);
    return desktop.saveDialog(record) ? chosen(dialog, record, false) : cancelled(dialog, 0);
}

QString FilterAtIndex(const QString &filter, int index)
{
    return filter.split(QChar(u'\0')).value(2 * qsizetype(index) - 1);
}

QString ParentOfPath(const QString &path)
{
    return FolderOfPath(path, true);
}

} // namespace ebtq
