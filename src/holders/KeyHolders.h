#pragma once

#include "store/HolderTables.h"
#include "store/Session.h"

#include <QStringList>

namespace quorrel {

/// The column that the list of holders is searched by, in the order in which the button steps.
enum class HolderColumn { UserID, LastName, FirstName };

/// The line of a holder in the list. Its number comes first and a blank ends it; brackets mark the
/// name that is searched.
QString HolderLine(const KeyUsersRow& holder, HolderColumn column);

/// The number that a line of the list begins with.
QString NumberOfLine(const QString& line);

/// The holders of the open system whose column begins with the text, without regard to case, in
/// table order.
QStringList ListHolders(Session& session, HolderColumn column, const QString& begin);

/// The holder of a number; nothing for an empty one.
std::optional<KeyUsersRow> FindHolder(Session& session, const QString& number);

/// What became of a holder that was to be saved.
enum class HolderSaved { Nothing, Updated, Added };

/// Stores a holder under its `UserIDNumber`: the one that has it is changed, else one is added
/// with the next `UserID`. The department is raised to capitals and cut to 34 characters. A new
/// holder's department of two or more characters is added to those of the system unless one of
/// them begins it, or once such a one was found in this session. Nothing is stored without the
/// right, or when number and names are all empty.
HolderSaved SaveHolder(Session& session, KeyUsersRow holder);

/// What became of a holder that was to be deleted.
enum class HolderDeleted { Deleted, HasKeys, NotFound };

/// Deletes the holder whose line by user ID is this one.
HolderDeleted DeleteHolder(Session& session, const QString& line);

/// The departments of the open system, those that begin with a blank left out.
QStringList ListHolderDepartments(Session& session);

} // namespace quorrel
