#pragma once

#include "page/PageView.h"
#include "platform/Query.h"

#include <string>

namespace quorrel {

/// The editable part of a key's record, as it stands on the screen.
struct KeyRecordText {
    QString keyID;       ///< up to 12 characters are kept
    QString keyway;      ///< up to 8
    QString department;  ///< up to 34
    QString description; ///< up to 250
};

/// The record of the selected key while it is edited. It is saved when the user leaves the key;
/// its Key ID cannot be changed while key units or doors go by it, nor be that of another key.
///
/// Only what the user has changed is written. What another workstation has changed meanwhile stays
/// as that has it, and where both have changed the same, nothing is written.
class KeyRecord {
public:
    KeyRecord(Session& session, PageView& page) : m_session(session), m_page(page) {}

    /// The record of a cell comes onto the screen. Gives what its boxes are to show: its texts, or
    /// for a key without Key ID what was saved last, so that keys of one kind are named one after
    /// the other. `asks`: a change of a key that has a Key ID is saved after a question alone.
    KeyRecordText Open(int cell, bool asks);

    /// What was saved last is offered as it is stored by now: its department, no longer among those
    /// known, has been renamed or deleted.
    void RefreshOffer(const QStringList& departments);

    /// What the boxes make of the texts that they were given, which is no edit.
    void ShownAs(const KeyRecordText& screen) { m_shown = screen; }

    /// True when the user has changed something of what the boxes show. Small letters where the
    /// boxes raise them, and blanks and line ends at the end, are no change.
    bool IsEdited(const KeyRecordText& screen) const;

    /// Saves what is on the screen, all in one transaction, unless it is refused: then the user
    /// has been told, and nothing is stored. The text on the screen is set to what holds then.
    /// False when it is refused. Throws `ChangedElsewhere`, `SystemGone` and `DatabaseError`.
    bool SaveKeyRecord(KeyRecordText& screen);

    /// What was stored last, in words; empty before the first.
    const QString& LastStored() const { return m_lastStored; }

    /// Names the key: by its Key ID or, when it has none, by its place.
    QString Subject() const;

    /// What was saved last is offered to the next key without Key ID, until a page is turned.
    void StopRepeating() { m_repeatLastRecord = false; }

private:
    /// What stands in the way of a Key ID.
    enum class Obstacle { None, Units, Doors, Taken };

    const QString& LabelAsShown() const { return m_stored.Label; }
    KeyTextsRow Typed(const KeyRecordText& screen) const;
    bool UnitsAreIssued(const QString& keyID) const;
    bool DoorsAreAssigned(const QString& keyID) const;
    bool IsTaken(const QString& keyID) const;
    Obstacle FindObstacle(const QString& from, const QString& to) const;
    void Tell(Obstacle obstacle, KeyRecordText& screen);
    Obstacle Store(const KeyTextsRow& typed, KeyRecordText& screen);
    std::vector<PatternsRow> StoredRows() const;
    void WriteAllKeys(const KeyTextsRow& record);
    void DeleteAllKeys();
    QString LearnDepartment(const QString& department);
    void KeepInPage(const KeyTextsRow& record);
    /// The cuts of the key as they are stored, under both marks.
    QStringList StoredCuts() const;
    QString Today() const;

    Session& m_session;
    PageView& m_page;
    int m_cell = 0;
    KeyTextsRow m_stored;   ///< the record as the screen knows it, its texts trimmed
    KeyRecordText m_shown;  ///< what the boxes were given
    bool m_offered = false; ///< `m_shown` is not the key's own, but what was saved last
    bool m_asks = false;
    bool m_repeatLastRecord = false;
    KeyRecordText m_last;
    RowKey m_lastKey = 0; ///< of the key whose record `m_last` is
    QString m_lastStored;
};

} // namespace quorrel
