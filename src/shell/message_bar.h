#pragma once

#include <QFrame>
#include <QPointer>
#include <QString>

#include <vector>

class QShortcut;

namespace ebtq::shell {

/// Refusals and failures above the module, newest on top, each shortened (look::plainMessage) with a close
/// button; the tool tip has all of it, and the log all of a failure. A repeated message is counted. At most
/// three are shown; the others follow when those are closed. Hidden while empty.
class MessageBar : public QWidget
{
    Q_OBJECT

public:
    explicit MessageBar(QWidget *parent = nullptr);
    ~MessageBar() override;
    /// The one above what the modal form in front shows, made when it is missing; nullptr when none is open.
    [[nodiscard]] static MessageBar *ofModalForm();

    /// `level` as in the event ErrMessage.
    void add(const QString &text, int level, const QString &title);
    /// Takes the newest message away.
    void closeNewest();

    /// The visible texts, newest first.
    [[nodiscard]] QStringList shownTexts() const;

private:
    struct Entry
    {
        QString text;
        QString title;
        int level;
        int count = 1;
    };
    void rebuild();
    [[nodiscard]] QWidget *row(const Entry &entry, size_t position);
    void noteFocus(QWidget *before, QWidget *now);

    std::vector<Entry> m_entries; ///< oldest first
    QShortcut *m_escape;
    QPointer<QWidget> m_focusedBefore; ///< gets the keyboard back when a message that has it goes
};

} // namespace ebtq::shell
