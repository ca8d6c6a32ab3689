#pragma once

#include <QFrame>
#include <QString>

#include <vector>

class QShortcut;

namespace ebtq::shell {

/// Refusals and failures above the module, newest on top, each as plainMessage() and a close button; the tool
/// tip holds the whole of it. The same message coming again is counted and not repeated. Of many, three are
/// shown and the rest wait behind them, so that nothing is lost. Hidden while empty.
class MessageBar : public QWidget
{
    Q_OBJECT

public:
    explicit MessageBar(QWidget *parent = nullptr);

    /// `level` as in the event ErrMessage.
    void add(const QString &text, int level, const QString &title);
    /// Takes the newest message away.
    void closeNewest();

    /// Texts in sight, newest first, as they stand on the screen.
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

    std::vector<Entry> m_entries; ///< oldest first
    QShortcut *m_escape;
};

} // namespace ebtq::shell
