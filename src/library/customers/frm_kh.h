#pragma once

#include "library/controls/check_box.h"
#include "library/controls/label.h"
#include "library/controls/option_button.h"
#include "library/controls/text_box.h"
#include "library/records/editor_form.h"

namespace ebtq {

/// The editor of one customer's request: opened for a new one or for a row of fykh, shown modally, written by
/// one statement. A save leaves it open; buttons 2 to 6 go to the first, previous, next and last request in
/// the order of their numbers, independent of the list, and delete the current one.
class frmKh : public EditorForm
{
    Q_OBJECT

public:
    explicit frmKh(Desktop &desktop);

    [[nodiscard]] static QString Caption();
    /// Numbers 0 to 29.
    [[nodiscard]] qzTxt_S &qzTxt(int number) const { return field(number); }
    /// The remark.
    [[nodiscard]] TextBox &Txt() const { return memo(0); }
    /// 0 求购价, 1 求租价.
    [[nodiscard]] CheckBox &Chk(int number) const { return tick(number); }
    /// 0 有效, 1 失效.
    [[nodiscard]] OptionButton &Opt(int number) const { return option(number); }
    /// The caption of the option buttons.
    [[nodiscard]] Label &stateLabel() const { return m_stateLabel; }
    /// Which request of how many is shown.
    [[nodiscard]] Label &positionLabel() const { return m_positionLabel; }

    /// Opens the form and returns when it was closed. `id` is the 客源ID of the row, empty for a new request.
    /// If it cannot be read or was deleted, ErrMessage is raised and nothing opens.
    void py_Init(HostApp &host, int moduleId, const QString &id, bool bReadOnly);
    /// Writes what was changed; nothing at all without a change. `bReload` reads the row again. `bOK` is true
    /// when it was written.
    void DoSave(bool bReload, bool &bOK);
    /// Shows the request with this key, else by `nMode` the first (0), the previous (1), the next (2) or the
    /// last (3) one. Without such a row the form stays as it was.
    void LoadData(int nMode, const QString &id);
    /// Changes are saved before, if the person wants it.
    void RecordTop();
    void RecordPrevious();
    void RecordNext();
    void RecordBottom();
    /// Deletes the row that is shown, after a question, and goes to the next one; nothing on a new request.
    void DoDelete();

    /// The number of requests, and the position of the current one among them, as of the last load.
    [[nodiscard]] int recordCount() const { return m_recordCount; }
    [[nodiscard]] int recordPosition() const { return m_recordPosition; }

Q_SIGNALS:
    void Message(const QString &psMsg);
    void ErrMessage(const QString &psMsg, int plLevel, const QString &psTitle);
    /// A request was saved: its 客源ID, and whether it is new.
    void ReturnData(const QString &id, bool bNew);

protected:
    void raiseError(const QString &message, int level, const QString &title) override
    {
        Q_EMIT ErrMessage(message, level, title);
    }
    void setParameters(int number, ParameterList &parameters) override;
    bool DoSave() override;
    void savePressed() override;
    void closePressed() override;
    [[nodiscard]] QString held(const RecordColumn &column) const override;
    bool reload() override;

private:
    enum Mode : int { First, Before, Behind, Last };
    enum class Found { Failed, Nothing, Row };

    void makeControls();
    void connectButtons();

    // Opening
    void load();
    bool openRow(const QString &id);
    void ClearForNew();
    void SetEnabled(bool enabled);

    // The row
    Found read(int mode, const QString &id);
    [[nodiscard]] SqlText rowStatement(int mode, const QString &id) const;
    void showRow(const Recordset &row);
    void countRows();
    void enableDeletion();
    void move(Mode mode);
    bool save(bool reloads);
    void deletePressed();
    bool deleteRow();

    Label &m_stateLabel;
    Label &m_positionLabel;
    int m_moduleId = 0;
    QString m_id;   ///< 客源ID of the row that is shown; empty for a new request
    QString m_code; ///< 客源编号 of the row that is shown: its place in the order
    int m_recordCount = 0;
    int m_recordPosition = 0;
};

} // namespace ebtq
