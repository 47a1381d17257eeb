#pragma once

#include "platform/Recordset.h"
#include "store/HolderTables.h"
#include "store/Session.h"

#include <QHash>
#include <QString>

#include <vector>

namespace quorrel {

/// What reports tell of a key holder.
struct ReportHolder {
    using Self = ReportHolder;
    using Whole = KeyUsersRow;
    RowKey key = 0;
    QString UserIDNumber;
    QString Firstname;
    QString Lastname;
    QString Department;

    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(UserIDNumber), QUORREL_COLUMN(Firstname),
                          QUORREL_COLUMN(Lastname), QUORREL_COLUMN(Department)};
    }

    QString Name() const; ///< last name and first name
    bool HasName() const; ///< one of the two at least
};

/// The holders of the open system who have a name, in the order of these.
std::vector<ReportHolder> ReadNamedHolders(Session& session);

/// A key unit in somebody's hands.
struct HandedUnit {
    using Self = HandedUnit;
    using Whole = UsertoUnitRow;
    RowKey key = 0;
    QString KeyID;
    QString UnitID;
    QString UserID;
    int KeyUsersID = 0; ///< despite its name the date of issue, yyyymmdd

    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(KeyID), QUORREL_COLUMN(UnitID), QUORREL_COLUMN(UserID),
                          QUORREL_COLUMN(KeyUsersID)};
    }
};

/// The units in the hands of each holder, by the holder's number without blanks on its right; in
/// the order of the units' texts.
QHash<QString, std::vector<HandedUnit>> ReadHandedUnits(Session& session);

} // namespace quorrel
