#include "page/KeyRecord.h"

#include "page/KeySelection.h"
#include "pinning/PinningChart.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/Conflict.h"
#include "store/DoorTables.h"
#include "store/HolderTables.h"
#include "store/OfSystem.h"
#include "store/Scramble.h"
#include "store/SystemTables.h"

#include <algorithm>

namespace quorrel {

namespace {

constexpr int kKeywayWidth = 8;

/// A description without the line ends and blanks at its end.
QString Stripped(QString text) {
    while (!text.isEmpty() && (text.back() == u' ' || text.back() == u'\n' || text.back() == u'\r'))
        text.chop(1);
    return text;
}

bool SameText(const QString& one, const QString& other) {
    return RightTrimmed(one).toUpper() == RightTrimmed(other).toUpper();
}

/// What a whole row holds of a record, without the blanks that texts are stored with.
KeyTextsRow TextsOf(const PatternsRow& row) {
    KeyTextsRow texts;
    texts.key = row.key;
    texts.SystemNumber = row.SystemNumber;
    texts.Cuts = row.Cuts;
    texts.Label = RightTrimmed(row.Label);
    texts.KeyWay = RightTrimmed(row.KeyWay);
    texts.Department = RightTrimmed(row.Department);
    texts.Description = Stripped(row.Description);
    return texts;
}

KeyTextsRow Trimmed(KeyTextsRow texts) {
    texts.Label = RightTrimmed(texts.Label);
    texts.KeyWay = RightTrimmed(texts.KeyWay);
    texts.Department = RightTrimmed(texts.Department);
    texts.Description = Stripped(texts.Description);
    return texts;
}

/// Puts a record into its row. What is not changed stays to the letter; a key without Key ID has
/// no record at all.
void WriteInto(PatternsRow& row, const KeyTextsRow& record, const QString& today) {
    if (record.Label.isEmpty()) {
        row.Label = kUnnamed;
        row.KeyWay = QString(kKeywayWidth, u' ');
        row.Department = QString(7, u' ');
        row.Description = QString(16, u' ');
        row.AlphaCode.clear();
        return;
    }
    const KeyTextsRow before = TextsOf(row);
    if (record.Label != before.Label)
        row.Label = Padded(record.Label, kKeyIDWidth);
    if (record.KeyWay != before.KeyWay)
        row.KeyWay = Padded(record.KeyWay, kKeywayWidth);
    if (record.Department != before.Department)
        row.Department = record.Department;
    if (record.Description != before.Description)
        row.Description = record.Description;
    row.AlphaCode = today;
}

} // namespace

KeyRecordText KeyRecord::Open(int cell, bool asks) {
    m_cell = cell;
    m_asks = asks;
    const PageCell& content = m_page.Cell(cell);
    m_stored = Trimmed(content.stored);
    m_shown = {RightTrimmed(content.keyLabel).left(kKeyIDWidth), RightTrimmed(content.keyway),
               RightTrimmed(content.department.toUpper()), content.description};
    m_offered = m_repeatLastRecord && !content.HasLabel() && !content.IsBlank();
    if (m_offered)
        m_shown = {m_shown.keyID, m_last.keyway, m_last.department, m_last.description};
    return m_shown;
}

void KeyRecord::RefreshOffer(const QStringList& departments) {
    if (m_last.department.size() < 2 || departments.contains(m_last.department))
        return;
    const auto row =
        Recordset<KeyTextsRow>(m_session.Keys(), Query<PatternsRow>().WhereKey(m_lastKey)).First();
    m_last.department = row ? RightTrimmed(row->Department) : QString();
}

bool KeyRecord::IsEdited(const KeyRecordText& screen) const {
    return !SameText(screen.keyID, m_shown.keyID) || !SameText(screen.keyway, m_shown.keyway) ||
           !SameText(screen.department, m_shown.department) ||
           Stripped(screen.description) != Stripped(m_shown.description);
}

QString KeyRecord::Subject() const {
    if (!m_stored.Label.isEmpty())
        return QStringLiteral("Key ID ") + m_stored.Label;
    return QStringLiteral("The selected key (%1)").arg(PlaceInWords(m_page, m_cell));
}

QString KeyRecord::Today() const {
    return m_session.clock().date().toString(Qt::ISODate);
}

QStringList KeyRecord::StoredCuts() const {
    const auto pins = static_cast<std::size_t>(m_page.System().PinCount);
    return StoredForms(m_page.Cell(m_cell).tag.substr(0, pins));
}

/// The record as the user wants it. What stands in its boxes as it was given stays what it is in
/// the file, which may be longer than its box.
KeyTextsRow KeyRecord::Typed(const KeyRecordText& screen) const {
    KeyTextsRow typed = m_stored;
    if (m_offered || !SameText(screen.keyID, m_shown.keyID))
        typed.Label = screen.keyID;
    if (m_offered || !SameText(screen.keyway, m_shown.keyway))
        typed.KeyWay = RightTrimmed(screen.keyway.left(kKeywayWidth));
    if (m_offered || !SameText(screen.department, m_shown.department))
        typed.Department = RightTrimmed(screen.department.toUpper().left(kDepartmentWidth));
    if (m_offered || Stripped(screen.description) != Stripped(m_shown.description))
        typed.Description = Stripped(screen.description);
    if (typed.Label.isEmpty())
        typed.KeyWay = typed.Department = typed.Description = QString();
    return typed;
}

bool KeyRecord::UnitsAreIssued(const QString& keyID) const {
    return !Recordset<UsertoUnitRow>(
                m_session.Keys(),
                OfSystem<UsertoUnitRow>(m_session).WhereTrimmed(&UsertoUnitRow::KeyID, keyID))
                .Empty();
}

bool KeyRecord::DoorsAreAssigned(const QString& keyID) const {
    // Doors are those of the system under whose number the maps are filed, as on this form's lists.
    return !Recordset<DoorsRow>(m_session.Keys(),
                                Query<DoorsRow>()
                                    .Where(&DoorsRow::SystemNumber, m_session.MapFilingNumber)
                                    .WhereTrimmed(&DoorsRow::CutsLabel, keyID))
                .Empty();
}

bool KeyRecord::IsTaken(const QString& keyID) const {
    const QStringList cuts = StoredCuts();
    const auto rows = Recordset<AllKeysRow>(
                          m_session.Keys(),
                          OfSystem<AllKeysRow>(m_session).WhereTrimmed(&AllKeysRow::KeyID, keyID))
                          .Rows();
    return std::any_of(rows.begin(), rows.end(),
                       [&](const AllKeysRow& row) { return !cuts.contains(row.Cuts); });
}

KeyRecord::Obstacle KeyRecord::FindObstacle(const QString& from, const QString& to) const {
    // A key that had no Key ID has nothing that units or doors could go by.
    const bool renamed = !from.isEmpty() && to != from;
    if (renamed && UnitsAreIssued(from))
        return Obstacle::Units;
    if (renamed && DoorsAreAssigned(from))
        return Obstacle::Doors;
    return !to.isEmpty() && IsTaken(to) ? Obstacle::Taken : Obstacle::None;
}

void KeyRecord::Tell(Obstacle obstacle, KeyRecordText& screen) {
    screen.keyID = m_shown.keyID;
    if (obstacle == Obstacle::Taken) {
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
    m_session.boxes.Message(text.arg(LabelAsShown()), QStringLiteral("Access Error"));
}

bool KeyRecord::SaveKeyRecord(KeyRecordText& screen) {
    if (!m_session.SessionPermissions.AlterKeyInformation || !IsEdited(screen))
        return true;
    screen.keyID = RightTrimmed(screen.keyID.toUpper().left(kKeyIDWidth));
    // A blank in the first place takes the Key ID away.
    if (screen.keyID.startsWith(u' '))
        screen.keyID.clear();
    const KeyTextsRow typed = Typed(screen);
    if (FindObstacle(LabelAsShown(), typed.Label) == Obstacle::Units) {
        Tell(Obstacle::Units, screen);
        return false;
    }
    if (!LabelAsShown().isEmpty() && m_asks &&
        !m_session.boxes.Confirms(
            QStringLiteral("Are you sure you want to save changes to this record?"),
            QStringLiteral("Save Changes to Record"))) {
        screen = m_shown;
        return true;
    }
    m_repeatLastRecord = false;
    if (const Obstacle obstacle = Store(typed, screen); obstacle != Obstacle::None) {
        Tell(obstacle, screen);
        return false;
    }
    const bool named = !screen.keyID.isEmpty() && screen.keyID != m_shown.keyID;
    m_last = m_shown = screen;
    m_lastKey = m_stored.key;
    m_offered = false;
    m_repeatLastRecord = !screen.keyID.isEmpty();
    if (named && HasControlKeysCuts(m_page, m_cell))
        m_session.boxes.Message(ControlKeyWarning(), m_session.ProgramTitle, BoxButtons::Ok,
                                BoxIcon::Warning);
    return true;
}

/// The rows of the key, that of the record first. Throws `ChangedElsewhere` when it has none.
std::vector<PatternsRow> KeyRecord::StoredRows() const {
    auto rows =
        Recordset<PatternsRow>(m_session.Keys(),
                               OfSystem<PatternsRow>(m_session)
                                   .WhereAny(&PatternsRow::Cuts, StoredCuts())
                                   .WhereBelow(&PatternsRow::Position, kFirstSpecialPosition))
            .Rows();
    const auto own = std::find_if(rows.begin(), rows.end(), [this](const PatternsRow& row) {
        return row.key == m_stored.key;
    });
    if (own == rows.end())
        throw ChangedElsewhere::Deleted(Subject());
    std::iter_swap(rows.begin(), own);
    return rows;
}

/// Writes all of a record, or nothing when something stands in its way by now.
KeyRecord::Obstacle KeyRecord::Store(const KeyTextsRow& typed, KeyRecordText& screen) {
    SystemTransaction transaction(m_session);
    std::vector<PatternsRow> rows = StoredRows();
    const KeyTextsRow stored = TextsOf(rows.front());
    KeyTextsRow record = MergedChanges(m_stored, typed, stored, Subject());
    // A key that has lost its Key ID meanwhile has no record that could be changed.
    if (record.Label.isEmpty() && !typed.Label.isEmpty())
        throw ChangedElsewhere::Changed(Subject(),
                                        {typed.KeyWay, typed.Department, typed.Description});
    if (const Obstacle obstacle = FindObstacle(stored.Label, record.Label);
        obstacle != Obstacle::None)
        return obstacle;
    if (record.Label.isEmpty())
        DeleteAllKeys();
    else
        WriteAllKeys(record);
    for (PatternsRow& row : rows) {
        WriteInto(row, record, Today());
        Recordset<PatternsRow>::Update(m_session.Keys(), row);
    }
    // Not what the screen shows: another workstation may have renamed or deleted that meanwhile.
    const QString department = LearnDepartment(record.Department);
    transaction.Commit();

    const bool shared = !SameFields(stored, m_stored);
    m_lastStored =
        (record.Label.isEmpty() ? QStringLiteral("Key ID %1 taken away").arg(stored.Label)
                                : QStringLiteral("Key ID %1 stored").arg(record.Label)) +
        (shared ? QStringLiteral(", with changes of another workstation") : QString());
    KeepInPage(record);
    screen = {record.Label, record.KeyWay, record.Label.isEmpty() ? QString() : department,
              record.Description};
    m_stored = record;
    return Obstacle::None;
}

void KeyRecord::WriteAllKeys(const KeyTextsRow& record) {
    Database& keys = m_session.Keys();
    const QString keyID = Padded(record.Label, kKeyIDWidth);
    const QString keyway = Padded(record.KeyWay.left(kKeywayWidth), kKeywayWidth + 1);
    auto rows = Recordset<AllKeysRow>(
                    keys, OfSystem<AllKeysRow>(m_session).WhereAny(&AllKeysRow::Cuts, StoredCuts()))
                    .Rows();
    for (AllKeysRow& row : rows) {
        row.KeyID = keyID;
        row.KeyWay = keyway;
        row.CustomCuts = Today();
        // A key that stands in several cells keeps the place where it got its Key ID.
        if (row.Position == m_cell)
            row.PageNumber = m_page.LoadedPage();
        Recordset<AllKeysRow>::Update(keys, row);
    }
    if (!rows.empty())
        return;
    AllKeysRow row;
    row.SystemNumber = m_session.ActiveSystemNumber;
    row.PageNumber = m_page.LoadedPage();
    row.Position = m_cell;
    row.KeyID = keyID;
    row.KeyWay = keyway;
    row.Cuts = Scrambled(QString::fromStdString(m_page.Cell(m_cell).tag));
    row.CustomCuts = Today();
    Recordset<AllKeysRow>::Add(keys, row);
}

void KeyRecord::DeleteAllKeys() {
    Recordset<AllKeysRow>(m_session.Keys(),
                          OfSystem<AllKeysRow>(m_session).WhereAny(&AllKeysRow::Cuts, StoredCuts()))
        .DeleteAll();
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

void KeyRecord::KeepInPage(const KeyTextsRow& record) {
    const std::string tag = m_page.Cell(m_cell).tag;
    // With four pins a key can stand in two cells of the page.
    for (int cell = 0; cell < kAllCells; ++cell) {
        if (m_page.Cell(cell).tag != tag)
            continue;
        const QString made = m_page.Cell(cell).date;
        m_page.SetRecord(cell, record,
                         record.Label.isEmpty() ? QString()
                         : made.isEmpty()       ? Today()
                                                : made);
    }
}

} // namespace quorrel
