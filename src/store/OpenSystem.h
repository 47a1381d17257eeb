#pragma once

#include "platform/Database.h"

#include <QString>

#include <stdexcept>
#include <string>

namespace quorrel {

/// The definition of the open key system, as it was when it was opened: nothing changes it later.
struct OpenSystem {
    QString name, address, lockBrand, notes;
    int safetyFactor = 0;      ///< 2 to 9
    int PinCount = 0;          ///< 4 to 7; 0 when no system is open
    int increment = 0;         ///< 1 to 4
    std::string MasterKeyCuts; ///< N digits
    std::string SpecialCuts;   ///< the angles or the control key, N digits; else empty
    bool SystemIsAngled = false;
    bool SystemIsIC = false;
    int MaxPage = 0; ///< no more than its pins can give
    QString flaws;   ///< what is broken in the file and hinders no work, in plain words; else empty
};

/// A key system that the file holds, but not in a way that it can be worked on. The message says in
/// plain words what is wrong.
class BrokenSystem : public std::runtime_error {
public:
    explicit BrokenSystem(const QString& text) : std::runtime_error(text.toStdString()) {}
};

/// Reads the definition of a system, its type and its number of pages. A part of which the file
/// has no row, or one that cannot be read, stays as it is in a new `OpenSystem`. Throws
/// `DatabaseError`.
OpenSystem ReadOpenSystem(Database& keys, int systemNumber);

/// Throws `BrokenSystem` for a system whose pins or master key cannot be.
void RequireUsable(const OpenSystem& system);

} // namespace quorrel
