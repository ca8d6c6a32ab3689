#pragma once

#include "library/controls/control.h"

#include <memory>
#include <utility>
#include <vector>

namespace ebtq {

/// The controls of one module or form, owned, in the order in which they were made. It can be walked by type
/// name, as layouts and "all fields of the form" do.
class ControlCollection : public QObject
{
    Q_OBJECT

public:
    /// Makes a control and keeps it: `add<CheckBox>(name, index)`.
    template<class T, class... Arguments> T &add(Arguments &&...arguments)
    {
        auto control = std::make_unique<T>(std::forward<Arguments>(arguments)...);
        T &result = *control;
        m_controls.push_back(std::move(control));
        return result;
    }

    [[nodiscard]] int count() const { return static_cast<int>(m_controls.size()); }
    [[nodiscard]] Control &at(int position) const { return *m_controls[static_cast<size_t>(position)]; }
    /// Compared without regard to case; nullptr when there is none.
    [[nodiscard]] Control *find(const QString &name, int index = -1) const;

    [[nodiscard]] auto begin() const { return m_controls.begin(); }
    [[nodiscard]] auto end() const { return m_controls.end(); }

private:
    std::vector<std::unique_ptr<Control>> m_controls;
};

} // namespace ebtq
