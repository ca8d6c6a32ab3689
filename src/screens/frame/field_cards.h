#pragma once

#include "screens/controls/field_view.h"

#include <QLabel>

#include <span>
#include <vector>

class QGroupBox;

namespace ebtq {

/// Cards of captions and fields that share one grid of pairs, so that the fields of the whole screen line up.
class FieldCards
{
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
    /// A short field with what it counts after it: the caption of another field.
    struct Count
    {
        qzTxt_S &field;
        const qzTxt_S &unit;
    };

    /// A card for the parent's layout.
    QGroupBox *makeCard(const QString &title, QWidget *parent);
    [[nodiscard]] const std::vector<QGroupBox *> &cards() const { return m_cards; }
    /// A caption for the field that it is put before.
    [[nodiscard]] static QLabel *captionFor(const QString &text, Entry entry, QWidget *parent);
    /// The caption is a label, or the box that is ticked for the field.
    static void put(QGroupBox &card, const Place &place, QWidget *caption, QWidget *field);
    /// In the column of the captions, a row below that of `place`.
    static void putBelowCaption(QGroupBox &card, const Place &place, QWidget *widget);
    /// Gives the columns of all cards the same widths; a field has room for so many Chinese characters at
    /// least.
    void lineUp(int pairs, int fieldCharacters);
    /// Several counts in the place of one field.
    [[nodiscard]] static QWidget *makeCounts(std::span<const Count> counts, QWidget *parent);

    /// A width that comes from the grid alone: a field's contents must not widen its column.
    template<class Widget> static Widget *ofGridsWidth(Widget *widget)
    {
        widget->setSizePolicy(QSizePolicy::Ignored, widget->sizePolicy().verticalPolicy());
        return widget;
    }

private:
    [[nodiscard]] int widestCaption(int pair) const;

    std::vector<QGroupBox *> m_cards;
};

} // namespace ebtq
