#include "search/KeySearch.h"

#include "engine/PageGeometry.h"
#include "engine/SystemDefinition.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/OfSystem.h"
#include "store/Scramble.h"
#include "store/SystemTables.h"

#include <QSet>

#include <algorithm>

namespace quorrel {

namespace {

/// Words of a search that count.
constexpr int kWords = 11;

/// Rows from this `Position` on are no keys.
constexpr int kAfterKeys = 110;

struct FoundRow {
    using Self = FoundRow;
    using Whole = PatternsRow;
    RowKey key = 0;
    int PageNumber = 0;
    int Position = 0;
    double Serial = 0;
    QString Cuts;
    QString Label;
    QString Description;

    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(PageNumber), QUORREL_COLUMN(Position),
                          QUORREL_COLUMN(Serial),     QUORREL_COLUMN(Cuts),
                          QUORREL_COLUMN(Label),      QUORREL_COLUMN(Description)};
    }
};

struct DescriptionRow {
    using Self = DescriptionRow;
    using Whole = PatternsRow;
    RowKey key = 0;
    QString Description;

    static constexpr auto Columns() { return std::tuple{QUORREL_COLUMN(Description)}; }
};

struct PageCuts {
    using Self = PageCuts;
    using Whole = PatternsRow;
    RowKey key = 0;
    int PageNumber = 0;
    QString Cuts;

    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(PageNumber), QUORREL_COLUMN(Cuts)};
    }
};

QString Flat(const QString& description) {
    return OneLine(RightTrimmed(description));
}

/// The words of a search: a blank more than needed ends them.
QStringList WordsOf(const QString& search) {
    QStringList words = search.toUpper().split(u' ').mid(0, kWords);
    return words.mid(0, words.contains(QString()) ? words.indexOf(QString()) : words.size());
}

/// The cuts that a row would have as the master of a level, if it lay under that.
std::string LevelCuts(const std::string& cuts, int position, const std::string& master) {
    const auto pins = static_cast<int>(cuts.size());
    const int own = position == kLastLevelCell ? pins : pins - (position - kFirstLevelCell + 3);
    return own < 0 ? std::string()
                   : cuts.substr(0, static_cast<std::size_t>(own)) +
                         master.substr(static_cast<std::size_t>(own));
}

void Widen(PageRange& range, int page) {
    range = {std::min(range.first, page), std::max(range.second, page)};
}

} // namespace

QString KeyHit::NoKey() const {
    if (position == kControlPosition)
        return QStringLiteral("control key");
    return position >= kAfterKeys ? QStringLiteral("angle row") : QString();
}

bool KeyHit::IsLevelAbovePages() const {
    return position > kFirstLevelCell && position < kAfterKeys;
}

/// Calls `visit` for the keys in order and then for what is none.
template <class Row, class Visit>
void KeySearch::Walk(Visit&& visit) const {
    bool goesOn = true;
    for (const bool keys : {true, false}) {
        auto query = OfSystem<Row>(m_session);
        if (keys)
            query.WhereBelow(&PatternsRow::Position, kAfterKeys);
        else
            query.WhereAtLeast(&PatternsRow::Position, kAfterKeys);
        if (m_bySerial)
            query.OrderBy(&PatternsRow::Serial);
        else
            query.OrderBy(&PatternsRow::PageNumber).OrderBy(&PatternsRow::Position);
        if (goesOn)
            Recordset<Row>(m_session.Keys(), query).Walk([&](const Row& row) {
                return goesOn = visit(row);
            });
    }
}

template <class Agrees>
std::optional<KeyHit> KeySearch::First(Agrees&& agrees) const {
    std::optional<KeyHit> hit;
    Walk<FoundRow>([&](const FoundRow& row) {
        if (agrees(row))
            hit = KeyHit{row.key, row.PageNumber, row.Position,
                         PlainCuts(row.Cuts, m_session.System.PinCount), row.Label};
        return !hit;
    });
    return hit;
}

