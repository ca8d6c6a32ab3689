#pragma once

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
    QString openDialog(const QString &title, const QString &folder, const QString &filter) override;
    QString saveDialog(const QString &title, const QString &proposedPath, const QString &filter) override;
    /// Throws Failure for a form without a screen.
    void showModal(QObject &form) override;
    bool openFile(const QString &path) override;
    void setWaitCursor(bool on) override;
    [[nodiscard]] QDateTime now() const override;
    QString makeTempFile(const QString &prefix) override;
    QByteArray newGuidBytes() override;

private:
    const ViewRegistry &m_views;
};

} // namespace ebtq
