#pragma once

#include "store/Session.h"

#include <QStringList>

namespace quorrel {

/// The departments of the open system, in table order, without those that are hidden.
QStringList ListDepartments(Session& session);

/// Renames a department in the list and on every key and key user of the open system that has it,
/// in capitals. A department that has the new name already is merged with it. A name counts
/// without regard to case, and on keys and key users also where it begins a longer one: ADMIN is
/// found in ADMINISTRATION. Renaming to the very same name leaves everything as it is.
/// Throws `ChangedElsewhere` when the list does not show it any more.
void RenameDepartment(Session& session, const QString& from, const QString& to);

/// Deletes a department from the list and takes it from the keys and key users that
/// `RenameDepartment` would find. Throws as that does.
void DeleteDepartment(Session& session, const QString& name);

} // namespace quorrel
