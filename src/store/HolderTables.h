#pragma once

#include "platform/Table.h"

/// \file
/// Tables of key holders, key units and the logs of returns and losses.

namespace quorrel {

/// One key holder.
struct KeyUsersRow {
    using Self = KeyUsersRow;
    RowKey key = 0;
    int UserID = 0;
    QString UserIDNumber;
    double UserIDDouble = 0; ///< `UserIDNumber` as a number
    QString Firstname;
    QString Lastname;
    QString Department;
    int SystemNumber = 0;
    QString Title;
    QString Status;
    QString WorkPhone;
    QString Extention;
    QString HomePhone;
    bool Employee = false;

    static constexpr const char* kTable = "KeyUsers";
    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(UserID),       QUORREL_COLUMN(UserIDNumber),
                          QUORREL_COLUMN(UserIDDouble), QUORREL_COLUMN(Firstname),
                          QUORREL_COLUMN(Lastname),     QUORREL_COLUMN(Department),
                          QUORREL_COLUMN(SystemNumber), QUORREL_COLUMN(Title),
                          QUORREL_COLUMN(Status),       QUORREL_COLUMN(WorkPhone),
                          QUORREL_COLUMN(Extention),    QUORREL_COLUMN(HomePhone),
                          QUORREL_COLUMN(Employee)};
    }
};

/// One physical key of a Key ID.
struct KeyUnitRow {
    using Self = KeyUnitRow;
    RowKey key = 0;
    qint64 UnitIDNumber = 0; ///< SystemNumber x 100000 + running number
    QString UnitID;
    QString KeyID; ///< padded to 12
    int SystemNumber = 0;

    static constexpr const char* kTable = "KeyUnit";
    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(UnitIDNumber), QUORREL_COLUMN(UnitID),
                          QUORREL_COLUMN(KeyID), QUORREL_COLUMN(SystemNumber)};
    }
};

/// One key unit in the hands of a holder.
struct UsertoUnitRow {
    using Self = UsertoUnitRow;
    RowKey key = 0;
    int UTUID = 0;
    QString KeyID; ///< padded to 12
    QString UnitID;
    QString UserID; ///< `KeyUsers`.`UserIDNumber`
    double UserIDDouble = 0;
    int KeyUsersID = 0; ///< despite its name the date of issue, yyyymmdd
    int SystemNumber = 0;

    static constexpr const char* kTable = "UsertoUnit";
    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(UTUID),        QUORREL_COLUMN(KeyID),
                          QUORREL_COLUMN(UnitID),       QUORREL_COLUMN(UserID),
                          QUORREL_COLUMN(UserIDDouble), QUORREL_COLUMN(KeyUsersID),
                          QUORREL_COLUMN(SystemNumber)};
    }
};

/// One returned key unit.
struct ReturnKeyRow {
    using Self = ReturnKeyRow;
    RowKey key = 0;
    int ReturnID = 0;
    QString Date;
    QString Time;
    QString KeyID;
    QString UnitID;
    QString UserName;
    QString UserDepartment;
    QString LoggedUser;
    QString Report;
    int SystemNumber = 0;

    static constexpr const char* kTable = "ReturnKey";
    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(ReturnID),       QUORREL_COLUMN(Date),
                          QUORREL_COLUMN(Time),           QUORREL_COLUMN(KeyID),
                          QUORREL_COLUMN(UnitID),         QUORREL_COLUMN(UserName),
                          QUORREL_COLUMN(UserDepartment), QUORREL_COLUMN(LoggedUser),
                          QUORREL_COLUMN(Report),         QUORREL_COLUMN(SystemNumber)};
    }
};

/// One lost key unit.
struct LostKeysRow {
    using Self = LostKeysRow;
    RowKey key = 0;
    int LostID = 0;
    QString Date;
    QString Time;
    QString KeyID;
    QString UnitID;
    QString UserName;
    QString UserDepartment;
    QString LoggedUser;
    QString Report;
    int SystemNumber = 0;

    static constexpr const char* kTable = "LostKeys";
    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(LostID),         QUORREL_COLUMN(Date),
                          QUORREL_COLUMN(Time),           QUORREL_COLUMN(KeyID),
                          QUORREL_COLUMN(UnitID),         QUORREL_COLUMN(UserName),
                          QUORREL_COLUMN(UserDepartment), QUORREL_COLUMN(LoggedUser),
                          QUORREL_COLUMN(Report),         QUORREL_COLUMN(SystemNumber)};
    }
};

/// What lists show of a holder: a part of the table's columns.
struct HolderNameRow {
    using Self = HolderNameRow;
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
};

} // namespace quorrel
