#include "shell/admin/password.h"

#include "contracts/host_contracts.h"
#include "database/private_arguments.h"
#include "shell/admin/utf8.h"

#include <cstdio>
#include <iostream>
#include <string>

#include <termios.h>
#include <unistd.h>

namespace ebtq::admin {

namespace {

/// Turns the terminal's echo off while the password is typed.
class HiddenInput
{
public:
    HiddenInput()
        : m_isTerminal(tcgetattr(STDIN_FILENO, &m_shown) == 0)
    {
        if (!m_isTerminal)
            return;
        std::fputs("密码：", stderr);
        termios hidden = m_shown;
        hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden);
    }
    HiddenInput(const HiddenInput &) = delete;
    HiddenInput &operator=(const HiddenInput &) = delete;
    ~HiddenInput()
    {
        if (!m_isTerminal)
            return;
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &m_shown);
        std::fputs("\n", stderr);
    }

private:
    termios m_shown{};
    bool m_isTerminal;
};

std::string readBytes()
{
    if (const auto password = db::takeFromEnvironment("EBTQ_PASSWORD"))
        return password->toStdString();
    const HiddenInput hidden;
    std::string line;
    std::getline(std::cin, line);
    return line;
}

} // namespace

QString readPassword()
{
    const auto password = decodeUtf8(readBytes());
    if (!password)
        throw Failure(QStringLiteral("密码不是有效的 UTF-8 文本，请重新输入！"));
    return *password;
}

} // namespace ebtq::admin
