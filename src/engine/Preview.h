#pragma once

#include "engine/SystemDefinition.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace quorrel {

/// A definition that would reach a page above `kMaxPages`.
class PageLimitError : public std::range_error {
public:
    explicit PageLimitError(int pages);
};

/// Usable change keys of a system, page by page.
struct UsableKeys {
    std::vector<int> perPage;   ///< Element 0 is page 1.
    int withinSafetyFactor = 0; ///< Those of all pages whose cuts keep to the safety factor.
    int Total() const;
};

/// Counts the change keys of each page. A key that exceeds the safety factor stays counted there:
/// the figure is that of the system's structure. Throws `PageLimitError`.
UsableKeys CountUsableKeys(const SystemDefinition& definition);

/// The line of a page in the preview: "Page 1    = 64".
std::string PreviewLine(int page, int count);

} // namespace quorrel
