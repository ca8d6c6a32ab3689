#pragma once

#include <QString>
#include <QStringView>

namespace ebtq {

/// From where a field of a form takes its values.
struct LookUp
{
    enum Kind { None, HostList, Picker, Calendar, InlineList };

    Kind kind = None;
    QStringView name = {}; ///< help code of the host's list, the picker's name, or the inline list itself
    QStringView valueColumn = {};
    QStringView textColumn = {};
    QStringView statement = {};  ///< that checks a typed text; "@" stands for the text
    QStringView dictionary = {}; ///< kind of the data dictionary's entries, in place of a statement

    /// The given statement, or that of the dictionary.
    [[nodiscard]] QString check() const;
};

// Those of several screens.

/// The entries of one kind of the data dictionary.
constexpr LookUp dictionaryLookUp(QStringView helpCode, QStringView kind)
{
    return {.kind = LookUp::HostList,
            .name = helpCode,
            .valueColumn = u"代码",
            .textColumn = u"名称",
            .dictionary = kind};
}

inline constexpr LookUp houseTypeLookUp{
    .kind = LookUp::HostList,
    .name = u"gy_fx",
    .valueColumn = u"房型编号",
    .textColumn = u"房型名称",
    .statement = u"select 房型编号,房型名称,房间数,客厅数,卫生间数,阳台数 from pdmfx where "
                 u"(房型编号='@' or 房型名称='@')"};

} // namespace ebtq
