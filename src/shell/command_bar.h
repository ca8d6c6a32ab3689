#pragma once

#include <QWidget>

#include <functional>

class QAction;
class QHBoxLayout;
class QVBoxLayout;

namespace ebtq::shell {

/// The program's commands for a module that has no tool bar of its own: a bar of buttons above its view. They
/// are actions of the view, too, and of the bar, so that their keys work in both; where the view leaves a
/// request for a menu to its parents, they are its menu. Where the texts need more room than there is, all
/// commands but those of high priority show their icons alone.
class CommandBar : public QWidget
{
    Q_OBJECT

public:
    /// `view` outlives it; `column` is where the view stands.
    CommandBar(QWidget &view, QVBoxLayout &column);

    /// A command behind those that are there; its text may hold a mnemonic. One of low priority shows its
    /// icon alone.
    QAction &add(const QString &name, const QString &icon, const QString &text,
                 std::function<void()> command);
    void addSeparator();
    /// What stands at the right end, with room before it.
    void addAtEnd(QWidget &widget);
    [[nodiscard]] bool isEmpty() const;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// What a command threw.
    void failed(const QString &text);
    /// For the buttons: there is more or less room.
    void fitted();

protected:
    [[nodiscard]] QWidget &view() const { return m_view; }
    [[nodiscard]] QHBoxLayout &row() const { return *m_row; }
    void run(const std::function<void()> &command);
    void resizeEvent(QResizeEvent *event) override;

private:
    void addButton(QAction &action);
    [[nodiscard]] bool isIconAlone(const QAction &action) const;
    void setNarrow(bool narrow);
    void popUp(const QPoint &place);

    QWidget &m_view;
    QHBoxLayout *m_row;
    bool m_isNarrow = false;
};

} // namespace ebtq::shell
