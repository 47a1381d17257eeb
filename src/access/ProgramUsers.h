#pragma once

#include "store/Session.h"

#include <optional>
#include <vector>

namespace quorrel {

/// The account that keeps its rights whatever is saved, and that cannot be deleted.
inline constexpr int kFirstAccount = 1;

/// Characters of a user name that are kept.
inline constexpr int kUserNameLength = 50;

/// Characters that the password of a new user must have.
inline constexpr int kNewPasswordLength = 4;

/// Stands for a user that has no name yet; nobody can be called so.
inline constexpr const char* kNewUserName = "Add New User Name";

/// A program user as it is typed, with the password in the clear.
struct ProgramUser {
    QString name, password, confirmation;
    Permissions rights;

    bool operator==(const ProgramUser&) const = default;
};

/// How an action on a user ended.
struct UserOutcome {
    enum class Kind {
        Done,
        Refused, ///< what was typed cannot be; `text` says why
        Gone,    ///< another workstation has deleted the user
        Changed, ///< another workstation has changed the same, or it is another user's account now
    };
    Kind kind = Kind::Done;
    QString text = {};
    std::optional<ProgramUsersRow> present = {}; ///< of what was changed, as it is stored
    std::optional<ProgramUsersRow> merged = {};  ///< the same with what was changed here alone
};

/// Whether two texts name the same user: neither case nor blanks around a name count.
bool IsSameUserName(const QString& one, const QString& other);

/// All accounts in table order.
std::vector<ProgramUsersRow> ListProgramUsers(Session& session);

/// The account with the key of a row that was read before.
std::optional<ProgramUsersRow> FindProgramUser(Session& session, RowKey key);

/// The highest `ProgramUserID` and one more.
int NextProgramUserID(Session& session);

Permissions RightsOf(const ProgramUsersRow& account);

/// An account to be shown. A password that cannot be read is left empty.
ProgramUser ShownUser(const ProgramUsersRow& account);

/// Adds a new user, under the name without blanks around it, or with `opened` changes the account
/// that was brought up as such: what was typed for it is stored beside what another workstation has
/// changed meanwhile, and nothing where both have changed the same. When the logged-on user gets
/// another name, the session takes it.
UserOutcome SaveProgramUser(Session& session, const ProgramUser& typed,
                            const std::optional<ProgramUsersRow>& opened);

/// Deletes the account that was opened, provided that it is as it was then.
UserOutcome DeleteProgramUser(Session& session, const ProgramUser& typed,
                              const ProgramUsersRow& opened);

} // namespace quorrel
