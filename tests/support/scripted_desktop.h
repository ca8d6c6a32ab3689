#pragma once

#include "archive/session_folder.h"
#include "library/frame/desktop.h"

#include <QList>
#include <QStringList>

#include <functional>

namespace ebtq::test {

/// The person and the machine of a test: answers what was scripted, in order, and records what was asked. A
/// question that nobody scripted fails the test, as does an answer that nobody asked for.
class ScriptedDesktop : public Desktop
{
public:
    ~ScriptedDesktop() override;

    void willAnswer(Answer answer) { m_answers.append(answer); }
    void willChoose(std::optional<int> answer) { m_choices.append(answer); }
    void willType(std::optional<QString> text) { m_inputs.append(std::move(text)); }
    void willChooseFile(const QString &path) { m_files.append(path); }
    /// The key of the item of the next menu; empty: none.
    void willChooseItem(const QString &key) { m_items.append(key); }
    /// What the system says from now on when a file is to be opened.
    void willGiveShellResult(int result) { m_shellResult = result; }
    void willNotPack() { m_packs = false; }
    /// Runs while the next form is shown.
    void willShow(std::function<void(QObject &)> act) { m_forms.append(std::move(act)); }
    /// From now on, as on a machine that is out of order.
    void willMakeNoKeys() { m_makesKeys = false; }
    void setNow(const QDateTime &now) { m_now = now; }

    /// Each question as "title|text", each file request as "title|file" (or folder), each menu as its texts
    /// separated by "|" with "-" before those that are disabled, in order. A message box has a mark of its
    /// icon behind the title: "?", "!", "x" for a failure, none for an information.
    [[nodiscard]] const QStringList &asked() const { return m_asked; }
    /// As "verb|file", with "|parameters|folder" where it has any, and "|showCmd".
    [[nodiscard]] const QStringList &openedFiles() const { return m_openedFiles; }
    /// How often the wait cursor was shown; that it was taken away each time is checked at the end.
    [[nodiscard]] int waits() const { return m_waits; }

    Answer messageBox(const QString &text, const QString &title, Icon icon, Buttons buttons) override;
    std::optional<int> choose(const QString &text, const QString &title, const QStringList &answers) override;
    std::optional<QString> inputBox(const QString &prompt, const QString &title,
                                    const QString &preset) override;
    bool openDialog(FileDialog &dialog) override;
    bool saveDialog(FileDialog &dialog) override { return openDialog(dialog); }
    QString popUpMenu(const QList<MenuItem> &items) override;
    void showModal(QObject &form) override;
    int shellExecute(const QString &verb, const QString &file, const QString &parameters,
                     const QString &folder, int showCmd) override;
    void setWaitCursor(bool on) override;
    [[nodiscard]] QDateTime now() const override { return m_now; }
    QString tempFolder() override;
    QString tempPath(const QString &name, const QString &owner) override;
    QString makeTempFile(const QString &prefix) override;
    bool pack(const QString &file, const QString &archive) override;
    void unpack(const QString &archive, QIODevice &to, qint64 size) override;
    QByteArray newGuidBytes() override;

private:
    template<class T> T take(QList<T> &script, const QString &question, T otherwise);

    QList<Answer> m_answers;
    QList<std::optional<int>> m_choices;
    QList<std::optional<QString>> m_inputs;
    QList<QString> m_files;
    QList<std::function<void(QObject &)>> m_forms;
    QStringList m_asked;
    QStringList m_openedFiles;
    QList<QString> m_items;
    archive::SessionFolder m_folder;
    int m_shellResult = 33;
    bool m_packs = true;
    QDateTime m_now{QDate(2026, 11, 25), QTime(9, 30)}; ///< not the day of a login
    int m_waits = 0;
    int m_waiting = 0;
    char m_lastGuid = 0;
    bool m_makesKeys = true;
};

} // namespace ebtq::test
