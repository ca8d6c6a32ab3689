#pragma once

#include "library/controls/check_box.h"
#include "library/controls/label.h"
#include "library/controls/text_box.h"
#include "library/records/editor_form.h"

namespace ebtq {

/// The editor of one follow-up on a listing or a customer, a row of fygj, with a reminder for later. Dates
/// come from the machine's clock: a follow-up is written when it happens. Its own failures are shown by
/// message box.
class FrmGj : public EditorForm
{
    Q_OBJECT

public:
    explicit FrmGj(Desktop &desktop);

    [[nodiscard]] static QString Caption();
    /// 0 跟进日期, 1 部门, 2 经纪人, 3 提醒时间, 4 提醒范围, 5 提醒内容, 6 处理结果, 7 制单人.
    [[nodiscard]] qzTxt_S &qzTxt(int number) const { return field(number); }
    /// What was talked about.
    [[nodiscard]] TextBox &Txt() const { return m_contents; }
    /// 下次提醒, which opens the fields of the reminder.
    [[nodiscard]] CheckBox &Chk() const { return m_reminds; }
    /// Seen while a reminder is wanted and has no date: it is saved with the present time and never falls
    /// due.
    [[nodiscard]] Label &lblHint() const { return m_hint; }

    /// The document number of what the next follow-up belongs to; empty where there is none.
    void setOwnerNumber(const QString &number) { m_ownerNumber = number; }
    [[nodiscard]] QString recordNumber() const override { return m_ownerNumber; }
    /// Opens the form and returns when it was closed. `ownerID` is the key of the listing or customer,
    /// `followUpID` the 跟进ID of the row, empty for a new one; `disable` opens it for reading only. A row
    /// that cannot be read opens nothing.
    void py_Init(HostApp &host, const QString &ownerID, const QString &followUpID, bool disable);
    /// What a view calls each time that the form comes to the front.
    void activate();

Q_SIGNALS:
    /// A follow-up was saved: its 跟进ID, and whether it is new.
    void ReturnData(const QString &psID, bool pbNew);

protected:
    void raiseError(const QString &message, int level, const QString &title) override;
    [[nodiscard]] QString trappedText(QStringView tag, const QString &description) const override;
    void setParameters(int number, ParameterList &parameters) override;
    bool DoSave() override;
    [[nodiscard]] QString held(const RecordColumn &column) const override;
    bool reload() override;

private:
    void NewRecord();
    void LoadData();
    void showRow(const Recordset &row);
    void showRange(int range);
    void SetFieldsEnabled(bool enabled);
    void openReminder(bool open);
    void showHint();
    bool save();

    Label &m_contentsLabel;
    TextBox &m_contents;
    CheckBox &m_reminds;
    Label &m_hint;
    QString m_ownerNumber;
    QString m_ownerId; ///< 房源ID or 客源ID
    QString m_id;      ///< 跟进ID of the row that is edited; empty for a new one
};

} // namespace ebtq
