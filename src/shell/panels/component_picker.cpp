#include "shell/panels/component_picker.h"

#include "shell/module_events.h"
#include "shell/panels/picker_popup.h"

#include <QScopeGuard>

namespace ebtq::shell {

ComponentPicker::ComponentPicker(ComponentLibrary &library, HostApp &app, std::unique_ptr<QObject> module)
    : m_library(library)
    , m_app(app)
    , m_module(std::move(module))
    , m_picker(*qobject_cast<IPickerUI *>(m_module.get()))
{}

ComponentPicker::~ComponentPicker()
{
    m_picker.IPickerUI_Clear();
}

bool ComponentPicker::Show(int left, int top, QString &text, QVariant &value, int /*flag*/,
                           const QString & /*unused*/)
{
    const auto endOfUse = qScopeGuard([this] { m_picker.IPickerUI_Parameters(ParameterList()); });
    if (!letChoose({left, top}))
        return false;
    value = m_picker.IPickerUI_Value();
    text = m_picker.IPickerUI_Text();
    return true;
}

bool ComponentPicker::letChoose(const QPoint &corner)
{
    PickerPopup popup(m_size);
    QWidget *view = m_library.createView(*m_module, &popup);
    if (!view)
        throw Failure(QStringLiteral("组件库没有选择列表“%1”的界面。")
                          .arg(QLatin1String(m_module->metaObject()->className())));
    popup.setView(*view);
    const ModuleEvents events(*m_module);
    QObject::connect(&events, &ModuleEvents::DoSelect, &popup, &PickerPopup::choose);
    QObject::connect(&events, &ModuleEvents::DoCancel, &popup, &PickerPopup::hide);
    if (!m_picker.IPickerUI_Refresh())
        throwFailure();
    popup.showAndWait(corner);
    m_size = popup.size();
    return popup.isChosen();
}

bool ComponentPicker::Validate(const QString &unused, const QString &valueField, const QString &textField,
                               const QString &typedText, QVariant &value, QString &text)
{
    const bool found = m_picker.IPickerUI_Validate(unused, valueField, textField, typedText, value, text);
    if (!found && !m_app.Db().LastError().Description.isEmpty())
        throwFailure();
    return found;
}

void ComponentPicker::throwFailure() const
{
    const QString reason = m_app.Db().LastError().Description;
    throw Failure(reason.isEmpty() ? QStringLiteral("选择列表读取失败！") : reason);
}

host::PickerFactory componentPickers(ComponentLibrary &library, HostApp &app)
{
    return [&library, &app](const QString &name) -> std::unique_ptr<HostPicker> {
        std::unique_ptr<QObject> module = library.create(QStringLiteral("EBTQ_S.") + name);
        auto *picker = qobject_cast<IPickerUI *>(module.get());
        if (!picker || !picker->IPickerUI_Init(app, 0, name))
            return nullptr;
        return std::make_unique<ComponentPicker>(library, app, std::move(module));
    };
}

} // namespace ebtq::shell
