#pragma once

#include "store/Session.h"

#include <QString>

/// \file
/// How the path of a file is kept in a database file. One beside it, or beside the program when
/// the database file lies there too, is kept relative to its folder with a leading "./" or "../":
/// a folder that is moved finds its own files again, and a copy of it works on its own. Any other
/// path is kept as it is, and so is what is no path at all.

namespace quorrel {

/// What to keep in `holder` for a path.
QString StoredPath(const Session& session, const Database& holder, const QString& path);

/// The full path of what `holder` keeps.
QString FullPath(const Database& holder, const QString& stored);

} // namespace quorrel
