#include "library/attachments/m_shell_execute.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace ebtq {

namespace {

constexpr int firstSuccess = 33;
constexpr int hidden = 0;
constexpr int shownNormally = 1;
constexpr int base = -2147220456;

struct ShellMessage
{
    int result;
    int number; ///< 0: the result plus base
    const char *text;
};

constexpr ShellMessage messages[] = {
    {0, 7, "Out of memory"},
    {8, 7, "Out of memory"},
    {2, 53, "File not found"},
    {3, 76, "Path not found"},
    {5, 75, "Path/file access error"},
    {11, 0, "The executable file is invalid or corrupt"},
    {26, 75, "A sharing violation occurred."},
    {27, 0, "This file type does not have a valid file association."},
    {28, 286, "The file could not be opened due to time out.  Please try again in a moment."},
    {29, 285,
     "The file could not be opened because the DDE transaction failed.  Please try again in a moment."},
    {30, 285,
     "The file could not be opened because the target application is busy.  Please try again in a moment."},
    {31, 0, "No application is associated with this file type."},
    {32, 48, "The specified dynamic-link library was not found."},
};
constexpr const char *otherMessage =
    "An error occurred occurred whilst trying to open or print the selected file."; // the word stands twice

ShellMessage messageOf(int result)
{
    const auto found = std::ranges::find(messages, result, &ShellMessage::result);
    ShellMessage message = found == std::end(messages) ? ShellMessage{result, 0, otherMessage} : *found;
    if (message.number == 0)
        message.number = result + base;
    return message;
}

} // namespace

QString ShellOpen(Desktop &desktop, const QString &file, int showCmd, const QString &parameters,
                  const QString &folder, const QString &verb, ShellError *error)
{
    if (file.toUpper().contains(QStringLiteral(".EXE")))
        showCmd = hidden; // deliberate: programs run without a window
    if (parameters.isEmpty() && folder.isEmpty())
        showCmd = shownNormally;
    const int result = desktop.shellExecute(verb, file, parameters, folder, showCmd);
    if (result >= firstSuccess)
        return {};
    const ShellMessage message = messageOf(result);
    const QString program = QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName();
    if (error)
        *error = {message.number, program + QStringLiteral(".GShell"), QString::fromLatin1(message.text)};
    return QString::fromLatin1(message.text);
}

} // namespace ebtq
