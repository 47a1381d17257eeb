#include "holders/KeyHolders.h"

#include "access/Departments.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/DoorTables.h"
#include "store/OfSystem.h"
#include "store/SystemTables.h"

#include <algorithm>

namespace quorrel {

namespace {

template <class Holder>
QString LineOf(const Holder& holder, HolderColumn column) {
    const bool byLast = column == HolderColumn::LastName;
    const bool byFirst = column == HolderColumn::FirstName;
    return holder.UserIDNumber +
           (byLast ? QStringLiteral("   (") + holder.Lastname + QStringLiteral(")   ")
                   : u' ' + holder.Lastname) +
           (byFirst  ? QStringLiteral("   (") + holder.Firstname + QStringLiteral(")  ")
            : byLast ? holder.Firstname
                     : u' ' + holder.Firstname) +
           QStringLiteral(" - ") + holder.Department;
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

} // namespace

QString HolderLine(const KeyUsersRow& holder, HolderColumn column) {
    return LineOf(holder, column);
}

QString NumberOfLine(const QString& line) {
    return line.left(line.indexOf(u' '));
}

QStringList ListHolders(Session& session, HolderColumn column, const QString& begin) {
    const QString wanted = begin.toUpper();
    QStringList lines;
    Recordset<HolderNameRow>(session.Keys(), OfSystem<HolderNameRow>(session))
        .Walk([&](const HolderNameRow& row) {
            const QString& searched = column == HolderColumn::UserID     ? row.UserIDNumber
                                      : column == HolderColumn::LastName ? row.Lastname
                                                                         : row.Firstname;
            if (wanted.isEmpty() || searched.left(begin.size()).toUpper() == wanted)
                lines.append(LineOf(row, column));
            return true;
        });
    return lines;
}

std::optional<KeyUsersRow> FindHolder(Session& session, const QString& number) {
    if (number.isEmpty())
        return std::nullopt;
    return Recordset<KeyUsersRow>(session.Keys(), OfSystem<KeyUsersRow>(session).Where(
                                                      &KeyUsersRow::UserIDNumber, number))
        .First();
}

HolderSaved SaveHolder(Session& session, KeyUsersRow holder) {
    if (!session.SessionPermissions.AddEditKeyUsers ||
        (holder.Firstname.isEmpty() && holder.Lastname.isEmpty() && holder.UserIDNumber.isEmpty()))
        return HolderSaved::Nothing;
    const QString department = holder.Department;
    holder.Department = department.toUpper().left(kDepartmentWidth);
    holder.SystemNumber = session.ActiveSystemNumber;
    Database& keys = session.Keys();
    Transaction transaction(keys);
    const auto stored = FindHolder(session, holder.UserIDNumber);
    if (stored) {
        holder.key = stored->key;
        holder.UserID = stored->UserID;
        Recordset<KeyUsersRow>::Update(keys, holder);
    } else {
        holder.UserID =
            static_cast<int>(Recordset<KeyUsersRow>(keys, OfSystem<KeyUsersRow>(session))
                                 .Largest(&KeyUsersRow::UserID) +
                             1);
        Recordset<KeyUsersRow>::Add(keys, holder);
        LearnDepartment(session, department);
    }
    transaction.Commit();
    return stored ? HolderSaved::Updated : HolderSaved::Added;
}

HolderDeleted DeleteHolder(Session& session, const QString& line) {
    Database& keys = session.Keys();
    Transaction transaction(keys);
    const QString number = NumberOfLine(line);
    if (!Recordset<UsertoUnitRow>(
             keys, OfSystem<UsertoUnitRow>(session).Where(&UsertoUnitRow::UserID, number))
             .Empty())
        return HolderDeleted::HasKeys;
    // A number with a blank in it is not the one that the line seems to begin with.
    std::optional<HolderNameRow> found;
    Recordset<HolderNameRow>(keys, OfSystem<HolderNameRow>(session))
        .Walk([&](const HolderNameRow& row) {
            if (LineOf(row, HolderColumn::UserID) == line)
                found = row;
            return !found;
        });
    if (!found)
        return HolderDeleted::NotFound;
    if (!Recordset<UsertoUnitRow>(keys, OfSystem<UsertoUnitRow>(session).Where(
                                            &UsertoUnitRow::UserID, found->UserIDNumber))
             .Empty())
        return HolderDeleted::HasKeys;
    Recordset<KeyUsersRow>(keys, Query<KeyUsersRow>().WhereKey(found->key)).DeleteAll();
    transaction.Commit();
    return HolderDeleted::Deleted;
}

QStringList ListHolderDepartments(Session& session) {
    QStringList names = ListDepartments(session);
    names.removeIf([](const QString& name) { return name.startsWith(u' '); });
    return names;
}

} // namespace quorrel
