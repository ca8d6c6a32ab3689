#pragma once

#include "screens/frame/field_cards.h"

#include <QWidget>

class QHBoxLayout;

namespace ebtq {

class Control;
class EditorForm;
class TextAreaView;
class TextBox;

/// What the screens of forms have in common: cards of fields, and below them the buttons for saving and
/// closing.
class EditorFormView : public QWidget, protected FieldCards
{
    Q_OBJECT

protected:
    EditorFormView(EditorForm &form, const QString &title, QWidget *parent);
    /// The form may refuse, unless it closes itself.
    void closeEvent(QCloseEvent *event) override;

    QGroupBox *addCard(const QString &title);
    [[nodiscard]] static TextAreaView *makeBox(TextBox &box, const QString &name, QWidget *parent);
    /// An empty row below the cards, for widgets before the buttons.
    QHBoxLayout *addBottomRow();
    /// A button that leaves the keyboard where it is, in the bottom row, also pressed by Ctrl and this key.
    void addMove(QHBoxLayout &bottomRow, int button, Qt::Key key);
    /// Ends the bottom row with the two buttons.
    void addButtons(QHBoxLayout &bottomRow);
    /// The keyboard begins there; in a form for reading only, at the button that closes it.
    void beginWith(const Control &first);

private:
    void followTitle();

    EditorForm &m_form;
    QString m_title;
    bool m_isUnloaded = false;
};

} // namespace ebtq
