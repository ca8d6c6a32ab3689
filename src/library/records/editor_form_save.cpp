#include "contracts/conversions.h"
#include "library/controls/check_box.h"
#include "library/controls/option_button.h"
#include "library/controls/text_box.h"
#include "library/frame/desktop.h"
#include "library/frame/guid_text.h"
#include "library/frame/statements.h"
#include "library/records/editor_form.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int parameterGroup = 12;
/// Switches the look for a colleague's changes on; without it the later write wins.
const QString checkParameter = u"savecheck"_s;

constexpr qsizetype namedChanges = 10;
constexpr qsizetype longestValue = 30;

QString shownValue(const QString &text)
{
    const QString line = text.simplified();
    if (line.isEmpty())
        return u"（空）"_s;
    return line.size() <= longestValue ? line : line.first(longestValue) + u'…';
}

} // namespace

// Closing

bool EditorForm::mayClose()
{
    if (!isDirty())
        return true;
    const auto saves = wantsSave();
    return saves && (!*saves || DoSave());
}

std::optional<bool> EditorForm::wantsSave()
{
    enum Answer : int { Yes, No };
    const auto answer =
        desktop().choose(u"数据已变动，是否保存！"_s, u"提示："_s, {u"是(&Y)"_s, u"否(&N)"_s});
    return answer ? std::optional(*answer == Yes) : std::nullopt;
}

void EditorForm::savePressed()
{
    if (DoSave())
        Q_EMIT unloaded();
}

void EditorForm::closePressed()
{
    Q_EMIT unloaded();
}

// Before a save

bool EditorForm::DoCheckRequired(std::span<const RequiredField> required)
{
    for (const auto &[number, message] : required) {
        if (!Trim(field(number).Text()).isEmpty())
            continue;
        desktop().messageBox(message.toString(), messageTitle(), Desktop::Icon::Information,
                             Desktop::Buttons::Ok);
        field(number).SetFocus();
        return false;
    }
    return true;
}

bool EditorForm::DoCheckTyped()
{
    qzTxt_S *refused = m_fields.firstRefused();
    if (!refused)
        return true;
    desktop().messageBox(refused->error_message(), messageTitle(), Desktop::Icon::Information,
                         Desktop::Buttons::Ok);
    refused->SetFocus();
    return false;
}

std::optional<QString> EditorForm::documentNumber(bool isNew, const NumberRule &rule)
{
    const auto number = isNew ? numberOfNewRow(rule) : Trim(field(0).Text());
    if (!number)
        refuse(rule.failure.toString().arg(app().LastError().Description));
    if (!number || !number->isEmpty())
        return number;
    desktop().messageBox(rule.missing.toString(), u"提示："_s, Desktop::Icon::Critical, Desktop::Buttons::Ok);
    field(0).SetFocus();
    return std::nullopt;
}

std::optional<QString> EditorForm::numberOfNewRow(const NumberRule &rule)
{
    if (isStillFree(rule))
        return m_taken->number;
    const QDate date = app().Session().LoginDate();
    QString number = Trim(field(0).Text());
    if (!app().NewBillCode(rule.moduleId, date, number, false))
        return std::nullopt;
    if (!number.isEmpty())
        m_taken = {rule.moduleId, date, number, app().Db().ConnectionNumber()};
    return number;
}

/// A row may have got the number after all, if a save's answer was lost and the form was closed. A server
/// that has come back, or the one that has taken its place, may not know that the number was given, and give
/// it again.
bool EditorForm::isStillFree(const NumberRule &rule)
{
    if (!m_taken || m_taken->moduleId != rule.moduleId || m_taken->date != app().Session().LoginDate())
        return false;
    const bool isUsed =
        singleValue(app().Db(), SqlText(u"select %1 from %2 where %1="_s.arg(rule.column, m_record.table)) +
                                    quoted(m_taken->number))
            .isValid();
    return !isUsed && m_taken->connection == app().Db().ConnectionNumber();
}

