#pragma once

#include "store/Session.h"

#include <optional>

namespace quorrel {

/// A person of the outside personnel table.
struct PersonnelRecord {
    QString TM; ///< the badge or team member number
    QString LastName, FirstName;
    QString Department, Title, Status, WorkPhone, Extention, HomePhone;
};

// The fields of the personnel table have fixed names, those above, and `Name` with the last name, a
// comma and the first name; what follows the comma belongs to the first name, a blank too. A table
// without `Name` may hold the two names in fields of their own, and one without `Department` may
// call it otherwise: row 1 of `SystemInfo` then says how. A field that is missing reads as empty.
//
// The last of several matches counts. Without a personnel file nobody is found, nor in one that
// cannot be read now.

/// The person whose number is this text, character by character.
std::optional<PersonnelRecord> FindPersonnelByText(const Session& session, const QString& number);

/// The person whose number has the value of this text: 17, 0017 and "17 b" have the same. Of texts
/// that no number leads only the same one will do. A person without number is never found.
std::optional<PersonnelRecord> FindPersonnelByValue(const Session& session, const QString& number);

} // namespace quorrel
