#pragma once

#include "component/component_library.h"
#include "contracts/host_contracts.h"
#include "host/application.h"

#include <QSize>

namespace ebtq::shell {

/// A picker of the component library as modules get one: its screen as a popup at the field, its
/// look-up without any screen. It lives as long as the session, so that it keeps its size
/// and check boxes.
class ComponentPicker : public HostPicker
{
public:
    /// `library` and `app` outlive the picker; `module` implements IPickerUI and is initialised.
    ComponentPicker(ComponentLibrary &library, HostApp &app, std::unique_ptr<QObject> module);
    ~ComponentPicker() override;
    ComponentPicker(const ComponentPicker &) = delete;
    ComponentPicker &operator=(const ComponentPicker &) = delete;

    [[nodiscard]] ParameterList &Parameters() override { return m_picker.IPickerUI_Parameters(); }
    /// Throws Failure when the rows cannot be loaded; nothing is shown then.
    bool Show(int left, int top, QString &text, QVariant &value, int flag, const QString &unused) override;
    [[nodiscard]] std::shared_ptr<const PickedRow> Objects() const override
    {
        return m_picker.IPickerUI_Objects();
    }
    /// Throws Failure when the look-up fails; a text that matches nothing is no failure.
    bool Validate(const QString &unused, const QString &valueField, const QString &textField,
                  const QString &typedText, QVariant &value, QString &text) override;
    [[nodiscard]] bool Ready(int /*flag*/) const override { return true; }

private:
    bool letChoose(const QPoint &corner);
    void throwFailure() const;

    ComponentLibrary &m_library;
    HostApp &m_app;
    std::unique_ptr<QObject> m_module;
    IPickerUI &m_picker; ///< the module by its contract
    QSize m_size;
};

/// The pickers of the component library for the host: a picker's name is its class's, without the library's.
[[nodiscard]] host::PickerFactory componentPickers(ComponentLibrary &library, HostApp &app);

} // namespace ebtq::shell
