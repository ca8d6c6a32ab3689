#pragma once

#include "library/frame/module.h"

namespace ebtq {

/// A part of a module in a separate class: it uses the module's controls and host, and traps and reports as
/// the module does.
class ModulePart
{
protected:
    /// `module` outlives the part.
    explicit ModulePart(Module &module)
        : m_module(module)
    {}
    ModulePart(const ModulePart &) = delete;
    ModulePart &operator=(const ModulePart &) = delete;
    ~ModulePart() = default;

    [[nodiscard]] ControlCollection &controls() const { return m_module.controls(); }
    [[nodiscard]] Desktop &desktop() const { return m_module.desktop(); }
    [[nodiscard]] HostApp &app() const { return m_module.app(); }
    /// The host's layout file of this screen; empty until the host gives it.
    [[nodiscard]] const QString &layoutFile() const { return m_module.m_layoutFile; }
    void setLayoutFile(const QString &file) { m_module.m_layoutFile = file; }
    /// Between the module's Init and its Clear.
    [[nodiscard]] bool isInited() const { return m_module.m_app; }
    template<class Body> bool trapped(QStringView tag, Body body) { return m_module.trapped(tag, body); }
    template<class Body> bool trappedWithoutDatabase(QStringView tag, Body body)
    {
        return m_module.trappedWithoutDatabase(tag, body);
    }

private:
    Module &m_module;
};

} // namespace ebtq