/// A new row that an attempt before has written after all, its answer lost, is written over under the number
/// that it has got.
std::optional<EditorForm::SavedRow> EditorForm::writeNumbered(const QString &id, const NumberRule &rule)
{
    const std::optional<QVariant> tried = triedValue(rule.column);
    if (!tried)
        return std::nullopt;
    const auto number = tried->isValid() ? tried->toString() : documentNumber(id.isEmpty(), rule);
    if (!number)
        return std::nullopt;
    m_number = *number;
    return write(id);
}

bool EditorForm::wantsAnother()
{
    return desktop().messageBox(u"是否继续新建?"_s, messageTitle(), Desktop::Icon::Information,
                                Desktop::Buttons::YesNo) == Desktop::Answer::Yes;
}

// Writing

/// False when a statement of the body failed; the person has been told.
template<class Body> bool EditorForm::succeeds(Body body)
{
    try {
        body();
        return true;
    } catch (const StatementFailure &failure) {
        refuseWrite(QString::fromUtf8(failure.what()));
        return false;
    }
}

void EditorForm::refuseWrite(const QString &failure)
{
    const RecordColumn *column = columnWithApostrophe(m_record.update, heldTexts());
    if (!column)
        return refuse(failure);
    refuse(u"%1\n单引号在“%2”中。"_s.arg(failure, titleOf(*column)));
    if (column->holder == Holder::FieldText)
        field(column->number).SetFocus();
    else if (column->holder == Holder::Memo)
        memo(column->number).SetFocus();
}

/// A save that failed may have come through all the same, when the connection broke before the answer was
/// there. So the key is kept for the next attempt, which must not write the row twice.
QString EditorForm::newKey()
{
    if (m_triedKey.isEmpty())
        m_triedKey = NewGuidText(desktop());
    return m_triedKey;
}

std::optional<QVariant> EditorForm::triedValue(QStringView column)
{
    if (m_triedKey.isEmpty())
        return QVariant();
    const SqlText sql =
        SqlText(u"select %1 from %2"_s.arg(column, m_record.table)) + whereKey(m_record, m_triedKey);
    QVariant value;
    return succeeds([&] { value = singleValue(app().Db(), sql); }) ? std::optional(value) : std::nullopt;
}

std::optional<EditorForm::SavedRow> EditorForm::write(const QString &id)
{
    const bool isNew = id.isEmpty();
    const auto tried = triedValue(m_record.key);
    if (!tried)
        return std::nullopt;
    // Without a key, which was reported, the typed text is saved all the same.
    const QString key = isNew ? newKey() : id;
    if (!(isNew && !tried->isValid() ? insert(key) : update(key)))
        return std::nullopt;
    m_triedKey.clear();
    if (isNew)
        m_taken.reset();
    return SavedRow{key, isNew};
}

bool EditorForm::insert(const QString &key)
{
    return succeeds([&] { executeStatement(app().Db(), insertStatement(m_record, key, heldTexts())); });
}

bool EditorForm::update(const QString &key)
{
    for (;;) {
        std::vector<ForeignChange> changes;
        const QString failure = tryUpdate(key, changes);
        if (!failure.isEmpty())
            refuseWrite(failure);
        if (!failure.isEmpty() || changes.empty())
            return failure.isEmpty();
        if (!settle(changes))
            return false;
    }
}

QString EditorForm::runOnRow(const SqlText &sql)
{
    try {
        if (executeStatement(app().Db(), sql)->RowsChanged() != 0)
            return {};
        return u"这条记录已被他人删除，没有保存！输入的内容仍在窗口中。"_s;
    } catch (const StatementFailure &failure) {
        return QString::fromUtf8(failure.what());
    }
}

QString EditorForm::runUpdate(const QString &key)
{
    return runOnRow(updateStatement(m_record, key, heldTexts()));
}

