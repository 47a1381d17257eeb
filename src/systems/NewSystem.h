#pragma once

#include "engine/SystemDefinition.h"
#include "store/Session.h"
#include "store/SystemTables.h"

#include <optional>
#include <stdexcept>

namespace quorrel {

/// A key system as its maker has defined it.
struct NewSystem {
    QString name, address, lockBrand, notes;
    SystemDefinition definition;
    SystemType type = SystemType::Standard;
    QString special; ///< The angles or the control key, N digits, unless the type is Standard.

    bool operator==(const NewSystem&) const = default;
};

/// Why a system cannot be created.
struct Refusal {
    enum class Field {
        Name,
        Pins,
        MinimumPin,
        MaximumPin,
        Increment,
        SafetyFactor,
        Master,
        Angle,
        Control
    };
    Field field;
    QString text;
};

/// What is wrong with a definition, before anything is written; nothing when it can be created.
std::optional<Refusal> CheckNewSystem(Session& session, const NewSystem& system);

/// A name that another workstation has taken since the check.
class NameTakenError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Writes the system and all of its keys in one transaction: all of it is stored, or nothing.
/// Gives the stored row. Throws `DatabaseError`, `NameTakenError` or `PageLimitError`.
KeySystemRow CreateKeySystem(Session& session, const NewSystem& system);

} // namespace quorrel
