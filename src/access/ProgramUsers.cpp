#include "access/ProgramUsers.h"

#include "platform/Recordset.h"
#include "store/Conflict.h"
#include "store/Scramble.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace quorrel {

namespace {

UserOutcome Refused(const QString& text) {
    return {UserOutcome::Kind::Refused, text, {}, {}};
}

bool SameAccount(const ProgramUsersRow& one, const ProgramUsersRow& other) {
    return one.ProgramUserID == other.ProgramUserID && one.UserName == other.UserName &&
           one.Password == other.Password && RightsOf(one) == RightsOf(other);
}

/// Where each right stands, in an account and in what its user may do.
constexpr std::pair<bool ProgramUsersRow::*, bool Permissions::*> kRights[] = {
    {&ProgramUsersRow::CreateSystem, &Permissions::CreateSystem},
    {&ProgramUsersRow::ReadPrintPinning, &Permissions::ReadPrintPinning},
    {&ProgramUsersRow::IssueKeys, &Permissions::IssueKeys},
    {&ProgramUsersRow::AddEditProgramUsers, &Permissions::AddEditProgramUsers},
    {&ProgramUsersRow::AddEditKeyUsers, &Permissions::AddEditKeyUsers},
    {&ProgramUsersRow::AlterKeyInformation, &Permissions::AlterKeyInformation},
    {&ProgramUsersRow::RunReports, &Permissions::RunReports}};

void GiveRights(ProgramUsersRow& account, const Permissions& rights) {
    for (const auto& [stored, held] : kRights)
        account.*stored = rights.*held;
}

/// Whether a name cannot be given to an account. `own` is the account's key, 0 for a new one.
bool IsTaken(Session& session, const QString& name, RowKey own) {
    if (name.trimmed().isEmpty() || IsSameUserName(name, QLatin1String(kNewUserName)))
        return true;
    const auto accounts = ListProgramUsers(session);
    return std::any_of(accounts.begin(), accounts.end(), [&](const ProgramUsersRow& account) {
        return account.key != own && IsSameUserName(account.UserName, name);
    });
}

/// Takes name and password over into an account, or says why not.
UserOutcome TakeLogon(ProgramUsersRow& account, const QString& name, const QString& password) {
    try {
        account.Password = Scrambled(password);
    } catch (const std::range_error&) {
        return Refused(QStringLiteral("This password cannot be kept. Choose a shorter one, of "
                                      "plain letters, digits and signs."));
    }
    account.UserName = name;
    return {};
}

UserOutcome AddUser(Session& session, const ProgramUser& typed, const QString& name) {
    if (IsTaken(session, name, 0))
        return Refused(QStringLiteral("You Must enter a Unique User Name"));
    if (typed.password.size() < kNewPasswordLength)
        return Refused(QStringLiteral("You Must enter a longer Password for ") + name);
    ProgramUsersRow account;
    if (auto refusal = TakeLogon(account, name, typed.password);
        refusal.kind != UserOutcome::Kind::Done)
        return refusal;
    account.ProgramUserID = NextProgramUserID(session);
    GiveRights(account, typed.rights);
    Recordset<ProgramUsersRow>::Add(session.Keys(), account);
    return {};
}

UserOutcome Gone() {
    return {UserOutcome::Kind::Gone, {}, {}, {}};
}

UserOutcome Changed(const ProgramUsersRow& present, const ProgramUsersRow& merged) {
    return {UserOutcome::Kind::Changed, {}, present, merged};
}

UserOutcome EditUser(Session& session, const ProgramUser& typed, const QString& name,
                     const ProgramUsersRow& opened) {
    const auto stored = FindProgramUser(session, opened.key);
    if (!stored)
        return Gone();
    // Under another name it may be another person's account by now.
    if (stored->ProgramUserID != opened.ProgramUserID || stored->UserName != opened.UserName)
        return Changed(*stored, *stored);
    if (!IsSameUserName(opened.UserName, name) && IsTaken(session, name, opened.key))
        return Refused(QStringLiteral("You Must enter a Unique User Name"));
    ProgramUsersRow account = opened;
    if (auto refusal = TakeLogon(account, name, typed.password);
        refusal.kind != UserOutcome::Kind::Done)
        return refusal;
    if (account.ProgramUserID != kFirstAccount)
        GiveRights(account, typed.rights);
    auto merge = MergeOf(opened, account, *stored);
    if (merge.conflict)
        return Changed(*stored, merge.row);
    Recordset<ProgramUsersRow>::Update(session.Keys(), merge.row);
    return {};
}

UserOutcome Mismatch() {
    return Refused(QStringLiteral("Password must match ConfirmPassword"));
}

} // namespace

bool IsSameUserName(const QString& one, const QString& other) {
    return one.trimmed().compare(other.trimmed(), Qt::CaseInsensitive) == 0;
}

std::vector<ProgramUsersRow> ListProgramUsers(Session& session) {
    return Recordset<ProgramUsersRow>(session.Keys()).Rows();
}

std::optional<ProgramUsersRow> FindProgramUser(Session& session, RowKey key) {
    return Recordset<ProgramUsersRow>(session.Keys(), Query<ProgramUsersRow>().WhereKey(key))
        .First();
}

int NextProgramUserID(Session& session) {
    return static_cast<int>(Recordset<ProgramUsersRow>(session.Keys())
                                .Largest(&ProgramUsersRow::ProgramUserID)) +
           1;
}

Permissions RightsOf(const ProgramUsersRow& account) {
    Permissions rights;
    for (const auto& [stored, held] : kRights)
        rights.*held = account.*stored;
    return rights;
}

ProgramUser ShownUser(const ProgramUsersRow& account) {
    ProgramUser user;
    user.name = account.UserName;
    // One that was not stored by this program can be given another.
    user.password = user.confirmation = Readable(account.Password).value_or(QString());
    user.rights = RightsOf(account);
    return user;
}

UserOutcome SaveProgramUser(Session& session, const ProgramUser& typed,
                            const std::optional<ProgramUsersRow>& opened) {
    if (typed.password != typed.confirmation)
        return Mismatch();
    const QString name = typed.name.trimmed().left(kUserNameLength).trimmed();
    Transaction transaction(session.Keys());
    const UserOutcome outcome =
        opened ? EditUser(session, typed, name, *opened) : AddUser(session, typed, name);
    if (outcome.kind != UserOutcome::Kind::Done)
        return outcome;
    transaction.Commit();
    if (opened && IsSameUserName(session.LoggedUser, opened->UserName))
        session.LoggedUser = name;
    return {};
}

UserOutcome DeleteProgramUser(Session& session, const ProgramUser& typed,
                              const ProgramUsersRow& opened) {
    if (typed.password != typed.confirmation)
        return Mismatch();
    if (opened.ProgramUserID == kFirstAccount)
        return Refused(QStringLiteral("You Cannot Delete this Account or Change it's Permissions"));
    Transaction transaction(session.Keys());
    const auto stored = FindProgramUser(session, opened.key);
    if (!stored)
        return Gone();
    if (!SameAccount(*stored, opened))
        return Changed(*stored, *stored);
    Recordset<ProgramUsersRow>(session.Keys(), Query<ProgramUsersRow>().WhereKey(opened.key))
        .DeleteAll();
    transaction.Commit();
    return {};
}

} // namespace quorrel
