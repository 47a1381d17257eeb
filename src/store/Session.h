#pragma once

#include "platform/Boxes.h"
#include "platform/Clock.h"
#include "platform/Database.h"
#include "platform/ForeignTable.h"
#include "platform/LogFile.h"
#include "store/DoorTables.h"
#include "store/OpenSystem.h"
#include "store/ProgramTables.h"

#include <QDir>
#include <QString>

#include <array>
#include <map>
#include <memory>

namespace quorrel {

/// The rights of the logged-on program user.
struct Permissions {
    bool CreateSystem = false;
    bool ReadPrintPinning = false;
    bool IssueKeys = false;
    bool AddEditProgramUsers = false;
    bool AddEditKeyUsers = false;
    bool AlterKeyInformation = false;
    bool RunReports = false;

    bool operator==(const Permissions&) const = default;
};

/// The door in hand, set by the doors' form for the map page.
struct DoorInHand {
    double CurrentDoorID = 0; ///< 0: none
    QString CurrentDoorLabel;
    int CurrentDoorLinkMapID = 0; ///< map that the door lies on; 0: none
    double CurrentDoorX = 0;      ///< pixels on the map
    double CurrentDoorY = 0;
    int CurrentDoorColour = kTargetColour; ///< of its target, in blue-green-red order
    QString MapDoorLabel;
    QString MapDoorKeyID;
};

/// The key that a search has found last.
struct SearchHit {
    int CurrentPosition = 0; ///< the `Position` of its row
    std::string FoundCuts;   ///< a digit a chamber
    QString FoundLabel;      ///< its Key ID, after a search for one
};

/// What the whole run shares. One for the program, handed by reference to all that need it.
struct Session {
    Session(const QString& programFolder, Boxes& useBoxes, Clock useClock, Random useRandom)
        : ProgramFolder(programFolder), boxes(useBoxes), clock(std::move(useClock)),
          random(std::move(useRandom)),
          log(QDir(programFolder).filePath(QStringLiteral("Quorrel.log"))) {}

    // The world outside.
    QString ProgramFolder;
    Boxes& boxes;
    Clock clock;
    Random random;
    LogFile log;                              ///< of failures that nobody is told of
    int BusyTimeout = Database::kBusyTimeout; ///< milliseconds

    // Databases, open from start to end; the maps while a system is open.
    std::unique_ptr<Database> SysinfoDatabase;
    std::unique_ptr<Database> KeySystemDatabase;
    std::unique_ptr<Database> MapDatabase;
    std::unique_ptr<ForeignTable> PersonnelRecords; ///< of people, in a file that is not ours
    QString KeySystemPath;                          ///< full path of the key system file
    QString MapDatabasePath;                        ///< folder or path of the map file
    SystemInfoRow SystemInfo; ///< row 1: the personnel file and its field names, the flags
    bool PersonnelAvailable = false;

    // Where windows stand and how they are set, by their names.
    std::map<QString, QString> Places;

    // The company, as the reports print it.
    QString ProgramTitle; ///< title of every box
    CompanyInfoRow Company;
    bool CompanyInfoEmpty = false; ///< no company was recorded when the program started
    bool FirstRun = false;

    // The program user.
    QString LoggedUser;
    Permissions SessionPermissions;
    bool AutoLogoffActive = false;
    int IdleTickCounter = 0;

    // The open key system, filled by `OpenKeySystem`.
    int ActiveSystemNumber = 0;
    OpenSystem System;
    int MapFilingNumber = 0; ///< the number that its maps are filed under
    int CurrentPage = 0;

    DoorInHand door;
    SearchHit hit;

    QString Printer; ///< name of the one that was chosen; empty: the usual one

    // Doors and holders.
    bool FindOpensKey = false; ///< the holders' form comes up for a key that was searched
    double HighDoorNumber = 0; ///< highest running number of a door that was met
    std::array<int, 11> ReceiptHistory{}; ///< the last actions that may call for a receipt
    bool DepartmentFound = false;         ///< a department typed for a new holder was known already

    /// The database of key systems. Throws `DatabaseError` when it is not open.
    Database& Keys() {
        if (!KeySystemDatabase)
            throw DatabaseError(DatabaseError::Kind::Missing, KeySystemPath);
        return *KeySystemDatabase;
    }
};

} // namespace quorrel
