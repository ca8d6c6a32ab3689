#include "library/dictionaries/dictionary_form.h"

#include "contracts/conversions.h"
#include "contracts/null_conv.h"
#include "library/frame/desktop.h"
#include "library/frame/statements.h"
#include "library/layout/layout_file.h"
#include "library/records/filled_in.h"

using namespace Qt::StringLiterals;

namespace ebtq {

DictionaryForm::DictionaryForm(const Dictionary &dictionary, Desktop &desktop)
    : Module(dictionary.name.toString(), desktop, {{}, dictionary.caption.toString()})
    , m_dictionary(dictionary)
    , m_tv([&desktop](const QString &prompt, const QString &title, const QString &preset) {
        return desktop.inputBox(prompt, title, preset);
    })
    , m_tree(controls().add<TreeView>(u"TV"_s))
    , m_filter(controls().add<SearchBox>(u"Filter"_s))
    , m_splitter(controls().add<Splitter>(u"Sp"_s))
    , m_fields(*this, u"qzTxt"_s, dictionary.fields, dictionary.record, *this)
{
    setObjectName(name());
    m_tv.HookCtrl(&m_tree, nullptr);
    m_splitter.setControlName1(m_tree.Name());
    m_splitter.setControlName2(frameName());
    connect(&m_tv, &cTreeView::Selected, this, &DictionaryForm::selected);
    makeFields();
    SetEditMode(false);
}

void DictionaryForm::makeFields()
{
    connect(&m_fields, &EditorFields::changed, this, &DictionaryForm::setDirty);
    for (qzTxt_S *field : m_fields.all()) {
        field->setKept(false); // all of it is a record's
        connect(field, &qzTxt_S::FieldHelp, this, &DictionaryForm::setDirty);
        connect(field, &qzTxt_S::FieldCheck, this, &DictionaryForm::setDirty);
        connect(field, &qzTxt_S::FieldGenericHelp, this, &DictionaryForm::setDirty);
    }
}

QString DictionaryForm::rootKey()
{
    return u"ROOT"_s;
}

QString DictionaryForm::frameName()
{
    return u"Frame"_s;
}

void DictionaryForm::raiseError(const QString &message, int level, const QString &title)
{
    Q_EMIT ErrMessage(message, level, title);
}

void DictionaryForm::tell(const QString &text, const QString &title)
{
    desktop().messageBox(text, title, Desktop::Icon::Information, Desktop::Buttons::Ok);
}

// From Init to Clear

bool DictionaryForm::IFormUI_Init(HostApp &app, int, int)
{
    setApp(&app);
    m_fields.setUp();
    return m_ids.Init(app.Db());
}

bool DictionaryForm::IFormUI_Clear()
{
    m_tv.ClearTreeView();
    m_ids = {};
    setApp(nullptr);
    return true;
}

// The tree

bool DictionaryForm::IFormUI_Refresh()
{
    const bool isFilled = reporting(u"刷新数据时出错："_s, FailureLevel, [this] {
        m_tv.ClearTreeView();
        clearRecord();
        Node *root = m_tv.NodeAdd({.key = rootKey(), .text = m_dictionary.root.toString()});
        if (!fillTree())
            return false;
        m_tv.CollapseAll();
        root->setExpanded(true);
        m_tv.ReSelectItem(root);
        m_isDirty = false;
        return true;
    });
    releaseDatabase();
    return isFilled;
}

void DictionaryForm::selected(Node *node)
{
    if (node && isRecord(*node))
        show(*node);
    else
        clearRecord();
}

/// A record that could not be loaded leaves nothing on the screen that a save could write over it.
bool DictionaryForm::show(const Node &node)
{
    const bool isLoaded = trapped({}, [&] {
        clearRecord();
        loadRecord(NullConv::ToLong(node.Tag()));
        return true;
    });
    if (!isLoaded)
        clearRecord();
    return isLoaded;
}

void DictionaryForm::loadRecord(int id)
{
    if (id <= 0)
        return;
    const auto row = openRows(db(), recordStatement(id));
    if (isEmpty(*row))
        throw Failure(u"这条记录已被他人删除，请刷新！"_s);
    for (const RecordColumn &column : m_dictionary.record.load) {
        const QString text = loadedText(column, *row);
        if (column.holder == Holder::FieldKey)
            m_fields.at(column.number).setValue(text);
        else
            m_fields.at(column.number).setText(text);
    }
    loadParts(id);
    m_currentId = id;
}

/// A load that failed is tried again: the node alone must not let a record be edited that is not there.
bool DictionaryForm::isShown(const Node &node)
{
    const int id = NullConv::ToLong(node.Tag());
    return m_currentId == id || (show(node) && m_currentId == id);
}

void DictionaryForm::clearRecord()
{
    m_currentId = 0;
    m_triedId = 0;
    emptyFilledIn(controls());
}

bool DictionaryForm::IFormUI_RecordTop()
{
    m_tv.ScrollView(cTreeView::Top);
    return true;
}

bool DictionaryForm::IFormUI_RecordBottom()
{
    m_tv.ScrollView(cTreeView::Bottom);
    return true;
}

bool DictionaryForm::IFormUI_Find(const QVariant &)
{
    m_findText.clear();
    Node *found = nullptr;
    return m_tv.NodeFind(found, m_findText, {}, true);
}

bool DictionaryForm::IFormUI_FindNext()
{
    const Node *selected = m_tree.SelectedItem();
    Node *found = nullptr;
    return m_tv.NodeFindNext(found, m_findText, selected ? selected->Index() : 0, true);
}

// Editing

/// The filter is no entry, but it could take the edited record's node away.
void DictionaryForm::SetEditMode(bool on)
{
    setFilledInEnabled(controls(), on);
    m_filter.setEnabled(!on);
    if (m_isEditing == on)
        return;
    m_isEditing = on;
    Q_EMIT editingChanged();
}

bool DictionaryForm::IFormUI_FileNew()
{
    SetEditMode(true);
    clearRecord();
    m_isDirty = false;
    qzTxt(0).SetFocus();
    return true;
}

bool DictionaryForm::IFormUI_FileEdit()
{
    if (!mayEdit() || !isShown(*m_tree.SelectedItem()))
        return false;
    SetEditMode(true);
    qzTxt(0).setLocked(false);
    m_isDirty = false;
    qzTxt(1).SetFocus();
    return true;
}

bool DictionaryForm::IFormUI_FileCancel()
{
    m_tv.ReSelectItem(nullptr);
    SetEditMode(false);
    m_isDirty = false;
    return true;
}

// Deleting

bool DictionaryForm::IFormUI_FileDelete()
{
    return reporting(u"FileDelete::"_s, Refusal, [this] {
        Node *node = m_tree.SelectedItem();
        if (!mayDelete() || !isShown(*node))
            return false;
        if (m_currentId == 0)
            throw Failure(u"没有选择需要删除的对象！"_s);
        const auto answer = desktop().messageBox(u"是否删除当前记录:"_s + node->Text(), u"提示:"_s,
                                                 Desktop::Icon::Exclamation, Desktop::Buttons::YesNo);
        return answer == Desktop::Answer::Yes && isCanDelete() && remove() && m_tv.NodeDelete(node, true);
    });
}

bool DictionaryForm::isCanDelete()
{
    return reporting(u"IsCanDelete::"_s, Refusal, [this] {
        const std::optional<bool> isUsed = isCulterUse();
        if (isUsed == true)
            refuse(u"该[%1]已启用,不能删除!"_s.arg(caption()));
        return isUsed == false;
    });
}

/// Listings keep the name of some dictionaries' rows and no key: nothing can use those by key.
std::optional<bool> DictionaryForm::isCulterUse()
{
    const QString key = record().key.toString();
    try {
        return Val(singleValue(db(),
                               u" Select Top 1 %1 From fyxx Where %1=%2"_s.arg(key).arg(m_currentId))) != 0;
    } catch (const StatementFailure &failure) {
        if (!hasListingColumn(key))
            return false;
        raiseError(u"IsCulterUse::"_s + QString::fromUtf8(failure.what()), Refusal, caption());
        return std::nullopt;
    }
}

/// True when that cannot be determined.
bool DictionaryForm::hasListingColumn(const QString &name)
{
    try {
        return openRows(db(), u"select top 1 * from fyxx"_s)->GetRows().columnNamed(name) >= 0;
    } catch (const StatementFailure &) {
        return true;
    }
}

bool DictionaryForm::remove()
{
    try {
        for (const SqlText &statement : deleteStatements(m_currentId))
            executeStatement(db(), statement);
        return true;
    } catch (const StatementFailure &failure) {
        raiseError(u"删除数据时出错："_s + QString::fromUtf8(failure.what()), FailureLevel, caption());
        return false;
    }
}

// Layout

void DictionaryForm::IFormUI_DoGetFormStatus()
{
    trapped(u"IFormUI_DoGetFormStatus::", [this] {
        sbGetFormStatus(LayoutFile(name(), app()), true);
        m_tv.ReSelectItem(nullptr);
        return true;
    });
}

void DictionaryForm::IFormUI_DoSaveFormStatus()
{
    trapped(u"IFormUI_DoSaveFormStatus::",
            [this] { return sbSaveFormStatus(LayoutFile(name(), app()), true); });
}

} // namespace ebtq
