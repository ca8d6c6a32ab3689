#include "library/records/editor_form.h"

#include "contracts/conversions.h"
#include "contracts/null_conv.h"
#include "contracts/user_id.h"
#include "library/controls/check_box.h"
#include "library/controls/option_button.h"
#include "library/controls/text_box.h"
#include "library/frame/desktop.h"
#include "library/frame/guid_text.h"
#include "library/frame/statements.h"
#include "library/records/filled_in.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq {

EditorForm::EditorForm(const QString &name, const QString &arrayName, std::span<const EditorField> fields,
                       const RecordTable &record, Desktop &desktop, const QString &failureTitle)
    : Module(name, desktop, {name, failureTitle, true})
    , m_record(record)
    , m_fields(*this, arrayName, fields, record, *this)
{
    setObjectName(name);
    connect(&m_fields, &EditorFields::changed, this, [this] { setDirty(true); });
}

QString EditorForm::messageTitle()
{
    return u"提示:"_s;
}

TextBox &EditorForm::addMemo(const QString &name, int index, const QString &caption)
{
    auto &result = controls().add<TextBox>(name, index, TextBox::Lines::Many);
    result.setCaption(caption);
    connect(&result, &TextBox::Change, this, [this] { setDirty(true); });
    m_memos.push_back(&result);
    return result;
}

CheckBox &EditorForm::addTick(const QString &name, int index, const QString &caption)
{
    auto &result = controls().add<CheckBox>(name, index);
    result.setCaption(caption);
    connect(&result, &CheckBox::Click, this, [this] { setDirty(true); });
    m_ticks.push_back(&result);
    return result;
}

OptionButton &EditorForm::addOption(const QString &name, int index, const QString &caption)
{
    auto &result = controls().add<OptionButton>(name, index);
    result.setCaption(caption);
    for (OptionButton *other : m_options)
        result.exclude(*other);
    connect(&result, &OptionButton::Click, this, [this] { setDirty(true); });
    m_options.push_back(&result);
    return result;
}

void EditorForm::addButtons(std::initializer_list<QStringView> captions)
{
    for (const QStringView caption : captions) {
        m_buttons.push_back(&controls().add<Button>(u"Cmd"_s, static_cast<int>(m_buttons.size())));
        m_buttons.back()->setCaption(caption.toString());
    }
    connect(&Cmd(0), &Button::Click, this, &EditorForm::savePressed);
    connect(&Cmd(1), &Button::Click, this, &EditorForm::closePressed);
}

// Opening

void EditorForm::open(HostApp &host, QStringView tag, const std::function<bool()> &load)
{
    if (m_isOpen)
        return;
    m_isOpen = true;
    setApp(&host);
    trapped(tag, [&] {
        const bool isLoaded = load();
        if (isLoaded)
            desktop().showModal(*this);
        return isLoaded;
    });
    setApp(nullptr);
    m_isOpen = false;
}

void EditorForm::reset()
{
    m_triedKey.clear();
    m_loaded.clear();
    emptyFields();
    for (const auto &control : controls()) {
        control->setVisible(true);
        control->setEnabled(true);
    }
    m_fields.setUp();
}

void EditorForm::emptyFields()
{
    emptyFilledIn(controls());
}

void EditorForm::setDirty(bool dirty)
{
    m_isDirty = dirty;
    Q_EMIT titleChanged();
}

QString EditorForm::recordNumber() const
{
    return Trim(field(0).Text());
}

bool EditorForm::isWritable()
{
    return !app().Db().ReadOnly();
}

void EditorForm::setTypesEnabled(bool enabled, std::initializer_list<int> fixed)
{
    setFilledInEnabled(controls(), enabled);
    for (const int number : fixed)
        field(number).setEnabled(false);
}

void EditorForm::showAuthor(qzTxt_S &author)
{
    const HostSession &session = app().Session();
    author.setValue(bareUserId(session));
    author.setText(session.UserName());
}

void EditorForm::showDepartment(qzTxt_S &department, const qzTxt_S &author)
{
    const SqlText sql = SqlText(u"select mtname from su_usertype where mtID in(select usertypeID from "
                                "su_membership where userID="_s) +
                        quoted(author.Tag()) + QStringView(u")");
    department.setText(NullConv::ToText(singleValue(app().Db(), sql)));
}

/// Where that cannot be determined, the field is left to the person: it must not keep a new row from being
/// written.
bool EditorForm::wantsOwnAgent() const
{
    constexpr int parameterGroup = 12;
    try {
        return Val(app().UserParameter(parameterGroup, u"ownagent"_s).Text) != 0;
    } catch (const std::exception &) {
        return false;
    }
}

