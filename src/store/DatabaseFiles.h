#pragma once

#include "platform/Database.h"

#include <QString>

namespace quorrel {

inline constexpr const char* kSysinfoFile = "Sysinfo.qvx";
inline constexpr const char* kKeySystemFile = "KeySystem.qv2";
inline constexpr const char* kMapFile = "MapSystem.vlx";
inline constexpr const char* kHelpFile = "Quorrel.hlp";

/// What brings files of earlier revisions up to date, as `FileKind` says. The schemas of new files
/// in `data/schema` are those of the latest revision.
inline constexpr const char* kSysinfoSteps[] = {
    R"(CREATE TABLE "WindowPlace" ("RowKey" INTEGER PRIMARY KEY, "Form" TEXT, "Place" TEXT))"};
inline constexpr const char* kKeySystemSteps[] = {
    // Some files of the first revision have the first two indexes, or the last two as they are now.
    R"(CREATE INDEX IF NOT EXISTS "DoorsBySystem" ON "Doors" ("SystemNumber");
       CREATE INDEX IF NOT EXISTS "DoorsByHardware" ON "Doors" ("SystemNumber", "Text1");
       DROP INDEX IF EXISTS "ReturnKeyBySystem";
       CREATE INDEX "ReturnKeyBySystem" ON "ReturnKey" ("SystemNumber");
       DROP INDEX IF EXISTS "LostKeysBySystem";
       CREATE INDEX "LostKeysBySystem" ON "LostKeys" ("SystemNumber");
       CREATE TABLE "NumbersGiven" ("RowKey" INTEGER PRIMARY KEY, "Highest" INTEGER))"};

inline constexpr const char* kSysinfoTables[] = {"SystemInfo", "WindowPlace"};
inline constexpr const char* kKeySystemTables[] = {
    "KeySystem",  "Patterns",     "AllKeys",      "Doors",       "Department",
    "KeyUsers",   "KeyUnit",      "UsertoUnit",   "ReturnKey",   "LostKeys",
    "CrossKeyed", "Manufacturer", "ProgramUsers", "CompanyInfo", "NumbersGiven"};
inline constexpr const char* kMapTables[] = {"Map"};

/// Application ids "QrSi", "QrKs" and "QrMp".
inline constexpr FileKind kSysinfoKind{0x51725369, kSysinfoSteps, kSysinfoTables};
inline constexpr FileKind kKeySystemKind{0x51724B73, kKeySystemSteps, kKeySystemTables};
inline constexpr FileKind kMapKind{0x51724D70, {}, kMapTables};

/// Makes the three empty files in `folder` from the schemas in `schemaFolder`, with the default
/// account and a generic brand, which no system uses unless it is chosen. Existing files are
/// replaced: this makes what is delivered, never a user's data.
void MakeEmptyFiles(const QString& schemaFolder, const QString& folder);

} // namespace quorrel
