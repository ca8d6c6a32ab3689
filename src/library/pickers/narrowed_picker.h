#pragma once

#include "library/pickers/picker.h"

namespace ebtq {

/// A picker's list and the combo box that narrows it to what one row of another dictionary owns, as data.
struct NarrowedList
{
    PickerGrid grid;
    QStringView list;    ///< select and tables of the list
    QStringView columns; ///< names of the grid's columns, separated by commas
    QStringView key;
    QStringView text;
    QStringView order;
    QStringView check;   ///< select and tables of the look-up
    QStringView matches; ///< columns that a typed text is compared with, separated by commas
    QStringView caption; ///< of the combo box
    QStringView owners;  ///< the statement that fills it, a key and a name a row
    QStringView ownerKey;
    QStringView ownerName;
    QStringView listOwner; ///< the column of the list that holds the owner's key
    QStringView parameter; ///< gives the owner's name; a look-up heeds it with the parameter "lock" alone
};

/// A picker whose list a combo box narrows. The parameter of the owner's name sets the combo box, "lock"
/// other than 0 fastens it.
class NarrowedPicker : public Picker
{
    Q_OBJECT

public:
    /// `list` outlives the picker.
    NarrowedPicker(const QString &name, Desktop &desktop, const NarrowedList &list);
    [[nodiscard]] XPCombo *Cmb() override { return &m_owner; }

protected:
    [[nodiscard]] SqlText listStatement() override;
    [[nodiscard]] SqlText checkStatement(const QString &typedText) const override;
    [[nodiscard]] QStringList columns() const override;
    [[nodiscard]] QString keyColumn() const override { return m_list.key.toString(); }
    [[nodiscard]] QString textColumn() const override { return m_list.text.toString(); }
    [[nodiscard]] bool prepareList() override;
    void beginUse() override { m_wanted.clear(); }

private:
    [[nodiscard]] QString ownerParameter() const;
    [[nodiscard]] bool isLocked() const;
    bool fillOwners();

    const NarrowedList &m_list;
    XPCombo &m_owner;
    QString m_wanted; ///< name of the owner that the host asked for
};

} // namespace ebtq
