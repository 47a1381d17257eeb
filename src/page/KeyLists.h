#pragma once

#include "page/PageView.h"

#include <vector>

/// \file
/// The lines of the three lists beside the page.

namespace quorrel {

/// A line of the list of all Key IDs, and the key that it stands for.
struct KeyLine {
    QString text;
    int page = 0;
    int cell = 0;
    RowKey key = 0; ///< of its `Patterns` row
};

/// A line of the doors or of the holders of a key, and the door's label or the holder's ID that it
/// stands for: empty for the line "None".
struct SubjectLine {
    QString text;
    QString subject;
    RowKey crossKeyed = 0; ///< the row of the door, where that is cross-keyed
};

/// All labelled keys of the system whose Key ID begins with the filter, in the order of their
/// serial numbers.
std::vector<KeyLine> FillKeyList(Session& session, const QString& filter);

/// The doors that the key in a cell opens and whose labels begin with the filter. Of a master
/// these are the doors of all keys under it, key by key.
std::vector<SubjectLine> FillDoorList(Session& session, const PageView& page, int cell,
                                      const QString& keyID, const QString& filter);

/// The issued units of a Key ID with their holders, whose last names begin with the filter.
std::vector<SubjectLine> FillUserList(Session& session, const QString& keyID,
                                      const QString& filter);

} // namespace quorrel
