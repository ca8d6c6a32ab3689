#pragma once

#include <QListWidget>

namespace ebtq {

/// A short list that drops from a field and goes when an entry was picked, with Enter or the mouse, or with
/// Escape.
class ChoicePopup : public QListWidget
{
    Q_OBJECT

public:
    /// Deletes itself when it closes. `current` is the text of the entry that is current at first.
    ChoicePopup(const QStringList &texts, const QString &current, QWidget *field);

Q_SIGNALS:
    void picked(int position);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void pick();
};

} // namespace ebtq