void EditorForm::beginWithOwnAgent(qzTxt_S &agent)
{
    if (!wantsOwnAgent())
        return;
    agent.setText(app().Session().UserName());
    QVariant value;
    QString text;
    const bool isLookedUp = m_fields.lookUps().lookUp(agent.Index(), {{}, {}, {}, value, text});
    const bool isEmployee = isLookedUp && !NullConv::ToText(value).isEmpty();
    if (isEmployee)
        agent.setValue(value);
    agent.setText(isEmployee ? text : QString());
}

// The row

void EditorForm::becomeNewRow()
{
    m_loaded.clear();
    setDirty(true);
}

void EditorForm::takeRow(const Recordset &row)
{
    m_triedKey.clear(); // of another row
    m_loaded.take(m_record, row);
    for (const RecordColumn &column : m_record.load) {
        if (column.loaded != Loaded::Not)
            put(column, loadedText(column, row));
    }
}

void EditorForm::put(const RecordColumn &column, const QString &text)
{
    switch (column.holder) {
    case Holder::FieldText:
        field(column.number).setText(text);
        break;
    case Holder::FieldKey:
        field(column.number).setValue(text);
        break;
    case Holder::Memo:
        memo(column.number).setText(text);
        break;
    case Holder::Tick:
        tick(column.number).setValue(WholePart(Val(text)));
        break;
    case Holder::FirstTick:
        putFirstTick(WholePart(Val(text)));
        break;
    case Holder::TickSum:
        for (size_t at = 0; at < m_ticks.size(); ++at)
            m_ticks[at]->setValue(isInSum(at, text) ? 1 : 0);
        break;
    case Holder::Option:
        optionOf(text).setValue(1);
        break;
    case Holder::Cell:
    case Holder::Given:
        break;
    }
}

/// Whatever is no number of a box is the last one, as a row without a tick is stored.
void EditorForm::putFirstTick(int number)
{
    const int last = static_cast<int>(m_ticks.size());
    const int ticked = number >= 1 && number < last ? number : last;
    for (int each = 1; each <= last; ++each)
        tick(each - 1).setValue(each == ticked ? 1 : 0);
}

QString EditorForm::held(const RecordColumn &column) const
{
    switch (column.holder) {
    case Holder::FieldText:
        return field(column.number).Text();
    case Holder::FieldKey:
        return field(column.number).Tag();
    case Holder::Memo:
        return memo(column.number).Text();
    case Holder::Tick:
        return QString::number(tick(column.number).Value());
    case Holder::FirstTick:
        return QString::number(firstTick());
    case Holder::TickSum:
        return QString::number(tickSum());
    case Holder::Option:
        return QString::number(chosenOption());
    case Holder::Cell:
    case Holder::Given:
        break;
    }
    return {};
}

/// The last box is the default: a row without a tick belongs to it.
int EditorForm::firstTick() const
{
    const int last = static_cast<int>(m_ticks.size());
    for (int number = 1; number < last; ++number) {
        if (tick(number - 1).Value() == 1)
            return number;
    }
    return last;
}

bool EditorForm::isInSum(size_t tick, const QString &sum) const
{
    const int number = WholePart(Val(sum));
    return number >= 0 && number < 1 << m_ticks.size() && (number & 1 << tick) != 0;
}

int EditorForm::tickSum() const
{
    int sum = 0;
    for (size_t at = 0; at < m_ticks.size(); ++at)
        sum += m_ticks[at]->Value() != 0 ? 1 << at : 0;
    return sum;
}

OptionButton &EditorForm::optionOf(const QString &number) const
{
    const int wanted = WholePart(Val(number));
    const int last = static_cast<int>(m_options.size()) - 1;
    return option(wanted >= 0 && wanted < last ? wanted : last);
}

int EditorForm::chosenOption() const
{
    const auto chosen = std::ranges::find_if(m_options, [](const auto *each) { return each->Value() != 0; });
    return static_cast<int>(std::min(chosen, m_options.end() - 1) - m_options.begin());
}

HeldText EditorForm::heldTexts() const
{
    return [this](const RecordColumn &column) { return held(column); };
}

void EditorForm::refuse(const QString &message)
{
    desktop().messageBox(message, messageTitle(), Desktop::Icon::Critical, Desktop::Buttons::Ok);
}

} // namespace ebtq
