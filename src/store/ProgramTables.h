#pragma once

#include "platform/Table.h"

/// \file
/// Tables of the program itself: paths, program users, the company.

namespace quorrel {

/// Paths and flags. Two rows are used, told by their order: the key system file and the maps.
struct SystemInfoRow {
    using Self = SystemInfoRow;
    RowKey key = 0;
    QString NetworkPath; ///< row 1: key system file; row 2: map folder
    QString PersonelFile;
    QString PersonelTable;
    QString Lastname; ///< field of the personnel table, as the next two
    QString Firstname;
    QString Department;
    bool Networked = false; ///< the install uses `NetworkPath`
    bool personel = false;  ///< personnel look-up is on

    static constexpr const char* kTable = "SystemInfo";
    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(NetworkPath),   QUORREL_COLUMN(PersonelFile),
                          QUORREL_COLUMN(PersonelTable), QUORREL_COLUMN(Lastname),
                          QUORREL_COLUMN(Firstname),     QUORREL_COLUMN(Department),
                          QUORREL_COLUMN(Networked),     QUORREL_COLUMN(personel)};
    }
};

/// One logon with its rights.
struct ProgramUsersRow {
    using Self = ProgramUsersRow;
    RowKey key = 0;
    int ProgramUserID = 0;
    QString UserName;
    QString Password;                 ///< scrambled
    bool CreateSystem = false;        ///< create and delete systems
    bool ReadPrintPinning = false;    ///< read and print key cuts
    bool IssueKeys = false;           ///< alter door and key assignments
    bool AddEditProgramUsers = false; ///< set user permissions
    bool AddEditKeyUsers = false;     ///< add and delete key users
    bool AlterKeyInformation = false; ///< alter the system's design data
    bool RunReports = false;          ///< run reports

    static constexpr const char* kTable = "ProgramUsers";
    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(ProgramUserID),
                          QUORREL_COLUMN(UserName),
                          QUORREL_COLUMN(Password),
                          QUORREL_COLUMN(CreateSystem),
                          QUORREL_COLUMN(ReadPrintPinning),
                          QUORREL_COLUMN(IssueKeys),
                          QUORREL_COLUMN(AddEditProgramUsers),
                          QUORREL_COLUMN(AddEditKeyUsers),
                          QUORREL_COLUMN(AlterKeyInformation),
                          QUORREL_COLUMN(RunReports)};
    }
};

/// The owner's company, one row.
struct CompanyInfoRow {
    using Self = CompanyInfoRow;
    RowKey key = 0;
    QString CompanyName;
    QString CompanyAddress;
    QString CompanySlogan;
    QString CompanyMemo;
    QString KeyPolicy1; ///< characters 1 to 250, and so on
    QString KeyPolicy2;
    QString KeyPolicy3;
    QString KeyPolicy4;
    QString CompanyLogo; ///< path of a picture

    static constexpr const char* kTable = "CompanyInfo";
    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(CompanyName),   QUORREL_COLUMN(CompanyAddress),
                          QUORREL_COLUMN(CompanySlogan), QUORREL_COLUMN(CompanyMemo),
                          QUORREL_COLUMN(KeyPolicy1),    QUORREL_COLUMN(KeyPolicy2),
                          QUORREL_COLUMN(KeyPolicy3),    QUORREL_COLUMN(KeyPolicy4),
                          QUORREL_COLUMN(CompanyLogo)};
    }
};

/// Where and how large a window was when it was left, on this workstation.
struct WindowPlaceRow {
    using Self = WindowPlaceRow;
    RowKey key = 0;
    QString Form;
    QString Place; ///< one line of text, as the windows make it

    static constexpr const char* kTable = "WindowPlace";
    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(Form), QUORREL_COLUMN(Place)};
    }
};

} // namespace quorrel
