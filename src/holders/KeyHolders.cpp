#include "holders/KeyHolders.h"

#include "access/Departments.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/Conflict.h"
#include "store/DoorTables.h"
#include "store/OfSystem.h"
#include "store/SystemTables.h"

#include <QStringBuilder>

#include <algorithm>

namespace quorrel {

namespace {

template <class Holder>
QString LineOf(const Holder& holder, HolderColumn column) {
    const bool byLast = column == HolderColumn::LastName;
    const bool byFirst = column == HolderColumn::FirstName;
    const QStringView beforeLast = byLast ? u"   (" : u" ";
    const QStringView beforeFirst = byLast ? u")   " : byFirst ? u"   (" : u" ";
    const QStringView beforeDepartment = byFirst ? u")   - " : u" - ";
    return holder.UserIDNumber % beforeLast % holder.Lastname % beforeFirst % holder.Firstname %
           beforeDepartment % holder.Department;
}

bool IsLineOf(const KeyUsersRow& holder, const QString& line) {
    return LineOf(holder, HolderColumn::UserID) == line ||
           LineOf(holder, HolderColumn::LastName) == line ||
           LineOf(holder, HolderColumn::FirstName) == line;
}

/// Adds the department of a new holder, unless it is known.
void LearnDepartment(Session& session, const QString& department) {
    if (department.size() < 2)
        return;
    const QString name = department.toUpper();
    Recordset<DepartmentRow>(session.Keys(), OfSystem<DepartmentRow>(session))
        .Walk([&](const DepartmentRow& known) {
            if (name.left(known.Department.size()) == known.Department.toUpper())
                session.DepartmentFound = true;
            return !session.DepartmentFound;
        });
    if (session.DepartmentFound)
        return;
    DepartmentRow added;
    added.Department = name;
    added.SystemNumber = session.ActiveSystemNumber;
    Recordset<DepartmentRow>::Add(session.Keys(), added);
}

QString SubjectOf(const QString& number) {
    return QStringLiteral("User ") + number;
}

bool HasKeys(Session& session, const QString& number) {
    return !Recordset<UsertoUnitRow>(session.Keys(), OfSystem<UsertoUnitRow>(session).Where(
                                                         &UsertoUnitRow::UserID, number))
                .Empty();
}

QString StoredDepartment(const QString& typed) {
    return typed.toUpper().left(kDepartmentWidth);
}

/// Writes what was typed over the holder who was brought up. Within the caller's transaction.
KeyUsersRow Change(Session& session, const KeyUsersRow& shown, KeyUsersRow typed,
                   const KeyUsersRow& stored) {
    const QString subject = SubjectOf(shown.UserIDNumber);
    // Nobody becomes another person: the key of a deleted row may be given again.
    if (NameOf(stored) != NameOf(shown) && NameOf(stored) != NameOf(typed))
        throw ChangedElsewhere::Changed(subject);
    typed.UserID = shown.UserID;
    if (typed.Department != shown.Department)
        typed.Department = StoredDepartment(typed.Department);
    KeyUsersRow changed = MergedChanges(shown, typed, stored, subject);
    changed.Department = StoredDepartment(changed.Department);
    Recordset<KeyUsersRow>::Update(session.Keys(), changed);
    return changed;
}

/// Adds a holder, and the department as it was typed. Within the caller's transaction.
KeyUsersRow AddHolder(Session& session, KeyUsersRow typed) {
    const QString department = typed.Department;
    typed.Department = StoredDepartment(department);
    typed.UserID =
        static_cast<int>(Recordset<KeyUsersRow>(session.Keys(), OfSystem<KeyUsersRow>(session))
                             .Largest(&KeyUsersRow::UserID) +
                         1);
    Recordset<KeyUsersRow>::Add(session.Keys(), typed);
    LearnDepartment(session, department);
    return typed;
}

} // namespace

QString NumberOfLine(const QString& line) {
    return line.left(line.indexOf(u' '));
}

std::vector<ListedHolder> ListHolders(Session& session, HolderColumn column, const QString& begin) {
    const QString wanted = begin.toUpper();
    std::vector<ListedHolder> listed;
    Recordset<HolderNameRow>(session.Keys(), OfSystem<HolderNameRow>(session))
        .Walk([&](const HolderNameRow& row) {
            const QString& searched = column == HolderColumn::UserID     ? row.UserIDNumber
                                      : column == HolderColumn::LastName ? row.Lastname
                                                                         : row.Firstname;
            if (wanted.isEmpty() || searched.left(begin.size()).toUpper() == wanted)
                listed.push_back({row.key, row.UserIDNumber, LineOf(row, column)});
            return true;
        });
    return listed;
}

std::optional<KeyUsersRow> FindHolder(Session& session, const QString& number) {
    if (number.isEmpty())
        return std::nullopt;
    return Recordset<KeyUsersRow>(session.Keys(), OfSystem<KeyUsersRow>(session).Where(
                                                      &KeyUsersRow::UserIDNumber, number))
        .First();
}

std::optional<KeyUsersRow> StoredHolder(Session& session, RowKey key) {
    return Recordset<KeyUsersRow>(session.Keys(), Query<KeyUsersRow>().WhereKey(key)).First();
}

bool IsAsListed(Session& session, const ListedHolder& listed) {
    const auto stored = StoredHolder(session, listed.key);
    return stored && IsLineOf(*stored, listed.line);
}

KeyUsersRow RequireAsListed(Session& session, const ListedHolder& listed) {
    const QString subject = SubjectOf(listed.number);
    auto stored = StoredRow<KeyUsersRow>(session.Keys(), listed.key, subject);
    if (!IsLineOf(stored, listed.line))
        throw ChangedElsewhere::Changed(subject);
    return stored;
}

QString NameOf(const KeyUsersRow& holder) {
    const QString name = (holder.Lastname.trimmed() + u' ' + holder.Firstname.trimmed()).trimmed();
    return name.isEmpty() ? SubjectOf(holder.UserIDNumber) : name;
}

SavedHolder SaveHolder(Session& session, const KeyUsersRow& shown, KeyUsersRow typed) {
    const QString number = typed.UserIDNumber;
    if (!session.SessionPermissions.AddEditKeyUsers ||
        (typed.Firstname.isEmpty() && typed.Lastname.isEmpty() && number.isEmpty()))
        return {};
    if (number.trimmed().isEmpty())
        return {SavedHolder::Outcome::NoNumber, {}};
    typed.SystemNumber = session.ActiveSystemNumber;
    SystemTransaction transaction(session);
    const auto stored = FindHolder(session, number);
    if (stored && stored->key != shown.key)
        return {SavedHolder::Outcome::OtherHolder, *stored};
    if (!stored && shown.key != 0 && shown.UserIDNumber == number)
        throw ChangedElsewhere::Deleted(SubjectOf(number));
    SavedHolder saved;
    if (stored)
        saved = {SavedHolder::Outcome::Updated, Change(session, shown, typed, *stored)};
    else
        saved = {SavedHolder::Outcome::Added, AddHolder(session, typed)};
    transaction.Commit();
    return saved;
}

HolderDeleted DeleteHolder(Session& session, const ListedHolder& listed) {
    SystemTransaction transaction(session);
    const KeyUsersRow holder = RequireAsListed(session, listed);
    // A number with a blank in it is not the one that the line seems to begin with.
    if (HasKeys(session, NumberOfLine(listed.line)) || HasKeys(session, holder.UserIDNumber))
        return HolderDeleted::HasKeys;
    if (LineOf(holder, HolderColumn::UserID) != listed.line)
        return HolderDeleted::WrongForm;
    Recordset<KeyUsersRow>(session.Keys(), Query<KeyUsersRow>().WhereKey(holder.key)).DeleteAll();
    transaction.Commit();
    return HolderDeleted::Deleted;
}

QStringList ListHolderDepartments(Session& session) {
    QStringList names = ListDepartments(session);
    names.removeIf([](const QString& name) { return name.startsWith(u' '); });
    return names;
}

} // namespace quorrel
