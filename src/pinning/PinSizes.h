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

/// The brand of exactly this name, without regard to case and to blanks on the right; nothing for
/// an empty name.
std::optional<ManufacturerRow> FindLockBrand(Session& session, const QString& brand);

/// As `FindLockBrand`; an unknown brand is added with a blank for every size. Throws
/// `std::invalid_argument` for an empty name.
ManufacturerRow FindOrAddLockBrand(Session& session, const QString& brand);

PinSizes SizesOf(ManufacturerRow brand);

/// The pin sizes of the brand that `FindLockBrand` finds.
std::optional<PinSizes> FindPinSizes(Session& session, const QString& brand);

/// Stores the sizes of a brand that was shown, each cut to `kPinSizeLength`. Sizes that were not
/// changed stay as they are stored by now. Throws `ChangedElsewhere`.
void SavePinSizes(Session& session, const ManufacturerRow& shown, const PinSizes& sizes);

/// Throws `ChangedElsewhere` when the brand is not as it was shown any more.
void DeleteLockBrand(Session& session, const ManufacturerRow& shown);

} // namespace quorrel
