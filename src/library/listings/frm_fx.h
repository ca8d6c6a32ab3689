#pragma once

#include "library/controls/check_box.h"
#include "library/controls/label.h"
#include "library/controls/text_box.h"
#include "library/records/editor_form.h"

namespace ebtq {

/// The editor of one listing: opened for a new one or for a row of fyxx, shown modally, written by one
/// statement. It holds no record object: a load writes the fields, a save reads them. Buttons 2 and 3 pick a
/// remark and a contact remark, 4 and 5 go to the previous and the next listing of the list.
class FrmFx : public EditorForm
{
    Q_OBJECT

public:
    explicit FrmFx(Desktop &desktop);

    [[nodiscard]] static QString Caption();
    /// Numbers 0 to 54.
    [[nodiscard]] qzTxt_S &qzFcTxt(int number) const { return field(number); }
    /// 0 the contact remark, 1 the remark.
    [[nodiscard]] TextBox &Txt(int number) const { return memo(number); }
    /// 0 加密房, 1 特别房, 2 推介房.
    [[nodiscard]] CheckBox &Chk(int number) const { return tick(number); }

    /// 0 to 9: titles and captions.
    [[nodiscard]] Label &lbl(int number) const { return *m_labels.at(static_cast<size_t>(number)); }

    /// Opens the form and returns when it was closed. `listingID` is the 房源ID of the row, empty for a new
    /// listing; `hideOwner` opens it without the owner and for reading only. A listing that cannot be read
    /// ends in ErrMessage and opens nothing.
    void py_Init(HostApp &host, int moduleID, const QString &listingID, bool hideOwner);
    /// Opens the form for a new listing with what the one with this key holds, but for what is its own:
    /// number, dates, author, room and key.
    void openCopy(HostApp &host, int moduleID, const QString &listingID);

Q_SIGNALS:
    void Message(const QString &psMsg);
    void ErrMessage(const QString &psMsg, int plLevel, const QString &psTitle);
    /// A listing was saved: its 房源ID, and whether it is new.
    void ReturnData(const QString &psID, bool pbNew);
    /// The list is asked for the listing `step` rows further; `key` stays empty where there is none.
    void neighbourWanted(int step, QString &key);

protected:
    void raiseError(const QString &message, int level, const QString &title) override
    {
        Q_EMIT ErrMessage(message, level, title);
    }
    void setParameters(int number, ParameterList &parameters) override;
    bool check(int number, const Check &check) override;
    void picked(int number, const HostPicker &picker) override;
    bool DoSave() override;
    [[nodiscard]] QString held(const RecordColumn &column) const override;
    bool reload() override { return LoadData(); }

private:
    void makeControls();
    void connectFields();

    // Opening
    void load();
    bool NewRecord();
    void stampAsNew();
    void keepForCopy();
    void go(int step);
    void showNeighbour(const QString &key);
    bool LoadData();
    void SetFieldsEnabled(bool enabled);
    void hideOwnerBlock();

    // Saving
    bool DoCheck();
    bool save();

    // Fields
    void fieldChanged(int number);
    void showUnitPrice(int price, int result);
    void followViewing();
    void fillFromHouseType(const QVariant &value, QString &text);
    void fillFromPropertyRight(const QVariant &value);
    void pickRemark(const Button &button, QStringView kind, TextBox &target);

    std::vector<Label *> m_labels;
    int m_moduleID = 0;
    bool m_hidesOwner = false;
    QString m_id; ///< 房源ID of the row that is edited; empty for a new listing
};

} // namespace ebtq
