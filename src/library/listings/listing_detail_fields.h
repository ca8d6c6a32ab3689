#pragma once

#include "database/values/row_block.h"

#include <QString>
#include <QVariant>

#include <optional>
#include <span>

namespace ebtq {

/// Tabs of a listing's detail, by number.
enum DetailTab : int { ListingTab = 1, OwnerTab, FollowUpsTab, CustomersTab, PicturesTab };

/// The row of one listing, its columns by name. Throws Failure for an unknown one.
class ListingRecord
{
public:
    explicit ListingRecord(RowBlock row)
        : m_row(std::move(row))
    {}
    [[nodiscard]] bool isNull(QStringView column) const { return m_row.isNull(0, at(column)); }
    /// Numbers and dates as they are read by people; empty for Null.
    [[nodiscard]] QString text(QStringView column) const;
    [[nodiscard]] double number(QStringView column) const;
    [[nodiscard]] QVariant value(QStringView column) const { return m_row.value(0, at(column)); }

private:
    [[nodiscard]] int at(QStringView column) const;
    RowBlock m_row;
};

/// A display field and where its text comes from.
struct DetailField
{
    int number;
    QStringView caption;
    DetailTab tab;
    QStringView column;
    /// The text that a record gives the field; nothing when the field is to keep what it shows.
    std::optional<QString> (*text)(const ListingRecord &record, QStringView column);
    QStringView valueColumn = {}; ///< of the key behind the text; empty for none
};

/// In the order in which they are filled: when one fails, those behind it keep what they show.
[[nodiscard]] std::span<const DetailField> detailFields();

/// A box of the owner's tab with a text of many lines.
struct DetailBox
{
    int number;
    QStringView caption;
    QStringView column;
};
[[nodiscard]] std::span<const DetailBox> detailBoxes();

} // namespace ebtq
