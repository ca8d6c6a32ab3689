#pragma once

#include <QSizePolicy>
#include <QWidget>

#include <vector>

class QGroupBox;
class QHBoxLayout;
class QLabel;

namespace ebtq {

class Control;
class EditorForm;
class TextAreaView;
class TextBox;

/// What the screens of forms have in common: cards of captions and fields that share one grid of pairs, so
/// that the fields of the whole form line up, and below them the buttons for saving and closing.
class EditorFormView : public QWidget
{
    Q_OBJECT

protected:
    /// The place of a caption and its field in their card; rows and pairs count from 0.
    struct Place
    {
        int row;
        int pair;
        int pairs = 1;
        int rows = 1;
    };
    enum class Entry { Free, Required };

    EditorFormView(EditorForm &form, const QString &title, QWidget *parent);
    /// The form may refuse, unless it closes itself.
    void closeEvent(QCloseEvent *event) override;

    QGroupBox *addCard(const QString &title);
    [[nodiscard]] const std::vector<QGroupBox *> &cards() const { return m_cards; }
    /// A caption for the field that it is put before.
    [[nodiscard]] static QLabel *captionFor(const QString &text, Entry entry, QWidget *parent);
    [[nodiscard]] static TextAreaView *makeBox(TextBox &box, const QString &name, QWidget *parent);
    /// The caption is a label, or the box that is ticked for the field.
    static void put(QGroupBox &card, const Place &place, QWidget *caption, QWidget *field);
    /// In the column of the captions, a row below that of `place`.
    static void putBelowCaption(QGroupBox &card, const Place &place, QWidget *widget);
    /// Gives the columns of all cards the same widths; a field has room for so many Chinese characters at
    /// least.
    void lineUp(int pairs, int fieldCharacters);
    /// An empty row below the cards, for widgets before the buttons.
    QHBoxLayout *addBottomRow();
    /// Ends the bottom row with the two buttons.
    void addButtons(QHBoxLayout &bottomRow);
    /// The keyboard begins there; in a form for reading only, at the button that closes it.
    void beginWith(const Control &first);

    /// A width that comes from the grid alone: a field's contents must not widen its column.
    template<class Widget> static Widget *ofGridsWidth(Widget *widget)
    {
        widget->setSizePolicy(QSizePolicy::Ignored, widget->sizePolicy().verticalPolicy());
        return widget;
    }

private:
    [[nodiscard]] int widestCaption(int pair) const;

    EditorForm &m_form;
    bool m_isUnloaded = false;
    std::vector<QGroupBox *> m_cards;
};

} // namespace ebtq
