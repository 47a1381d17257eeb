#pragma once

#include "engine/Patterns.h"

#include <algorithm>
#include <string>
#include <unordered_set>
#include <vector>

namespace quorrel::test {

/// The keys of a system worked out a second time, slowly: every combination of cuts is a number,
/// taken apart and judged by itself. Page and cell come from counting the cuts below, so there is
/// no loop whose state could go astray.
class PlainEnumeration {
public:
    explicit PlainEnumeration(const SystemDefinition& definition) : m_definition(definition) {
        if (definition.pins < 4 || definition.pins > 7)
            return;
        long combinations = 1;
        for (int i = 0; i < definition.pins; ++i) {
            m_cuts.push_back(CutsAt(i));
            combinations *= static_cast<long>(m_cuts.back().size());
        }
        pages = 1;
        for (int i = 0; i < definition.pins - 3; ++i)
            pages *= Others(i, 99);
        if (pages > 300)
            return;
        for (long number = 0; number < combinations; ++number)
            Judge(number);
        AddLevels();
    }

    int pages = 0;
    std::vector<Pattern> patterns;

    std::vector<int> UsablePerPage() const {
        std::vector<int> counts(static_cast<std::size_t>(pages), 0);
        for (const Pattern& key : patterns)
            if (key.position < 80 && key.position % 5 < 4)
                ++counts[static_cast<std::size_t>(key.page - 1)];
        return counts;
    }

    int UsableWithinSafetyFactor() const {
        return static_cast<int>(
            std::count_if(patterns.begin(), patterns.end(), [](const Pattern& key) {
                return key.position < 80 && key.position % 5 < 4 && key.text.back() != '*';
            }));
    }

private:
    std::string CutsAt(int i) const {
        int start = m_definition.minPin;
        while (m_definition.increment > 1 && (start + Master(i)) % 2 != 0)
            ++start;
        std::string cuts;
        for (int cut = 0; cut <= 9; ++cut)
            if (cut >= start && cut <= m_definition.maxPin &&
                (cut - start) % m_definition.increment == 0)
                cuts += static_cast<char>('0' + cut);
        return cuts;
    }

    int Master(int i) const { return m_definition.master[static_cast<std::size_t>(i)] - '0'; }

    /// Cuts below `limit` at a position, the master cut left out.
    int Others(int i, int limit) const {
        const std::string& cuts = m_cuts[static_cast<std::size_t>(i)];
        return static_cast<int>(std::count_if(cuts.begin(), cuts.end(), [&](char cut) {
            return cut - '0' < limit && cut - '0' != Master(i);
        }));
    }

    void Judge(long number) {
        const int pins = m_definition.pins;
        std::string text(static_cast<std::size_t>(pins), ' ');
        for (std::size_t i = text.size(); i-- > 0;) {
            const auto base = static_cast<long>(m_cuts[i].size());
            text[i] = m_cuts[i][static_cast<std::size_t>(number % base)];
            number /= base;
        }
        const auto cut = [&](int i) { return text[static_cast<std::size_t>(i)] - '0'; };
        const auto isMaster = [&](int i) { return cut(i) == Master(i); };
        int page = 0;
        for (int i = 0; i < pins - 3; ++i) {
            if (isMaster(i))
                return;
            page = page * Others(i, 99) + Others(i, cut(i));
        }
        const int index[] = {Others(pins - 3, cut(pins - 3)) % 4,
                             Others(pins - 2, cut(pins - 2)) % 4,
                             Others(pins - 1, cut(pins - 1)) % 4};
        const bool a = isMaster(pins - 3);
        const bool b = isMaster(pins - 2);
        const bool c = isMaster(pins - 1);
        if (b && (a || !c))
            return;
        const int position =
            b ? 100 + index[0] : (a ? 80 : 20 * index[0]) + 5 * index[1] + (c ? 4 : index[2]);
        char mark = ' ';
        for (int i = 1; i < pins; ++i)
            if (cut(i) - cut(i - 1) > m_definition.safetyFactor ||
                cut(i - 1) - cut(i) > m_definition.safetyFactor)
                mark = '*';
        patterns.push_back(
            {text + mark, page + 1, position, 0, position >= 80 || position % 5 == 4});
    }

    void AddLevels() {
        const auto pins = static_cast<std::size_t>(m_definition.pins);
        std::unordered_set<std::string> known;
        for (const Pattern& key : patterns)
            known.insert(key.text.substr(0, pins));
        std::vector<Pattern> all;
        std::string first;
        for (std::size_t i = 0; i < patterns.size(); ++i) {
            all.push_back(patterns[i]);
            if (patterns[i].position == 0 && first.empty())
                first = patterns[i].text;
            const int page = patterns[i].page;
            if (i + 1 < patterns.size() && patterns[i + 1].page == page)
                continue;
            // The highest level, the master key itself, stands in cell N + 101; each lower one
            // keeps one cut more of the page.
            const std::size_t top = pins == 4 ? 2 : pins - 3;
            for (int cell = 104; !first.empty() && cell <= m_definition.pins + 101; ++cell) {
                std::size_t kept = top - static_cast<std::size_t>(cell - 104);
                if (cell == m_definition.pins + 101)
                    kept = 0;
                const std::string cuts = first.substr(0, kept) + m_definition.master.substr(kept);
                if (known.insert(cuts).second)
                    all.push_back({cuts + ' ', page, cell, 0, true});
            }
            first.clear();
        }
        for (std::size_t i = 0; i < all.size(); ++i)
            all[i].serial = static_cast<long>(i + 1);
        patterns = std::move(all);
    }

    SystemDefinition m_definition;
    std::vector<std::string> m_cuts;
};

} // namespace quorrel::test
