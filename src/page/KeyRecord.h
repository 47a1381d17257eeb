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
class KeyRecord {
public:
    KeyRecord(Session& session, PageView& page) : m_session(session), m_page(page) {}

    /// The record of a cell has come onto the screen. `quiet` as after the loading of a page: a
    /// change of it is then saved without a question.
    void Open(int cell, bool quiet);

    /// The user has changed something in it.
    void Touch() { m_pageDirty = true; }
    void Forget() { m_pageDirty = false; }
    bool PageDirty() const { return m_pageDirty; }

    /// Saves what is on the screen, all in one transaction, unless it is refused: then the user
    /// has been told, and nothing is stored. The text on the screen is set to what holds then.
    /// False when it is refused.
    bool SaveKeyRecord(KeyRecordText& screen);

    /// What was saved last is offered to the next key without Key ID, until a page is loaded.
    bool RepeatsLastRecord() const;
    const KeyRecordText& LastRecord() const { return m_last; }
    void StopRepeating() { m_repeatLastRecord = false; }

private:
    /// What stands in the way of a Key ID.
    enum class Obstacle { None, Units, Doors, Taken };

    bool UnitsAreIssued() const;
    bool DoorsAreAssigned() const;
    bool IsTaken(const QString& keyID) const;
    Obstacle FindObstacle(const QString& keyID) const;
    void Tell(Obstacle obstacle, KeyRecordText& screen);
    Obstacle Store(KeyRecordText& screen);
    void RenameInAllKeys(const KeyRecordText& screen);
    void WriteAllKeysRow(const KeyRecordText& screen);
    void DeleteAllKeysRow();
    void WritePatterns(const KeyRecordText& screen);
    QString LearnDepartment(const QString& department);
    void KeepInPage(const KeyRecordText& screen);
    /// The cuts of the key as they are stored, under both marks.
    QStringList StoredCuts() const;
    QString Today() const;

    Session& m_session;
    PageView& m_page;
    int m_cell = 0;
    bool m_pageDirty = false;
    QString m_labelAsShown; ///< the Key ID when the cell was opened
    bool m_labelEdited = false;
    bool m_repeatLastRecord = false;
    KeyRecordText m_last;
};

} // namespace quorrel
