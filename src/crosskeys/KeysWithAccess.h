#pragma once

#include "engine/CrossKeying.h"
#include "platform/Boxes.h"
#include "store/Session.h"

#include <QStringList>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quorrel {

/// A key of the system that turns a cross-keyed cylinder.
struct KeyWithAccess {
    std::string cuts; ///< a digit a chamber
    QString label, description;
    int position = 0;
    bool master = false;

    /// Its line in the lists. Asterisks stand for the cuts where these are not to be read.
    QString Text(bool mayReadCuts) const;
    /// What the row of its cuts stands for when that is no key to hand out; else empty.
    QString Warning() const;
};

/// Which cuts turn a cross-keyed cylinder.
struct KeysWithAccess {
    std::vector<KeyWithAccess> changes; ///< change keys, by their cuts
    std::vector<KeyWithAccess> masters; ///< master keys, by `Serial`
    std::vector<std::string> phantoms;  ///< cuts that no key of the system has, ascending
    std::uint64_t combinations = 0;     ///< all that turn it
    std::uint64_t trulyPhantom = 0;     ///< how many of them no key of the system has
    bool controlKey = false;            ///< the control key turns it, which also pulls the core
};

/// Works out who has access. For a system of 4 pins the lists stay empty; only the figures tell.
/// Nothing when the user has cancelled `progress`, whose steps are `AccessSteps`.
std::optional<KeysWithAccess> CalculateKeysWithAccess(Session& session, const CrossKeying& keying,
                                                      Progress& progress);

/// Steps of the progress of working this out.
int AccessSteps(const CrossKeying& keying);

/// The cuts of all rows of the open system, each once, to count phantom keys against.
std::vector<std::string> ListSystemCuts(Session& session);

/// The chambers in which two keys differ, as in "1 3 6"; empty where they are alike or either is
/// not known.
QString DifferingChambers(const std::string& cuts, const std::string& other);

} // namespace quorrel
