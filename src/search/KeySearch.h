#pragma once

#include "store/Session.h"

#include <QStringList>

#include <optional>
#include <string>
#include <utility>

namespace quorrel {

/// A row of the system's keys that a search has found.
struct KeyHit {
    RowKey key = 0;
    int page = 0;
    int position = 0;
    std::string cuts; ///< a digit a chamber; empty when they cannot be read
    QString label;

    /// What the row stands for when that is no key; else empty.
    QString NoKey() const;
    /// A master of a level above the pages.
    bool IsLevelAbovePages() const;
};

/// Which pages a master key is found on, the lowest and the highest.
using PageRange = std::pair<int, int>;

/// The searches for a key. The first row in order wins: by page and position, and by `Serial` once
/// the pages of a master key have been told. Rows that are no keys come last.
class KeySearch {
public:
    explicit KeySearch(Session& session) : m_session(session) {}

    /// The key with these cuts, of which as many count as a key has.
    std::optional<KeyHit> FindByCuts(const QString& typed) const;

    /// The key of a Key ID, whatever its case and the blanks on its right. An empty text means the
    /// first key without one.
    std::optional<KeyHit> FindByLabel(const QString& typed) const;

    std::optional<KeyHit> FindBySerial(const QString& typed) const;

    /// The key whose description begins with a line of `ListDescriptions`.
    std::optional<KeyHit> FindByDescription(const QString& line) const;

    /// The pages that are told of a master key. `description` is the line it was found by, if it
    /// was: then the last row with it counts, and its cuts are the session's found ones. 99 and 1
    /// when there is none. Later searches go by `Serial`.
    PageRange ReportMasterPages(const KeyHit& hit, const QString& description);

    /// The descriptions of keys, each on one line. With words, those in which any of them occurs,
    /// whatever its case, each once. Up to eleven words count, and none after two blanks.
    QStringList ListDescriptions(const QString& search) const;

private:
    template <class Row, class Visit>
    void Walk(Visit&& visit) const;
    template <class Agrees>
    std::optional<KeyHit> First(Agrees&& agrees) const;

    Session& m_session;
    bool m_bySerial = false;
};

/// The pages on which a level key is a cell of the page; nothing when there is none.
std::optional<PageRange> PagesOfLevel(Session& session, const KeyHit& hit);

/// The page to turn to for a key: its own, or the first one that shows a level key in its cell.
int PageToShow(Session& session, const KeyHit& hit);

} // namespace quorrel
