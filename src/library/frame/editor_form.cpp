#include "library/frame/editor_form.h"

#include "contracts/conversions.h"
#include "contracts/null_conv.h"
#include "library/controls/check_box.h"
#include "library/controls/text_box.h"
#include "library/frame/desktop.h"
#include "library/frame/guid_text.h"

#include <algorithm>

namespace ebtq {

namespace {

/// "{...}" and apostrophes come with the session's id; columns hold it without them.
QString bareId(QString id)
{
    for (const QChar extra : {u'{', u'}', u'\''})
        id.remove(extra);
    return id;
}

bool isFilledIn(const QString &type)
{
    return type == u"TextBox" || type == u"qzTxt_S" || type == u"ComboBox" || type == u"CheckBox";
}

} // namespace

EditorForm::EditorForm(const QString &name, QString fields, Desktop &desktop)
    : Module(name, desktop)
    , m_fieldsName(std::move(fields))
{
    setObjectName(name);
}

QString EditorForm::messageTitle()
{
    return QStringLiteral("提示:");
}

QString EditorForm::tag(QStringView event) const
{
    return QStringLiteral("-->%1_%2::").arg(m_fieldsName, event);
}

qzTxt_S &EditorForm::addField(QStringView caption)
{
    auto &result = controls().add<qzTxt_S>(m_fieldsName, static_cast<int>(m_fields.size()));
    result.setCaption(caption.toString());
    connectField(result);
    m_fields.push_back(&result);
    return result;
}

void EditorForm::addButtons(std::initializer_list<QStringView> captions)
{
    for (const QStringView caption : captions) {
        m_buttons.push_back(
            &controls().add<Button>(QStringLiteral("Cmd"), static_cast<int>(m_buttons.size())));
        m_buttons.back()->setCaption(caption.toString());
    }
    connect(&Cmd(0), &Button::Click, this, &EditorForm::saveAndClose);
    connect(&Cmd(1), &Button::Click, this, &EditorForm::unloaded);
}

void EditorForm::connectField(qzTxt_S &field)
{
    const int number = field.Index();
    connect(&field, &qzTxt_S::valueChanged, &field,
            [&field] { field.setTag(NullConv::ToText(field.Value())); });
    connect(&field, &qzTxt_S::FieldHelp, this, [=, this](int left, int top, QString &text, QVariant &value) {
        trapped(tag(u"FieldHelp"), [&] {
            HostPicker *list = picker(number);
            if (!list || !list->Show(left, top, text, value, 0, {}))
                return false;
            m_chosenField = number;
            m_chosenRow = list->Objects();
            return true;
        });
    });
    connect(&field, &qzTxt_S::FieldCheck, this,
            [=, this](const QString &base, const QString &valueField, const QString &textField,
                      QVariant &value, QString &text) {
                trapped(tag(u"FieldCheck"), [&] {
                    return check(number, {base, valueField, textField, value, text});
                });
            });
    connect(&field, &qzTxt_S::FieldGenericHelp, this,
            [this](const QString &key, const QVariant &control, const QVariant &left, const QVariant &top) {
                trapped(tag(u"FieldGenericHelp"), [&] { return app().ShowHelp(key, control, left, top); });
            });
}

void EditorForm::saveAndClose()
{
    if (DoSave())
        Q_EMIT unloaded();
}

// Opening

void EditorForm::reset()
{
    forgetKey();
    emptyFields();
    for (const auto &control : controls()) {
        control->setVisible(true);
        control->setEnabled(true);
    }
    InitFields();
}

void EditorForm::emptyFields()
{
    for (const auto &control : controls()) {
        if (auto *box = qobject_cast<TextBox *>(control.get())) {
            box->setText({});
        } else if (auto *field = qobject_cast<qzTxt_S *>(control.get())) {
            field->setValue(0);
            field->setText({});
        } else if (auto *tick = qobject_cast<CheckBox *>(control.get())) {
            tick->setValue(0);
        }
    }
}

void EditorForm::InitFields()
{
    for (qzTxt_S *field : m_fields) {
        const LookUp &source = lookUpOf(field->Index());
        if (source.kind != LookUp::None)
            InitField(*field, source);
    }
}

void EditorForm::InitField(qzTxt_S &field, const LookUp &source)
{
    field.set_help_flag(true);
    field.set_help_menuflag(true);
    if (source.kind == LookUp::Calendar) {
        // A date is not checked at its field: the save hands it to the database, which refuses what is none.
        field.set_help_type(qzTxt_S::Calendar);
        field.set_judge_type(qzTxt_S::JudgeDate);
        return;
    }
    field.set_judge_type(source.kind == LookUp::InlineList ? qzTxt_S::JudgeInlineList
                                                           : qzTxt_S::JudgeStatement);
    field.set_judge_time(qzTxt_S::JudgeOnLeaving);
    field.set_error_message(Trim(field.Caption()) + QStringLiteral("输入有误，请重新输入！"));
    if (source.kind == LookUp::Picker) {
        field.set_help_type(qzTxt_S::Custom);
        return;
    }
    field.set_help_type(source.kind == LookUp::InlineList ? qzTxt_S::InlineList : qzTxt_S::HostList);
    field.set_text_field_code(source.valueColumn.toString());
    field.set_text_field_name(source.textColumn.toString());
    field.set_help_code(source.name.toString());
    field.set_judge_base(source.check());
}

/// A list of types, since the forms of this family are walked alike.
void EditorForm::setTypesEnabled(bool enabled, std::initializer_list<int> fixed)
{
    for (const auto &control : controls()) {
        const QString &type = control->TypeName();
        if (isFilledIn(type))
            control->setEnabled(enabled);
        else if (type == u"TreeView" || type == u"ListView")
            control->setEnabled(!enabled);
    }
    for (const int number : fixed)
        field(number).setEnabled(false);
}

void EditorForm::showAuthor(qzTxt_S &author, qzTxt_S &department)
{
    const HostSession &session = app().Session();
    author.setValue(bareId(session.UserID()));
    author.setText(session.UserName());
    SqlText sql(QStringLiteral("select mtname from su_usertype where mtID in(select usertypeID from "
                               "su_membership where userID='"));
    sql += typed(author.Tag());
    sql += QStringView(u"')");
    department.setText(NullConv::ToText(single(sql)));
}

// Help and check

/// The picker of a field, ready and with its parameters; nullptr when it cannot be used.
HostPicker *EditorForm::picker(int number)
{
    HostPicker &list = app().Picker(lookUpOf(number).name.toString());
    if (!list.Ready(0))
        return nullptr;
    setParameters(number, list.Parameters());
    return &list;
}

bool EditorForm::check(int number, const Check &check)
{
    const QString typedText = field(number).Text();
    if (lookUpOf(number).kind != LookUp::Picker) {
        app().JudgeText(check.base, check.valueField, check.textField, typedText, check.value, check.text);
        return true;
    }
    HostPicker *list = picker(number);
    if (!list)
        return false;
    if (list->Validate(check.base, check.valueField, check.textField, typedText, check.value, check.text) ||
        app().Db().LastError().Description.isEmpty())
        picked(number, *list);
    return true;
}

/// Typing empties a field's value, so one that is there was chosen.
std::shared_ptr<const PickedRow> EditorForm::rowOf(int number, const HostPicker &picker) const
{
    const bool isChosen = m_chosenField == number &&
                          !NullConv::ToText(m_fields.at(static_cast<size_t>(number))->Value()).isEmpty();
    return isChosen ? m_chosenRow : picker.Objects();
}

// Statements

QVariant EditorForm::single(const SqlText &sql)
{
    const QVariant value = app().Db().CreateQuery(sql, 1)->Scalar();
    if (const QString error = app().Db().LastError().Description; !error.isEmpty())
        throw Failure(error);
    return value;
}

std::unique_ptr<Recordset> EditorForm::rowsOf(const SqlText &sql)
{
    auto rows = app().Db().CreateQuery(sql, 1)->Open();
    if (const QString error = app().Db().LastError().Description; !error.isEmpty())
        throw Failure(error);
    return rows;
}

bool EditorForm::execute(const SqlText &sql)
{
    app().Db().CreateQuery(sql, 1)->Execute();
    return hasSucceeded();
}

bool EditorForm::hasSucceeded()
{
    const QString error = app().Db().LastError().Description;
    if (!error.isEmpty())
        refuse(error);
    return error.isEmpty();
}

QString EditorForm::newKey()
{
    if (m_triedKey.isEmpty())
        m_triedKey = NewGuidText(desktop());
    return m_triedKey;
}

std::optional<QVariant> EditorForm::triedValue(QStringView table, QStringView keyColumn, QStringView column)
{
    if (m_triedKey.isEmpty())
        return QVariant();
    SqlText sql(QStringLiteral("select %1 from %2 where %3='").arg(column, table, keyColumn));
    sql += typed(m_triedKey);
    sql += QStringView(u"'");
    const QVariant value = app().Db().CreateQuery(sql, 1)->Scalar();
    return hasSucceeded() ? std::optional(value) : std::nullopt;
}

void EditorForm::refuse(const QString &message)
{
    desktop().messageBox(message, messageTitle(), Desktop::Icon::Critical, Desktop::Buttons::Ok);
}

} // namespace ebtq
