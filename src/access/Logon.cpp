#include "access/Logon.h"

#include "access/ProgramUsers.h"
#include "platform/Recordset.h"
#include "store/Scramble.h"

#include <optional>
#include <stdexcept>

namespace quorrel {

namespace {

/// Empty for a password that no account can have.
std::optional<QString> StoredForm(const QString& password) {
    try {
        return Scrambled(password);
    } catch (const std::range_error&) {
        return std::nullopt;
    }
}

void TakeRights(Session& session, const ProgramUsersRow& user) {
    session.LoggedUser = user.UserName;
    session.SessionPermissions = RightsOf(user);
    if (user.ReadPrintPinning)
        session.AutoLogoffActive = session.boxes.Confirms(
            QStringLiteral("Activate Auto-Logoff Y/N?"), QStringLiteral("Auto Logoff Feature"));
}

} // namespace

bool LogOn(Session& session, const QString& userName, const QString& password) {
    session.SessionPermissions = {};
    const std::optional<QString> scrambled = StoredForm(password);
    bool empty = true;
    std::optional<ProgramUsersRow> match;
    Recordset<ProgramUsersRow>(session.Keys()).Walk([&](const ProgramUsersRow& row) {
        empty = false;
        if (IsSameUserName(row.UserName, userName) && row.Password == scrambled)
            match = row;
        return !match;
    });
    if (match)
        TakeRights(session, *match);
    return match || empty;
}

} // namespace quorrel
