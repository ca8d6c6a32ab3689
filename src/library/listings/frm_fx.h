#pragma once

#include "library/controls/button.h"
#include "library/controls/check_box.h"
#include "library/controls/field_control.h"
#include "library/controls/label.h"
#include "library/controls/text_box.h"
#include "library/frame/host_contracts.h"
#include "library/frame/module.h"

#include <optional>

namespace ebtq {

struct ListingValue;

/// The editor of one listing: opened for a new one or for a row of fyxx, shown modally, written by one
/// statement. There is no record behind it: a load writes the fields, a save reads them. One form is kept and
/// opened again and again; each opening finds it as it was made.
class FrmFx : public Module
{
    Q_OBJECT

public:
    explicit FrmFx(Desktop &desktop);

    [[nodiscard]] static QString Caption();
    /// Numbers 0 to 54.
    [[nodiscard]] qzTxt_S &qzFcTxt(int number) const;
    /// 0 the contact remark, 1 the remark.
    [[nodiscard]] TextBox &Txt(int number) const { return *m_memos[number]; }
    /// 0 加密房, 1 特别房, 2 推介房.
    [[nodiscard]] CheckBox &Chk(int number) const { return *m_ticks[number]; }
    /// 0 save, 1 close, 2 picks a remark, 3 picks a contact remark.
    [[nodiscard]] Button &Cmd(int number) const { return *m_buttons[number]; }

    /// Opens the form and returns when it was closed. `listingID` is the 房源ID of the row, empty for a new
    /// listing; `hideOwner` opens it without the owner and for reading only. A listing that cannot be read
    /// ends in ErrMessage and opens nothing.
    void py_Init(HostApp &host, int moduleID, const QString &listingID, bool hideOwner);

Q_SIGNALS:
    void Message(const QString &psMsg);
    void ErrMessage(const QString &psMsg, int plLevel, const QString &psTitle);
    /// A listing was saved: its 房源ID, and whether it is new.
    void ReturnData(const QString &psID, bool pbNew);

    /// For the view: the form is to be closed.
    void unloaded();

protected:
    void raiseError(const QString &message, int level, const QString &title) override
    {
        Q_EMIT ErrMessage(message, level, title);
    }

private:
    void makeControls();
    void connectFields();

    // Opening
    void load();
    void InitFields();
    void emptyFields();
    bool NewRecord();
    bool LoadData();
    void takeRow(const Recordset &row);
    void put(const ListingValue &value, const QString &text);
    void SetFieldsEnabled(bool enabled);
    void hideOwnerBlock();
    [[nodiscard]] QVariant single(const SqlText &sql);
    [[nodiscard]] std::unique_ptr<Recordset> rowsOf(const SqlText &sql);

    // Saving
    void saveAndClose();
    bool DoCheck();
    bool DoSave();
    bool save();
    [[nodiscard]] std::optional<QString> billNumber();
    [[nodiscard]] QString held(const ListingValue &value) const;
    [[nodiscard]] SqlText literal(const ListingValue &value, const QString &number) const;
    [[nodiscard]] SqlText insertStatement(const QString &id, const QString &number) const;
    [[nodiscard]] SqlText updateStatement(const QString &number) const;
    void refuse(const QString &message);

    // Fields
    void fieldChanged(int number);
    void showUnitPrice(int price, int result);
    void followViewing();
    void showHelp(int number, int left, int top, QString &text, QVariant &value);
    void checkField(int number, const QString &base, const QString &valueField, const QString &textField,
                    QVariant &value, QString &text);
    bool lookUp(int number, const QString &base, const QString &valueField, const QString &textField,
                QVariant &value, QString &text);
    [[nodiscard]] HostPicker *picker(int number);
    void takePickedRow(int number, const HostPicker &picker);
    void fillFromHouseType(const QVariant &value, QString &text);
    void fillFromPropertyRight(const QVariant &value);
    void pickRemark(const Button &button, QStringView kind, TextBox &target);

    std::vector<qzTxt_S *> m_fields;
    TextBox *m_memos[2] = {};
    CheckBox *m_ticks[3] = {};
    Button *m_buttons[4] = {};
    Label *m_contactLabel = nullptr;
    int m_moduleID = 0;
    QString m_id; ///< 房源ID of the row that is edited; empty for a new listing
};

} // namespace ebtq
