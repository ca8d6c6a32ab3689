#pragma once

#include <QScopedValueRollback>

namespace ebtq {

/// What passes between a control and its view. While one of them takes a change over from the other, what it
/// reports in turn is an echo and is ignored. Both can happen at once: the control may answer a user's change
/// with a further one.
class Exchange
{
public:
    /// As long as the result lives, the view takes over what the control has.
    [[nodiscard]] QScopedValueRollback<bool> follow() { return QScopedValueRollback(m_isFollowing, true); }
    [[nodiscard]] bool isFollowing() const { return m_isFollowing; }
    /// As long as the result lives, the control takes over what a person did at the view.
    [[nodiscard]] QScopedValueRollback<bool> take() { return QScopedValueRollback(m_isTaking, true); }
    [[nodiscard]] bool isTaking() const { return m_isTaking; }

private:
    bool m_isFollowing = false;
    bool m_isTaking = false;
};

} // namespace ebtq
