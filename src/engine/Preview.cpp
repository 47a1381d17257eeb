#include "engine/Preview.h"

#include "engine/Enumeration.h"

#include <numeric>

namespace quorrel {

PageLimitError::PageLimitError(int pages)
    : std::range_error("These values give " + std::to_string(pages) +
                       " pages. A key system can hold at most " + std::to_string(kMaxPages) +
                       " pages: use a master key whose cuts lie within the pin sizes, or fewer "
                       "pins.") {}

int UsableKeys::Total() const {
    return std::accumulate(perPage.begin(), perPage.end(), 0);
}

UsableKeys CountUsableKeys(const SystemDefinition& definition) {
    const int pages = definition.PageCount();
    if (pages > kMaxPages)
        throw PageLimitError(pages);
    UsableKeys usable;
    usable.perPage.assign(static_cast<std::size_t>(pages), 0);
    Enumeration(definition)
        .Run(
            [&](const EnumeratedKey& key) {
                if (IsMasterPosition(key.position))
                    return;
                ++usable.perPage[static_cast<std::size_t>(key.page - 1)];
                usable.withinSafetyFactor += key.text.back() == ' ' ? 1 : 0;
            },
            [](int) {});
    return usable;
}

std::string PreviewLine(int page, int count) {
    std::string number = std::to_string(page);
    number.resize(4, ' ');
    return "Page " + number + " = " + std::to_string(count);
}

} // namespace quorrel
