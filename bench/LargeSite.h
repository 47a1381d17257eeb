#pragma once

#include "LargestSystem.h"

namespace quorrel::bench {

inline constexpr int kSiteKeys = 5000; ///< with a Key ID, the uppermost master among them
inline constexpr int kSiteDoors = 10000;
inline constexpr int kSiteUnits = 40000; ///< all in the hands of holders
inline constexpr int kSiteHolders = 20000;
/// A key that a tenth of the doors and of the units goes by. All others are shared out evenly.
inline constexpr const char* kPopularKeyID = "K00001";
inline constexpr const char* kUppermostKeyID = "GGM";

/// A folder whose file holds the largest system as a large site works with it. Made once; what
/// uses it does not change it.
const FreshFolder& LargeSiteFolder();

/// A copy of the large site, to be changed.
class LargeSiteCopy : public FreshFolder {
public:
    LargeSiteCopy();
};

} // namespace quorrel::bench