std::optional<KeyHit> KeySearch::FindByCuts(const QString& typed) const {
    const int pins = m_session.System.PinCount;
    const std::string cuts = typed.left(pins).toStdString();
    if (!IsDigits(cuts, pins))
        return std::nullopt;
    const QStringList forms = StoredForms(cuts);
    return First([&](const FoundRow& row) { return forms.contains(row.Cuts.left(pins + 1)); });
}

std::optional<KeyHit> KeySearch::FindByLabel(const QString& typed) const {
    const QString wanted = RightTrimmed(typed).toUpper();
    return First([&](const FoundRow& row) { return RightTrimmed(row.Label).toUpper() == wanted; });
}

std::optional<KeyHit> KeySearch::FindBySerial(const QString& typed) const {
    bool isNumber = false;
    const double serial = typed.trimmed().toDouble(&isNumber);
    if (!isNumber)
        return std::nullopt;
    return First([&](const FoundRow& row) { return row.Serial == serial; });
}

std::optional<KeyHit> KeySearch::FindByDescription(const QString& line) const {
    return First([&](const FoundRow& row) {
        return !row.Description.isEmpty() && Flat(row.Description).startsWith(line);
    });
}

PageRange KeySearch::ReportMasterPages(const KeyHit& hit, const QString& description) {
    m_bySerial = true;
    std::string found = hit.cuts;
    if (!description.isEmpty())
        Walk<FoundRow>([&](const FoundRow& row) {
            if (Flat(row.Description) == description)
                found = PlainCuts(row.Cuts, m_session.System.PinCount);
            return true;
        });
    m_session.hit.FoundCuts = found;
    PageRange pages{99, 1};
    Walk<PageCuts>([&](const PageCuts& row) {
        const std::string cuts = PlainCuts(row.Cuts, m_session.System.PinCount);
        if (!cuts.empty() && LevelCuts(cuts, hit.position, m_session.System.MasterKeyCuts) == found)
            Widen(pages, row.PageNumber);
        return true;
    });
    return pages;
}

QStringList KeySearch::ListDescriptions(const QString& search) const {
    const QStringList words = WordsOf(search);
    QStringList lines;
    QSet<QString> listed;
    Walk<DescriptionRow>([&](const DescriptionRow& row) {
        const QString flat = Flat(row.Description);
        if (words.isEmpty()) {
            if (!IsNoValue(flat))
                lines += flat;
            return true;
        }
        const QString upper = row.Description.toUpper();
        const bool passes = std::any_of(words.begin(), words.end(),
                                        [&](const QString& word) { return upper.contains(word); });
        if (passes && !listed.contains(flat)) {
            listed.insert(flat);
            lines += flat;
        }
        return true;
    });
    return lines;
}

std::optional<PageRange> PagesOfLevel(Session& session, const KeyHit& hit) {
    if (hit.position < kFirstLevelCell || hit.position > kLastLevelCell)
        return std::nullopt;
    const auto level = static_cast<std::size_t>(hit.position - kFirstLevelCell);
    std::optional<PageRange> pages;
    Recordset<PageCuts>(session.Keys(), OfSystem<PageCuts>(session)
                                            .Where(&PatternsRow::Position, 0)
                                            .OrderBy(&PatternsRow::PageNumber))
        .Walk([&](const PageCuts& row) {
            const std::string cuts = PlainCuts(row.Cuts, session.System.PinCount);
            if (!cuts.empty() && LevelTexts(session.System.PinCount, cuts,
                                            session.System.MasterKeyCuts)[level] == hit.cuts) {
                pages = pages.value_or(PageRange{row.PageNumber, row.PageNumber});
                Widen(*pages, row.PageNumber);
            }
            return true;
        });
    return pages;
}

int PageToShow(Session& session, const KeyHit& hit) {
    if (hit.position < kFirstLevelCell)
        return hit.page;
    const auto pages = PagesOfLevel(session, hit);
    const bool onOwn = !pages || (pages->first <= hit.page && hit.page <= pages->second);
    return onOwn ? hit.page : pages->first;
}

} // namespace quorrel
