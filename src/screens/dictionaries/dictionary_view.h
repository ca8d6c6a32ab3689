#pragma once

#include "library/dictionaries/dictionary_form.h"
#include "screens/frame/field_cards.h"

#include <QWidget>

class QVBoxLayout;

namespace ebtq {

/// The screen of a dictionary: the tree with its filter, the splitter, and at its right the fields in cards.
class DictionaryView : public QWidget, protected FieldCards
{
    Q_OBJECT

protected:
    /// Where a field stands: its card's row and pair of columns.
    struct FieldPlace
    {
        int number;
        int row;
        int pair = 0;
        int pairs = 1;
        Entry entry = Entry::Free;
    };

    DictionaryView(DictionaryForm &module, QWidget *parent);

    [[nodiscard]] QWidget *frame() const { return m_frame; }
    /// A card below those that are there; one with `stretch` takes the room that is left.
    QGroupBox *addCard(const QString &title, int stretch = 0);
    void addFields(QGroupBox &card, std::span<const FieldPlace> places);
    /// To be called at the end: the room below the last card stays empty.
    void fillUp();

    void focusInEvent(QFocusEvent *event) override; ///< the keyboard begins in the tree

private:
    DictionaryForm &m_module;
    QWidget *m_tree;
    QWidget *m_frame;
    QVBoxLayout *m_column;
};

} // namespace ebtq
