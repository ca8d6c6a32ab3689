#pragma once

#include <QHash>
#include <QKeySequence>
#include <QWidget>

#include <functional>
#include <vector>

class QToolButton;

namespace ebtq {

class NavToolbar;

/// The widget of a NavToolbar: a row of buttons with icon and caption. A button is named after the tool bar
/// and its key, such as "NavToolbar1_buy". Separators show only between buttons that show.
class ToolBarView : public QWidget
{
    Q_OBJECT

public:
    /// Asked before a command goes out; false holds it back.
    using Guard = std::function<bool(const QString &key)>;

    ToolBarView(NavToolbar &toolBar, QWidget *parent);

    /// The key whose button stays pressed, as the list's present kind; empty for none.
    void setCurrentKey(const QString &key);
    /// Keyboard shortcuts of the buttons by key, shown in their tool tips. The captions are given and hold no
    /// mnemonic; a shortcut by Alt and a letter is appended to them as one.
    void setShortcuts(QHash<QString, QKeySequence> shortcuts);
    void setGuard(Guard guard) { m_guard = std::move(guard); }

private:
    void follow();
    void rebuild();
    void showSeparators();
    void addButton(const QString &key);
    void addSeparator();
    void press(const QString &key);
    [[nodiscard]] bool isBuiltFromItems() const;

    NavToolbar &m_toolBar;
    /// One for each item; `button` is null for a separator.
    struct Part
    {
        QString key;
        QWidget *widget;
        QToolButton *button;
    };
    std::vector<Part> m_parts;
    QHash<QString, QKeySequence> m_shortcuts;
    QString m_currentKey;
    Guard m_guard;
};

} // namespace ebtq
