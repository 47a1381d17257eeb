#include "access/Departments.h"

#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/Conflict.h"
#include "store/DoorTables.h"
#include "store/HolderTables.h"
#include "store/OfSystem.h"
#include "store/SystemTables.h"

namespace quorrel {

namespace {

/// The departments of a table as they are written in it.
template <class Row>
QStringList Written(Session& session) {
    return Recordset<Row>(session.Keys(), OfSystem<Row>(session)).Distinct(&Row::Department);
}

/// The rows of a table whose department is written exactly so.
template <class Row>
Recordset<Row> WithDepartment(Session& session, const QString& department) {
    return Recordset<Row>(session.Keys(),
                          OfSystem<Row>(session).Where(&Row::Department, department));
}

/// Sets the department on all rows that have this one, or a longer one that begins with it. The
/// engine compares plain letters only without regard to case, so what is stored is looked at here.
template <class Row>
void Replace(Session& session, const QString& department, const QString& replacement,
             bool passOverBlanks) {
    const QString wanted = department.toUpper();
    for (const QString& stored : Written<Row>(session)) {
        const bool blank = stored.isEmpty() || stored.startsWith(u' ');
        if (stored.toUpper().startsWith(wanted) && !(blank && passOverBlanks))
            WithDepartment<Row>(session, stored).SetAll(&Row::Department, replacement);
    }
}

/// Makes sure that a department is in the list, written as it was shown.
void RequireAsListed(Session& session, const QString& department) {
    if (!ListDepartments(session).contains(department))
        throw ChangedElsewhere::Deleted(QStringLiteral("Department ") + department);
}

/// Deletes a department's rows from the list of departments.
void DeleteFromList(Session& session, const QString& department) {
    for (const QString& stored : Written<DepartmentRow>(session))
        if (RightTrimmed(stored).toUpper() == department.toUpper())
            WithDepartment<DepartmentRow>(session, stored).DeleteAll();
}

/// Makes sure that a department is in the list, written as it is here.
void KeepInList(Session& session, const QString& department) {
    bool found = false;
    for (const QString& stored : Written<DepartmentRow>(session)) {
        if (RightTrimmed(stored).toUpper() != department)
            continue;
        WithDepartment<DepartmentRow>(session, stored)
            .SetAll(&DepartmentRow::Department, department);
        found = true;
    }
    if (found)
        return;
    DepartmentRow row;
    row.Department = department;
    row.SystemNumber = session.ActiveSystemNumber;
    Recordset<DepartmentRow>::Add(session.Keys(), row);
}

} // namespace

QStringList ListDepartments(Session& session) {
    QStringList names;
    Recordset<DepartmentRow>(session.Keys(), OfSystem<DepartmentRow>(session))
        .Walk([&](const DepartmentRow& row) {
            if (!IsNoValue(row.Department))
                names.append(RightTrimmed(row.Department));
            return true;
        });
    return names;
}

void RenameDepartment(Session& session, const QString& from, const QString& to) {
    const QString name = RightTrimmed(to.toUpper().left(kDepartmentWidth));
    if (name == from)
        return;
    SystemTransaction transaction(session);
    RequireAsListed(session, from);
    DeleteFromList(session, from);
    KeepInList(session, name);
    Replace<PatternsRow>(session, from, name, true);
    Replace<KeyUsersRow>(session, from, name, true);
    transaction.Commit();
}

void DeleteDepartment(Session& session, const QString& name) {
    SystemTransaction transaction(session);
    RequireAsListed(session, name);
    Replace<PatternsRow>(session, name, QString(kDepartmentWidth, u' '), false);
    DeleteFromList(session, name);
    Replace<KeyUsersRow>(session, name, QString(), true);
    transaction.Commit();
}

} // namespace quorrel
