#pragma once

#include "platform/Database.h"

#include <QString>

namespace quorrel {

inline constexpr const char* kSysinfoFile = "Sysinfo.qvx";
inline constexpr const char* kKeySystemFile = "KeySystem.qv2";
inline constexpr const char* kMapFile = "MapSystem.vlx";
inline constexpr const char* kHelpFile = "Quorrel.hlp";

/// Application ids "QrSi", "QrKs" and "QrMp", and the schema that this program reads and writes.
inline constexpr FileKind kSysinfoKind{0x51725369, 1};
inline constexpr FileKind kKeySystemKind{0x51724B73, 1};
inline constexpr FileKind kMapKind{0x51724D70, 1};

/// Makes the three empty files in `folder` from the schemas in `schemaFolder`, with the default
/// account and a generic brand, which no system uses unless it is chosen. Existing files are
/// replaced: this makes what is delivered, never a user's data.
void MakeEmptyFiles(const QString& schemaFolder, const QString& folder);

} // namespace quorrel
