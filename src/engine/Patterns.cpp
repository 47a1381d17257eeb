#include "engine/Patterns.h"

#include "engine/Preview.h"

#include <algorithm>

namespace quorrel {

namespace {

/// Follows the enumeration and adds the level keys at the end of each page.
class PatternWriter {
public:
    PatternWriter(const SystemDefinition& definition,
                  const std::function<void(const Pattern&)>& emit)
        : m_definition(definition), m_master(NormalisedCuts(definition.master, definition.pins)),
          m_emit(emit) {}

    void Key(const EnumeratedKey& key) {
        m_pattern.text = key.text;
        Emit(key.page, key.position);
        std::string cuts(key.text.substr(0, Pins()));
        if (key.position == 0 && m_firstKey.empty())
            m_firstKey = cuts;
        if (key.position >= 100)
            m_columnMasters.push_back(std::move(cuts));
    }

    void PageDone(int page) {
        if (!m_firstKey.empty()) {
            const auto texts = LevelTexts(m_definition.pins, m_firstKey, m_master);
            for (std::size_t level = 0; level < texts.size(); ++level)
                Level(texts[level], page, kFirstLevelCell + static_cast<int>(level));
        }
        m_firstKey.clear();
        m_columnMasters.clear();
    }

    void Special(const std::string& cuts, int position) {
        m_pattern.text = cuts + ' ';
        Emit(0, position);
    }

private:
    std::size_t Pins() const { return static_cast<std::size_t>(m_definition.pins); }

    void Level(const std::string& cuts, int page, int cell) {
        // Only a column master can have a level's cuts: both its last places are the master's.
        const bool enumerated = std::find(m_columnMasters.begin(), m_columnMasters.end(), cuts) !=
                                m_columnMasters.end();
        if (cuts.empty() || enumerated || !m_levels.insert(cuts).second)
            return;
        m_pattern.text = cuts + ' ';
        Emit(page, cell);
    }

    void Emit(int page, int position) {
        m_pattern.page = page;
        m_pattern.position = position;
        m_pattern.master = IsMasterPosition(position);
        ++m_pattern.serial;
        m_emit(m_pattern);
    }

    const SystemDefinition& m_definition;
    std::string m_master;
    const std::function<void(const Pattern&)>& m_emit;
    Pattern m_pattern{};
    std::string m_firstKey;
    std::vector<std::string> m_columnMasters;
    std::set<std::string> m_levels;
};

} // namespace

void GeneratePatterns(const SystemDefinition& definition, SystemType type,
                      const std::string& special, const std::function<void(const Pattern&)>& emit) {
    if (!definition.IsWithinLimits())
        return;
    if (const int pages = definition.PageCount(); pages > kMaxPages)
        throw PageLimitError(pages);
    PatternWriter writer(definition, emit);
    Enumeration(definition)
        .Run([&](const EnumeratedKey& key) { writer.Key(key); },
             [&](int page) { writer.PageDone(page); });
    if (type == SystemType::AngledCut)
        writer.Special(special, kAnglePosition);
    if (type == SystemType::ICCore23)
        writer.Special(special, kControlPosition);
}

} // namespace quorrel
