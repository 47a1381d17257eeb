#pragma once

#include "store/Session.h"
#include "store/SystemTables.h"

#include <QStringList>

#include <array>
#include <optional>

namespace quorrel {

/// Characters of a pin size that are kept. Its unit is the user's own.
inline constexpr int kPinSizeLength = 4;

/// The lengths of a brand's pins, for each cut 0 to 9.
struct PinSizes {
    std::array<QString, 10> bottom, top;

    friend bool operator==(const PinSizes&, const PinSizes&) = default;
};

/// The lock brands to choose from: named, and not hidden by two leading blanks.
QStringList ListLockBrands(Session& session);

/// Makes sure that a brand typed for a system is known. It is when, without regard to case, its
/// name begins the typed text or the typed text begins its name. Otherwise a brand without pin
/// sizes is added. True when one was added.
bool LearnLockBrand(Session& session, const QString& typed);

/// The pin sizes of the brand of exactly this name, without regard to case.
std::optional<PinSizes> FindPinSizes(Session& session, const QString& brand);

/// As `FindPinSizes`; an unknown brand is added with a blank for every size.
PinSizes FindOrAddPinSizes(Session& session, const QString& brand);

/// Stores the sizes of a known brand, each cut to `kPinSizeLength`. False when there is none.
bool SavePinSizes(Session& session, const QString& brand, const PinSizes& sizes);

/// False when there is no brand of this name.
bool DeleteLockBrand(Session& session, const QString& brand);

} // namespace quorrel
