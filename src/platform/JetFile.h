#pragma once

#include "platform/ForeignTable.h"

#include <QByteArray>

namespace quorrel {

/// Whether the first 32 bytes of a file are those of a Jet database (.mdb) or of its successor
/// (.accdb).
bool IsJetFile(const QByteArray& head);

/// A table of a Jet file, read through the mdbtools library. A file that is cut short or damaged
/// gives fewer rows, or a `DatabaseError`. Texts of more than 16,000 bytes are cut, pictures and
/// other binary values read as empty.
std::unique_ptr<ForeignTable> OpenJetTable(const QString& path, const QString& table);

} // namespace quorrel
