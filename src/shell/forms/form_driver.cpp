#include "shell/forms/form_driver.h"

#include "screens/look/question.h"

#include <QAction>
#include <QKeyEvent>
#include <QLabel>
#include <QMetaProperty>
#include <QPointer>
#include <QStyle>

namespace ebtq::shell {

namespace {

constexpr const char *editingProperty = "Editing";
constexpr const char *dragProperty = "DragEnabled";

QString verb(int right)
{
    switch (right) {
    case RightNew:
        return QStringLiteral("新建");
    case RightDelete:
        return QStringLiteral("删除");
    default:
        return QStringLiteral("修改");
    }
}

/// Takes the keyboard from the field that has it, which checks what was typed, or from an editor in a cell,
/// which hands it over. False when the field refuses it, and says so itself.
bool leaveField(const QWidget &view, const QPointer<QWidget> &field)
{
    if (!field || !view.isAncestorOf(field))
        return true;
    field->clearFocus();
    return !field || field->property("state") != QStringLiteral("error");
}

} // namespace

struct FormDriver::Command
{
    enum When { Browsing, Editing, Printing, Always };
    QStringView name; ///< empty for a separator
    QStringView icon;
    QStringView text;
    QKeyCombination keys;
    When when = Always;
    int right = 0; ///< that it needs
    void (FormDriver::*operation)();
};

std::span<const FormDriver::Command> FormDriver::commands()
{
    using Form = FormDriver;
    using enum Command::When;
    constexpr QKeyCombination none(Qt::Key_unknown);
    constexpr Command separator{};
    static constexpr Command all[] = {
        {u"new", u"list-add", u"新建(&N)", Qt::CTRL | Qt::Key_N, Browsing, RightNew, &Form::startNew},
        {u"edit", u"document-edit", u"修改(&E)", Qt::Key_F2, Browsing, RightEdit, &Form::startEdit},
        {u"save", u"document-save", u"保存(&S)", Qt::CTRL | Qt::Key_S, Editing, 0, &Form::save},
        {u"cancel", u"edit-undo", u"取消(&C)", none, Editing, 0, &Form::cancel},
        {u"delete", u"edit-delete", u"删除(&D)", none, Browsing, RightDelete, &Form::remove},
        separator,
        {u"first", u"go-first", u"首条", Qt::CTRL | Qt::Key_Home, Browsing, 0,
         &FormDriver::operate<&IFormUI::IFormUI_RecordTop>},
        {u"previous", u"go-previous", u"上一条", Qt::CTRL | Qt::Key_PageUp, Browsing, 0,
         &FormDriver::operate<&IFormUI::IFormUI_RecordPrevious>},
        {u"next", u"go-next", u"下一条", Qt::CTRL | Qt::Key_PageDown, Browsing, 0,
         &FormDriver::operate<&IFormUI::IFormUI_RecordNext>},
        {u"last", u"go-last", u"末条", Qt::CTRL | Qt::Key_End, Browsing, 0,
         &FormDriver::operate<&IFormUI::IFormUI_RecordBottom>},
        separator,
        {u"find", u"edit-find", u"查找", Qt::CTRL | Qt::Key_F, Browsing, 0, &Form::find},
        {u"findNext", u"go-down", u"查找下一个", Qt::Key_F3, Browsing, 0, &Form::findNext},
        separator,
        {u"print", u"document-print", u"打印", Qt::CTRL | Qt::Key_P, Printing, 0,
         &FormDriver::operate<&IFormUI::IFormUI_DoPrint>},
        {u"refresh", u"view-refresh", u"刷新", none, Browsing, 0, &Form::refresh},
        {u"close", u"dialog-close", u"关闭(&X)", none, Always, 0, &Form::close},
    };
    return all;
}

FormDriver::FormDriver(IFormUI &form, const DrivenModule &driven)
    : m_form(form)
    , m_driven(driven)
    , m_bar(driven.view, driven.column)
    , m_stateLabel(new QLabel)
{
    m_bar.setObjectName(QStringLiteral("FormCommands"));
    for (const Command &command : commands())
        addCommand(command);
    addState();
    watchModule();
    driven.view.parentWidget()->installEventFilter(this);
    follow();
}

FormDriver::~FormDriver() = default;

void FormDriver::addCommand(const Command &command)
{
    if (command.name.isEmpty())
        return m_bar.addSeparator();
    QAction &action = m_bar.add(command.name.toString(), command.icon.toString(), command.text.toString(),
                                [this, &command] { run(command); });
    if (command.keys.key() != Qt::Key_unknown)
        action.setShortcut(command.keys);
    if (command.right != 0 || command.when == Command::Editing)
        action.setPriority(QAction::HighPriority);
    else if (command.icon.startsWith(u"go-") && command.name != u"findNext") // an arrow says it all
        action.setPriority(QAction::LowPriority);
}

void FormDriver::addState()
{
    m_stateLabel->setObjectName(QStringLiteral("FormState"));
    m_stateLabel->setProperty("kind", QStringLiteral("state"));
    m_bar.addAtEnd(*m_stateLabel);
}

/// Both properties are no part of the contract: a module may lack them.
void FormDriver::watchModule()
{
    const QMetaObject &type = *m_driven.module.metaObject();
    const QMetaProperty editing = type.property(type.indexOfProperty(editingProperty));
    if (editing.hasNotifySignal())
        connect(&m_driven.module, editing.notifySignal(), this,
                metaObject()->method(metaObject()->indexOfSlot("followModule()")));
}

/// By a drop, for one.
void FormDriver::followModule()
{
    const bool isEditingNow = m_driven.module.property(editingProperty).toBool();
    if (isEditingNow != isEditing())
        setState(isEditingNow ? State::Edit : State::Browse);
    follow();
}

bool FormDriver::init()
{
    constexpr int unused = 0;
    return m_form.IFormUI_Init(m_driven.app, unused, unused);
}

/// The layout holds the selected node, so it comes back after a load and is kept before the next one.
void FormDriver::begin()
{
    guarded([this] { saveLayout(); });
    guarded([this] { readRights(); });
    m_isLoaded = false;
    guarded([this] { m_isLoaded = m_form.IFormUI_Refresh(); });
    if (m_isLoaded)
        guarded([this] { m_form.IFormUI_DoGetFormStatus(); });
    follow();
}

/// While a record is written it would take its key from it: the next save would write a second record.
void FormDriver::refresh()
{
    if (isEditing())
        Q_EMIT refused(QStringLiteral("正在编辑，请先保存或取消！"));
    else
        begin();
}

/// A module that could not be loaded shows nothing worth keeping.
void FormDriver::saveLayout()
{
    if (m_isLoaded)
        m_form.IFormUI_DoSaveFormStatus();
}

void FormDriver::clear()
{
    m_form.IFormUI_Clear();
}

// State and rights

void FormDriver::setState(State state)
{
    m_state = state;
    if (state == State::Browse) // no field can be used any more
        m_driven.view.setFocus(Qt::OtherFocusReason);
}

void FormDriver::showState()
{
    static const QString texts[] = {QStringLiteral("浏览"), QStringLiteral("新建"), QStringLiteral("编辑")};
    m_stateLabel->setText(texts[static_cast<size_t>(m_state)]);
    m_stateLabel->setProperty("active", isEditing());
    m_stateLabel->style()->unpolish(m_stateLabel);
    m_stateLabel->style()->polish(m_stateLabel);
}

bool FormDriver::isUsable(const Command &command) const
{
    switch (command.when) {
    case Command::Browsing:
        return !isEditing() && (command.right == 0 || m_rights.contains(command.right));
    case Command::Editing:
        return isEditing();
    case Command::Printing:
        return !isEditing() && !m_form.IFormUI_ReturnPrintName().isEmpty();
    default:
        return true;
    }
}

void FormDriver::follow()
{
    for (const Command &command : commands())
        if (!command.name.isEmpty())
            m_bar.findChild<QAction *>(command.name.toString())->setEnabled(isUsable(command));
    if (m_driven.module.property(dragProperty).isValid())
        m_driven.module.setProperty(dragProperty, m_rights.contains(RightEdit));
    showState();
    Q_EMIT statusChanged(false);
}

void FormDriver::readRights()
{
    const auto rights = m_driven.app.Rights(m_driven.entry.id);
    m_rights.clear();
    for (const int right : {RightNew, RightDelete, RightEdit})
        if (rights->Allowed(right))
            m_rights.insert(right);
}

/// Rights can be withdrawn while the module is open.
bool FormDriver::isAllowed(int right)
{
    readRights();
    if (m_rights.contains(right))
        return true;
    Q_EMIT refused(QStringLiteral("您没有%1%2的权限！").arg(verb(right), m_driven.entry.caption));
    return false;
}

// Commands

void FormDriver::run(const Command &command)
{
    say({});
    guarded([&] {
        if (command.right != 0 && !isAllowed(command.right))
            return;
        (this->*command.operation)();
    });
    follow();
}

void FormDriver::say(const QString &done)
{
    m_done = done;
    Q_EMIT statusChanged(false);
}

void FormDriver::startNew()
{
    if (m_form.IFormUI_FileNew())
        setState(State::New);
}

void FormDriver::startEdit()
{
    if (m_form.IFormUI_FileEdit())
        setState(State::Edit);
}

void FormDriver::remove()
{
    if (m_form.IFormUI_FileDelete())
        say(QStringLiteral("已删除。"));
}

void FormDriver::find()
{
    m_isFound = m_form.IFormUI_Find({});
    if (!m_isFound)
        say(QStringLiteral("没有找到。"));
}

void FormDriver::findNext()
{
    if (!m_isFound)
        find();
    else if (!m_form.IFormUI_FindNext())
        say(QStringLiteral("没有下一个了。"));
}

void FormDriver::close()
{
    Q_EMIT closeWanted();
}

// The end of editing

/// Does it with what was typed last handed over. Where it gives false, the keyboard goes back to the field,
/// unless the module has chosen another.
bool FormDriver::afterField(const std::function<bool(bool isAccepted)> &act)
{
    const QWidget &window = *m_driven.view.window();
    const QPointer<QWidget> field = window.focusWidget();
    bool isDone = false;
    guarded([&] { isDone = act(leaveField(m_driven.view, field)); });
    if (!isDone && field && !window.focusWidget())
        field->setFocus(Qt::OtherFocusReason);
    follow();
    return isDone;
}

bool FormDriver::isSaved()
{
    if (!isAllowed(m_state == State::New ? RightNew : RightEdit) || !m_form.IFormUI_FileSave())
        return false;
    setState(State::Browse);
    say(QStringLiteral("已保存。"));
    return true;
}

void FormDriver::save()
{
    (void)afterField([this](bool isAccepted) { return isAccepted && isSaved(); });
}

/// Asks, when there is something to lose.
bool FormDriver::endEditing(bool isFieldAccepted)
{
    enum Answer { Yes, No };
    const std::optional<int> answer =
        m_form.IFormUI_IsDirty()
            ? look::choose(QStringLiteral("数据已变动，是否保存！"), QStringLiteral("提示："),
                           {QStringLiteral("是(&Y)"), QStringLiteral("否(&N)")})
            : std::optional<int>(No);
    if (answer == Yes)
        return isFieldAccepted && isSaved();
    if (answer == No && guarded([this] { m_form.IFormUI_FileCancel(); }))
        setState(State::Browse);
    return answer.has_value();
}

void FormDriver::cancel()
{
    mayLeave();
}

bool FormDriver::mayLeave()
{
    return !isEditing() || afterField([this](bool isAccepted) { return endEditing(isAccepted); });
}

bool FormDriver::eventFilter(QObject *watched, QEvent *event)
{
    const bool isEscape =
        event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape;
    if (!isEscape || !isEditing())
        return ModuleDriver::eventFilter(watched, event);
    mayLeave();
    return true;
}

} // namespace ebtq::shell
