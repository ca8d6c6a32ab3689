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

    /// The statement, whichever way it is given.
    [[nodiscard]] QString check() const;
};

} // namespace ebtq
