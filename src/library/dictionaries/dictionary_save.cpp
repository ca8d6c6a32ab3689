#include "contracts/conversions.h"
#include "contracts/null_conv.h"
#include "library/dictionaries/dictionary_form.h"
#include "library/frame/statements.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int numberField = 0;
constexpr int nameField = 1;

} // namespace

// Before a save

bool DictionaryForm::hasText(int number)
{
    if (!Trim(qzTxt(number).Text()).isEmpty())
        return true;
    refuse(u"没有具体的"_s + Trim(qzTxt(number).Caption()) + u",请录入!"_s);
    qzTxt(number).SetFocus();
    return false;
}

/// Another user may save the same at the same moment: nothing but this look protects against it.
bool DictionaryForm::isUnique(int number)
{
    const QStringView column = record().load[static_cast<size_t>(number)].column;
    const SqlText sql = SqlText(u" Select %1 From %2 Where %1="_s.arg(column, record().table)) +
                        quoted(Trim(qzTxt(number).Text())) +
                        u" And %1<>%2"_s.arg(record().key).arg(std::max(m_currentId, m_triedId));
    if (NullConv::ToText(singleValue(db(), sql)).isEmpty())
        return true;
    refuse(Trim(qzTxt(number).Caption()) + u"重复,请检查!"_s);
    qzTxt(number).SetFocus();
    return false;
}

/// A save can come without the keyboard leaving the field that is being typed in.
bool DictionaryForm::isTypedRight()
{
    qzTxt_S *refused = m_fields.firstRefused();
    if (!refused)
        return true;
    refuse(refused->error_message());
    refused->SetFocus();
    return false;
}

bool DictionaryForm::isCanSave()
{
    const auto required = furtherRequired();
    return hasText(numberField) && hasText(nameField) && isUnique(numberField) && isUnique(nameField) &&
           std::ranges::all_of(required, [this](int number) { return hasText(number); }) && isTypedRight();
}

// Saving

bool DictionaryForm::IFormUI_FileSave()
{
    const bool isSaved = reporting(u"保存数据时出错："_s, FailureLevel, [this] {
        try {
            return isCanSave() && save();
        } catch (const StatementFailure &failure) {
            throw Failure(QString::fromUtf8(failure.what()) + apostropheNote());
        }
    });
    releaseDatabase();
    return isSaved;
}

bool DictionaryForm::save()
{
    db().BeginTrans();
    int id = 0;
    QString parent;
    if (!written(id, parent))
        return false;
    commit(id);
    saved();
    showSaved(id, parent);
    return true;
}

void DictionaryForm::commit(int id)
{
    try {
        db().CommitTrans();
    } catch (...) {
        m_triedId = m_currentId > 0 ? 0 : id;
        unsettled();
        throw;
    }
    m_triedId = 0;
}

bool DictionaryForm::isWritten(const RecordTable &table, int id)
{
    return id > 0 && singleValue(db(), u"select %1 from %2 where %1=%3"_s.arg(table.key, table.table).arg(id))
                         .isValid();
}

/// False when a statement or a key failed; the transaction is rolled back and the failure has been raised.
bool DictionaryForm::written(int &id, QString &parent)
{
    try {
        writeBefore();
        id = writeRow();
        writeParts(id);
        if (m_currentId == 0)
            parent = parentKey();
        return true;
    } catch (const StatementFailure &failure) {
        const SaveReport report = saveReport();
        giveUp(report.prefix + QString::fromUtf8(failure.what()) + apostropheNote(), report.title);
    } catch (const KeyFailure &failure) {
        giveUp(QString::fromUtf8(failure.what()), caption());
    }
    return false;
}

/// Which text the database has refused; empty when it had another reason.
QString DictionaryForm::apostropheNote() const
{
    const auto texts = [this](const RecordColumn &column) { return held(column); };
    const RecordColumn *column = columnWithApostrophe(record().update, texts);
    return column ? u"（%1）"_s.arg(fieldOf(column->number).title) : QString();
}

void DictionaryForm::giveUp(const QString &text, const QString &title)
{
    db().RollbackTrans();
    raiseError(text, FailureLevel, title);
}

int DictionaryForm::writeRow()
{
    const auto texts = [this](const RecordColumn &column) { return held(column); };
    if (const int id = isWritten(record(), m_triedId) ? m_triedId : m_currentId; id > 0) {
        executeOnRow(updateStatement(record(), QString::number(id), texts));
        return id;
    }
    const int id = m_triedId > 0 ? m_triedId : nextId(record());
    executeStatement(db(), insertStatement(record(), QString::number(id), texts));
    return id;
}

void DictionaryForm::executeOnRow(const SqlText &sql)
{
    if (executeStatement(db(), sql)->RowsChanged() == 0)
        throw Failure(u"这条记录已被他人删除，没有保存！输入的内容仍在窗口中。"_s);
}

int DictionaryForm::nextId(const RecordTable &table)
{
    int id = 0;
    const QString failure = m_ids.NextID(table.table.toString(), table.key.toString(), id);
    if (!failure.isEmpty())
        throw KeyFailure(failure);
    return id;
}

QString DictionaryForm::held(const RecordColumn &column) const
{
    const qzTxt_S &field = qzTxt(column.number);
    return column.holder == Holder::FieldKey ? field.Tag() : field.Text();
}

QString DictionaryForm::nodeText() const
{
    return Trim(qzTxt(numberField).Text()) + u' ' + Trim(qzTxt(nameField).Text());
}

/// A new record whose parent is not in the tree gets no node. It must not stay on the screen then: a deletion
/// would ask for the selected node's record.
void DictionaryForm::showSaved(int id, const QString &parent)
{
    const bool isNew = m_currentId == 0;
    m_currentId = id;
    bool isSeen = true;
    if (!isNew && m_tree.SelectedItem())
        m_tv.NodeRename(m_tree.SelectedItem(), nodeText(), false);
    else if (isNew)
        isSeen = m_tv.NodeAdd({.relative = parent,
                               .key = recordKey(Trim(qzTxt(numberField).Text())),
                               .text = nodeText(),
                               .tag = id});
    if (!isSeen) {
        refuse(u"已保存，但树中没有它的位置，请刷新后查看！"_s);
        m_tv.ReSelectItem(nullptr);
    }
    SetEditMode(false);
    m_isDirty = false;
}

} // namespace ebtq
