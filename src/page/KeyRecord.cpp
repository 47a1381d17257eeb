#include "page/KeyRecord.h"

#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/DoorTables.h"
#include "store/HolderTables.h"
#include "store/OfSystem.h"
#include "store/Scramble.h"
#include "store/SystemTables.h"

#include <algorithm>

namespace quorrel {

void KeyRecord::Open(int cell, bool quiet) {
    m_cell = cell;
    m_labelAsShown = RightTrimmed(m_page.Cell(cell).keyLabel);
    m_labelEdited = !quiet;
    m_pageDirty = false;
}

bool KeyRecord::RepeatsLastRecord() const {
    return m_repeatLastRecord && !m_page.Cell(m_cell).HasLabel();
}

QString KeyRecord::Today() const {
    return m_session.clock().date().toString(Qt::ISODate);
}

QStringList KeyRecord::StoredCuts() const {
    const auto pins = static_cast<std::size_t>(m_page.System().PinCount);
    const QString cuts = QString::fromStdString(m_page.Cell(m_cell).tag.substr(0, pins));
    return {Scrambled(cuts + u' '), Scrambled(cuts + u'*')};
}

bool KeyRecord::UnitsAreIssued() const {
    return !Recordset<UsertoUnitRow>(
                m_session.Keys(), OfSystem<UsertoUnitRow>(m_session).Where(
                                      &UsertoUnitRow::KeyID, Padded(m_labelAsShown, kKeyIDWidth)))
                .Empty();
}

bool KeyRecord::DoorsAreAssigned() const {
    // Doors are those of the system under whose number the maps are filed, as on this form's lists.
    return !Recordset<DoorsRow>(m_session.Keys(),
                                Query<DoorsRow>()
                                    .Where(&DoorsRow::SystemNumber, m_session.MapFilingNumber)
                                    .WhereTrimmed(&DoorsRow::CutsLabel, m_labelAsShown))
                .Empty();
}

bool KeyRecord::IsTaken(const QString& keyID) const {
    const QStringList cuts = StoredCuts();
    const auto rows =
        Recordset<AllKeysRow>(m_session.Keys(), OfSystem<AllKeysRow>(m_session).Where(
                                                    &AllKeysRow::KeyID, Padded(keyID, kKeyIDWidth)))
            .Rows();
    return std::any_of(rows.begin(), rows.end(),
                       [&](const AllKeysRow& row) { return !cuts.contains(row.Cuts); });
}

KeyRecord::Obstacle KeyRecord::FindObstacle(const QString& keyID) const {
    // A key that had no Key ID has nothing that units or doors could go by.
    const bool renamed = !m_labelAsShown.isEmpty() && keyID != m_labelAsShown;
    if (renamed && UnitsAreIssued())
        return Obstacle::Units;
    if (renamed && DoorsAreAssigned())
        return Obstacle::Doors;
    return !keyID.isEmpty() && IsTaken(keyID) ? Obstacle::Taken : Obstacle::None;
}

void KeyRecord::Tell(Obstacle obstacle, KeyRecordText& screen) {
    screen.keyID = m_labelAsShown;
    if (obstacle == Obstacle::Taken) {
        m_pageDirty = false;
        m_session.boxes.Message(QStringLiteral("That Key Label is unavailable, Choose another one"),
                                m_session.ProgramTitle);
        return;
    }
    const QString text =
        obstacle == Obstacle::Units
            ? QStringLiteral("There are Key Units Issued for %1 - Delete all Key Units before "
                             "renaming!")
            : QStringLiteral("There are Doors Assigned to %1 - Delete all Assignments before "
                             "renaming!");
    m_session.boxes.Message(text.arg(m_labelAsShown), QStringLiteral("Access Error"));
}

bool KeyRecord::SaveKeyRecord(KeyRecordText& screen) {
    screen.keyID = RightTrimmed(screen.keyID.toUpper().left(kKeyIDWidth));
    // A blank in the first place takes the Key ID away.
    if (screen.keyID.startsWith(u' '))
        screen.keyID.clear();
    if (!m_pageDirty || !m_session.SessionPermissions.AlterKeyInformation)
        return true;
    if (FindObstacle(screen.keyID) == Obstacle::Units) {
        Tell(Obstacle::Units, screen);
        return false;
    }
    if (!m_labelAsShown.isEmpty() && m_labelEdited &&
        !m_session.boxes.Confirms(
            QStringLiteral("Are you sure you want to save changes to this record?"),
            QStringLiteral("Save Changes to Record"))) {
        m_pageDirty = false;
        return true;
    }
    m_repeatLastRecord = false;
    if (const Obstacle obstacle = Store(screen); obstacle != Obstacle::None) {
        Tell(obstacle, screen);
        return false;
    }
    const bool removed = screen.keyID.isEmpty();
    m_last = screen;
    m_repeatLastRecord = !removed;
    KeepInPage(removed ? KeyRecordText() : screen);
    m_labelAsShown = screen.keyID;
    m_pageDirty = false;
    return true;
}

/// Writes all of a record, or nothing when something stands in its way by now.
KeyRecord::Obstacle KeyRecord::Store(KeyRecordText& screen) {
    Transaction transaction(m_session.Keys());
    const Obstacle obstacle = FindObstacle(screen.keyID);
    if (obstacle != Obstacle::None)
        return obstacle;
    if (screen.keyID.isEmpty()) {
        DeleteAllKeysRow();
    } else {
        RenameInAllKeys(screen);
        WriteAllKeysRow(screen);
    }
    WritePatterns(screen);
    screen.department = LearnDepartment(screen.department);
    transaction.Commit();
    return Obstacle::None;
}

void KeyRecord::RenameInAllKeys(const KeyRecordText& screen) {
    for (AllKeysRow& row :
         Recordset<AllKeysRow>(m_session.Keys(), OfSystem<AllKeysRow>(m_session).WhereAny(
                                                     &AllKeysRow::Cuts, StoredCuts()))
             .Rows()) {
        row.KeyID = Padded(screen.keyID, kKeyIDWidth);
        row.CustomCuts = Today();
        Recordset<AllKeysRow>::Update(m_session.Keys(), row);
    }
}

void KeyRecord::WriteAllKeysRow(const KeyRecordText& screen) {
    Database& keys = m_session.Keys();
    const QString keyID = Padded(screen.keyID, kKeyIDWidth);
    auto row = Recordset<AllKeysRow>(
                   keys, OfSystem<AllKeysRow>(m_session).Where(&AllKeysRow::KeyID, keyID))
                   .First();
    // A key that stands in several cells keeps the place where it got its Key ID.
    if (row && row->Position != m_cell)
        return;
    const bool added = !row;
    if (added) {
        row = AllKeysRow();
        row->CustomCuts = Today();
    }
    row->SystemNumber = m_session.ActiveSystemNumber;
    row->PageNumber = m_page.LoadedPage();
    row->Position = m_cell;
    row->KeyID = keyID;
    row->KeyWay = Padded(screen.keyway.left(8), 9);
    row->Cuts = Scrambled(QString::fromStdString(m_page.Cell(m_cell).tag));
    if (added)
        Recordset<AllKeysRow>::Add(keys, *row);
    else
        Recordset<AllKeysRow>::Update(keys, *row);
}

void KeyRecord::DeleteAllKeysRow() {
    Recordset<AllKeysRow>(m_session.Keys(),
                          OfSystem<AllKeysRow>(m_session).WhereAny(&AllKeysRow::Cuts, StoredCuts()))
        .DeleteAll();
}

void KeyRecord::WritePatterns(const KeyRecordText& screen) {
    const bool removed = screen.keyID.isEmpty();
    for (PatternsRow& row :
         Recordset<PatternsRow>(m_session.Keys(),
                                OfSystem<PatternsRow>(m_session)
                                    .WhereAny(&PatternsRow::Cuts, StoredCuts())
                                    .WhereBelow(&PatternsRow::Position, kFirstSpecialPosition))
             .Rows()) {
        row.Department =
            removed ? QString(7, u' ') : screen.department.toUpper().left(kDepartmentWidth);
        row.Description = removed ? QString(16, u' ') : screen.description;
        row.Label = removed ? QString(19, u' ') : Padded(screen.keyID, kKeyIDWidth);
        row.KeyWay = Padded(removed ? QString() : screen.keyway, 8);
        row.AlphaCode = removed ? QString() : Today();
        Recordset<PatternsRow>::Update(m_session.Keys(), row);
    }
}

/// Adds a department that is not known yet. Gives it as it is stored.
QString KeyRecord::LearnDepartment(const QString& department) {
    const QString name = department.toUpper().left(kDepartmentWidth);
    if (department.size() < 2)
        return department;
    const QString wanted = Padded(name, kDepartmentWidth);
    const auto rows =
        Recordset<DepartmentRow>(m_session.Keys(), OfSystem<DepartmentRow>(m_session)).Rows();
    const bool known = std::any_of(rows.begin(), rows.end(), [&](const DepartmentRow& row) {
        return Padded(row.Department.toUpper(), kDepartmentWidth) == wanted;
    });
    if (!known) {
        DepartmentRow row;
        row.Department = name;
        row.SystemNumber = m_session.ActiveSystemNumber;
        Recordset<DepartmentRow>::Add(m_session.Keys(), row);
    }
    return name;
}

void KeyRecord::KeepInPage(const KeyRecordText& screen) {
    const std::string tag = m_page.Cell(m_cell).tag;
    // With four pins a key can stand in two cells of the page.
    for (int cell = 0; cell < kAllCells; ++cell) {
        if (m_page.Cell(cell).tag != tag)
            continue;
        const QString made = m_page.Cell(cell).date;
        const bool labelled = !screen.keyID.isEmpty();
        m_page.SetRecord(cell, screen.keyID, screen.keyway, screen.department.toUpper(),
                         screen.description,
                         labelled ? (made.isEmpty() ? Today() : made) : QString());
    }
}

} // namespace quorrel
