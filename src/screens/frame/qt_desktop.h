#pragma once

#include "archive/session_folder.h"
#include "library/frame/desktop.h"

namespace ebtq {

class ViewRegistry;

/// The person and the machine, reached through Qt. Boxes and dialogs belong to the active window.
class QtDesktop : public Desktop
{
public:
    /// `views` has the screens of the forms; it outlives the desktop.
    explicit QtDesktop(const ViewRegistry &views);

    Answer messageBox(const QString &text, const QString &title, Icon icon, Buttons buttons) override;
    std::optional<int> choose(const QString &text, const QString &title, const QStringList &answers) override;
    std::optional<QString> inputBox(const QString &prompt, const QString &title,
                                    const QString &preset) override;
    bool openDialog(FileDialog &dialog) override;
    bool saveDialog(FileDialog &dialog) override;
    QString popUpMenu(const QList<MenuItem> &items) override;
    /// Throws Failure for a form without a screen.
    void showModal(QObject &form) override;
    int shellExecute(const QString &verb, const QString &file, const QString &parameters,
                     const QString &folder, int showCmd) override;
    void setWaitCursor(bool on) override;
    [[nodiscard]] QDateTime now() const override;
    QString tempFolder() override;
    QString tempPath(const QString &name, const QString &owner) override;
    QString makeTempFile(const QString &prefix) override;
    bool pack(const QString &file, const QString &archive) override;
    void unpack(const QString &archive, QIODevice &to, qint64 size) override;
    QByteArray newGuidBytes() override;

private:
    const ViewRegistry &m_views;
    archive::SessionFolder m_folder;
};

} // namespace ebtq
