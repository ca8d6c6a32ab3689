#pragma once

#include <QMenu>

#include <functional>

namespace ebtq::shell {

/// What can be done about the session, at the name of who is signed in.
class SessionMenu : public QMenu
{
    Q_OBJECT

public:
    struct Commands
    {
        std::function<void()> changePassword;
        std::function<void()> lock;
        std::function<void()> switchUser;
        std::function<void()> about;
        /// Whether who is signed in is the agent of what he writes anew; `fillsAgentIn` is how it is now.
        std::function<void(bool)> fillAgentIn;
        bool fillsAgentIn = false;
    };
    /// The shortcuts work in `window`.
    SessionMenu(QWidget &window, const Commands &commands);
};

/// The program's version and what it is made of, with the licences.
void showAbout(QWidget &window);

} // namespace ebtq::shell
