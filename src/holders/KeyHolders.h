#pragma once

#include "store/HolderTables.h"
#include "store/Session.h"

#include <QStringList>

#include <vector>

namespace quorrel {

/// The column that the list of holders is searched by, in the order in which the button steps.
enum class HolderColumn { UserID, LastName, FirstName };

/// A line of the list of holders, and whom it stands for.
struct ListedHolder {
    RowKey key = 0;
    QString number;
    /// The number comes first and a blank ends it; brackets mark the name that is searched.
    QString line;
};

/// The number that a line of the list begins with. Not the holder's when that has a blank in it.
QString NumberOfLine(const QString& line);

/// The holders of the open system whose column begins with the text, without regard to case, in
/// table order.
std::vector<ListedHolder> ListHolders(Session& session, HolderColumn column, const QString& begin);

/// The holder of a number; nothing for an empty one.
std::optional<KeyUsersRow> FindHolder(Session& session, const QString& number);

/// The holder of a row as it is stored now; nothing when it has been deleted.
std::optional<KeyUsersRow> StoredHolder(Session& session, RowKey key);

/// Whether a line is what would be listed now, whichever column it was listed by.
bool IsAsListed(Session& session, const ListedHolder& listed);

/// The holder that a line stands for, whichever column it was listed by. Throws `ChangedElsewhere`
/// when the line is not what it was. Within the caller's transaction.
KeyUsersRow RequireAsListed(Session& session, const ListedHolder& listed);

/// What is said of a holder: the names, or the number of one without any.
QString NameOf(const KeyUsersRow& holder);

/// What became of a holder that was to be saved.
struct SavedHolder {
    enum class Outcome {
        Nothing,     ///< without the right, or number and names are all empty
        NoNumber,    ///< nobody can be kept without
        OtherHolder, ///< the number is that of a holder who was not brought up
        Updated,
        Added
    };
    Outcome outcome = Outcome::Nothing;
    KeyUsersRow stored; ///< as it is stored now; for `OtherHolder` who has the number
};

/// Stores a holder under the number that was typed. `shown` is the holder who was brought up, as
/// he was then, or an empty one. Where the number is still his, the columns that were changed are
/// written; where it is nobody's, a holder is added with the next `UserID`; where it is another
/// holder's, nothing is written.
///
/// The department is raised to capitals and cut to 34 characters. A new holder's department of two
/// or more characters is added to those of the system unless one of them begins it, or once such a
/// one was found in this session.
///
/// Throws `ChangedElsewhere` when another workstation has deleted the one brought up, or given him
/// another number or name, or changed what was changed here.
SavedHolder SaveHolder(Session& session, const KeyUsersRow& shown, KeyUsersRow typed);

/// What became of a holder that was to be deleted.
enum class HolderDeleted {
    Deleted,
    HasKeys,
    WrongForm ///< the line is not one by user ID, and only these delete
};

/// Deletes the holder of a line. Throws `ChangedElsewhere` when the line is not what it was.
HolderDeleted DeleteHolder(Session& session, const ListedHolder& listed);

/// The departments of the open system, those that begin with a blank left out.
QStringList ListHolderDepartments(Session& session);

} // namespace quorrel