QString EditorForm::tryUpdate(const QString &key, std::vector<ForeignChange> &changes)
{
    try {
        if (!isSaveChecked())
            return runUpdate(key);
        app().Db().BeginTrans();
        const QString failure = updateUnchanged(key, changes);
        if (failure.isEmpty() && changes.empty())
            app().Db().CommitTrans();
        else
            app().Db().RollbackTrans();
        return failure;
    } catch (const std::exception &failure) { // also what the host says of its parameters
        app().Db().RollbackTrans();
        return QString::fromUtf8(failure.what());
    }
}

/// The row is written to first, though with what it holds, so that it is locked until the transaction ends:
/// no other change can come between the comparison and the update.
QString EditorForm::updateUnchanged(const QString &key, std::vector<ForeignChange> &changes)
{
    const SqlText lock(u"update %1 set %2=%2"_s.arg(m_record.table, m_record.key));
    if (const QString failure = runOnRow(lock + whereKey(m_record, key)); !failure.isEmpty())
        return failure;
    changes = foreignChanges(key);
    if (!changes.empty())
        return {};
    m_loaded.attempt(m_record, heldTexts());
    return runUpdate(key);
}

// Others' changes

bool EditorForm::isSaveChecked()
{
    return !m_loaded.isEmpty() && Val(app().SystemParameter(parameterGroup, checkParameter).Text) != 0;
}

/// A colleague's change to the same text is no conflict.
std::vector<ForeignChange> EditorForm::foreignChanges(const QString &key)
{
    auto changes = m_loaded.changesIn(m_record, *openRows(app().Db(), LoadedRow::statement(m_record, key)));
    std::erase_if(changes, [this](const ForeignChange &change) {
        return isSameValue(*change.column, change.stored, held(*change.column));
    });
    return changes;
}

/// True when the save is to be tried again.
bool EditorForm::settle(const std::vector<ForeignChange> &changes)
{
    QStringList lines;
    for (const ForeignChange &change : changes) {
        if (lines.size() < namedChanges)
            lines += described(change);
    }
    if (std::ssize(changes) > namedChanges)
        lines += u"……共 %1 项"_s.arg(changes.size());
    enum Answer : int { Merge, Overwrite, Reload };
    const auto answer = desktop().choose(
        u"打开之后，他人修改并保存了这条记录：\n%1\n\n合并：本窗口没有改过的内容取他人的，其余按本窗口"
        u"保存。\n覆盖：全部按本窗口保存。\n重新读取：放弃本窗口的改动。"_s.arg(lines.join(u'\n')),
        messageTitle(), {u"合并(&M)"_s, u"覆盖(&O)"_s, u"重新读取(&R)"_s});
    if (answer == Reload)
        reload();
    if (!answer || answer == Reload)
        return false;
    for (const ForeignChange &change : changes) {
        if (answer == Merge)
            takeOver(change);
        m_loaded.accept(change);
    }
    return true;
}

void EditorForm::takeOver(const ForeignChange &change)
{
    if (isSameValue(*change.column, held(*change.column), change.loaded))
        put(*change.column, change.stored);
}

QString EditorForm::titleOf(const RecordColumn &column) const
{
    const bool isField = column.holder == Holder::FieldText || column.holder == Holder::FieldKey;
    const QString title = isField ? fieldOf(column.number).title.toString() : QString();
    return title.isEmpty() ? column.column.toString() : title;
}

QString EditorForm::described(const ForeignChange &change) const
{
    // Users cannot read a key; its text is often a column too.
    if (change.column->holder == Holder::FieldKey)
        return titleOf(*change.column);
    return u"%1：%2 → %3"_s.arg(titleOf(*change.column), shown(*change.column, change.loaded),
                                shown(*change.column, change.stored));
}

QString EditorForm::shown(const RecordColumn &column, const QString &text) const
{
    if (column.holder == Holder::Option)
        return optionOf(text).Caption();
    if (column.holder != Holder::TickSum)
        return shownValue(text);
    QStringList ticked;
    for (size_t at = 0; at < m_ticks.size(); ++at) {
        if (isInSum(at, text))
            ticked += m_ticks[at]->Caption();
    }
    return shownValue(ticked.join(u'、'));
}

} // namespace ebtq
