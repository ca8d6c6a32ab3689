#pragma once

#include "contracts/host_contracts.h"
#include "database/connection.h"

#include <QByteArray>
#include <QString>

#include <functional>

namespace ebtq::host {

/// Who signed in.
struct User
{
    QString id; ///< GUID text without braces
    QString name;
    QString department; ///< empty when in none
    bool mustChangePassword = false;
};

/// What computing a password's hash costs.
struct PasswordCost
{
    unsigned long long operations;
    size_t memory; ///< bytes
    /// A tenth of a second and 64 MB: what a person does not notice and a thief of the database does.
    [[nodiscard]] static PasswordCost interactive();
    /// The least that there is: for data nobody guards.
    [[nodiscard]] static PasswordCost lowest();
};

/// The argon2id hash of a password, with its salt and its cost in it.
[[nodiscard]] QByteArray hashPassword(const QString &password,
                                      PasswordCost cost = PasswordCost::interactive());

/// A sign-in with a wrong name or password: what is to be slowed down when it comes again and again.
class WrongPassword : public Failure
{
public:
    using Failure::Failure;
};

/// Takes a line about a refused sign-in.
using SignInLog = std::function<void(const QString &line)>;
/// The machine's own log of sign-ins, which a user cannot change.
void writeSystemLog(const QString &line);

/// The user whose name and password match. Throws WrongPassword with a text for the user otherwise; the text
/// does not tell whether the name or the password was wrong, and finding out takes as long in both cases. The
/// log names known users only: what was typed in a name's place may be a password.
[[nodiscard]] User signIn(db::Connection &connection, const QString &name, const QString &password,
                          const SignInLog &log = writeSystemLog);

/// Throws Failure for a name that nothing can have: an empty one, one of more than 50 characters, one with an
/// apostrophe, which no statement can carry, and one with control characters, which nobody sees and nobody
/// can type. Blanks around a name do not count. `what` is named: "部门名称".
void requireName(const QString &what, const QString &name);
void requireUserName(const QString &name);
inline constexpr qsizetype shortestPassword = 8;
/// Throws Failure for a password that is too short to be chosen; those chosen before stay good.
void requirePassword(const QString &password);

struct NewUser
{
    QString name;
    QString password;
    int departmentId = 0; ///< mtID; 0 for a user in no department
};

/// Writes a new user; gives the new id. The user has no rights yet. Throws Failure for a name that is
/// taken and as the two above.
QString createUser(db::Connection &connection, const NewUser &user,
                   PasswordCost cost = PasswordCost::interactive());

enum class PasswordUse : quint8 { Lasting, UntilSignIn }; ///< the latter is to be changed at the next sign-in
/// Throws Failure for an unknown name and as requirePassword.
void setPassword(db::Connection &connection, const QString &name, const QString &password,
                 PasswordCost cost = PasswordCost::interactive(), PasswordUse use = PasswordUse::Lasting);
/// Sets the password of who knows the present one; the new one is another. Throws WrongPassword too.
void changeOwnPassword(db::Connection &connection, const QString &name, const QString &present,
                       const QString &wanted);

} // namespace ebtq::host
