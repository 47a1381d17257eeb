#include "LargeSite.h"

#include "engine/PageGeometry.h"
#include "platform/Recordset.h"
#include "store/DatabaseFiles.h"
#include "store/DoorTables.h"
#include "store/HolderTables.h"
#include "store/SystemTables.h"

#include <QFile>

#include <stdexcept>

namespace quorrel::bench {

namespace {

constexpr int kSystem = 1;

QString Padded(const QString& keyID) {
    return keyID.leftJustified(12);
}

QString KeyIDOf(int number) {
    return QStringLiteral("K%1").arg(number, 5, 10, QChar(u'0'));
}

/// The key that a door or a unit goes by.
QString KeyIDFor(int number) {
    return Padded(KeyIDOf(number % 10 == 0 ? 1 : 2 + number % (kSiteKeys - 2)));
}

/// Names the uppermost master and keys all over the system, as their records would be saved.
void NameKeys(Database& keys) {
    auto rows =
        Recordset<PatternsRow>(keys, Query<PatternsRow>().OrderBy(&PatternsRow::Serial)).Rows();
    AllKeysRow named;
    named.SystemNumber = kSystem;
    Appender<AllKeysRow> append(keys, named);
    int number = 0;
    const std::size_t step = rows.size() / kSiteKeys;
    for (std::size_t at = 0; at < rows.size(); ++at) {
        PatternsRow& row = rows[at];
        const bool uppermost = row.Position == kLastLevelCell;
        if (!uppermost && (at % step != 0 || number == kSiteKeys - 1))
            continue;
        row.Label = Padded(uppermost ? QString::fromLatin1(kUppermostKeyID) : KeyIDOf(++number));
        row.Department = QStringLiteral("DEPARTMENT %1").arg(number % 40);
        row.Description = QStringLiteral("Rooms of group %1").arg(number);
        row.KeyWay = QStringLiteral("K7      ");
        Recordset<PatternsRow>::Update(keys, row);
        named.KeyID = row.Label;
        named.KeyWay = row.KeyWay + u' ';
        named.Cuts = row.Cuts;
        named.CustomCuts = QStringLiteral("2026-03-15");
        named.PageNumber = row.PageNumber;
        named.Position = row.Position;
        append.Add();
    }
    if (number != kSiteKeys - 1)
        throw std::runtime_error("The site has not the keys that it should have.");
}

void AddDoors(Database& keys) {
    DoorsRow door;
    door.SystemNumber = kSystem;
    Appender<DoorsRow> append(keys, door);
    for (int number = 0; number < kSiteDoors; ++number) {
        door.DoorID = kSystem * 10000 + number;
        door.DoorLabel = QStringLiteral("D%1").arg(number, 5, 10, QChar(u'0'));
        door.DoorDescription = QStringLiteral("Room %1 of the east wing").arg(number);
        door.DoorLocation = QStringLiteral("Floor %1, from the stairs to the left").arg(number % 9);
        door.CutsLabel = KeyIDFor(number);
        door.Text1 = QStringLiteral("Mortice lock");
        append.Add();
    }
}

QString HolderID(int number) {
    return QString::number(100000 + number);
}

void AddHolders(Database& keys) {
    KeyUsersRow holder;
    holder.SystemNumber = kSystem;
    Appender<KeyUsersRow> append(keys, holder);
    for (int number = 0; number < kSiteHolders; ++number) {
        holder.UserID = number;
        holder.UserIDNumber = HolderID(number);
        holder.Lastname = QStringLiteral("Lastname %1").arg(number);
        holder.Firstname = QStringLiteral("Firstname");
        holder.Department = QStringLiteral("DEPARTMENT %1").arg(number % 40);
        append.Add();
    }
}

void AddUnits(Database& keys) {
    KeyUnitRow unit;
    UsertoUnitRow held;
    unit.SystemNumber = held.SystemNumber = kSystem;
    Appender<KeyUnitRow> appendUnit(keys, unit);
    Appender<UsertoUnitRow> appendHeld(keys, held);
    for (int number = 0; number < kSiteUnits; ++number) {
        unit.UnitIDNumber = kSystem * 100000 + number;
        unit.UnitID = held.UnitID = QString::number(number);
        unit.KeyID = held.KeyID = KeyIDFor(number);
        held.UTUID = number;
        held.UserID = HolderID(number % kSiteHolders);
        held.KeyUsersID = 20260315;
        appendUnit.Add();
        appendHeld.Add();
    }
}

} // namespace

const FreshFolder& LargeSiteFolder() {
    static const FreshFolder folder;
    static const bool filled = [] {
        QuietSession program(folder.Path());
        CreateKeySystem(program.session, LargestSystem());
        Database& keys = program.session.Keys();
        Transaction transaction(keys);
        NameKeys(keys);
        AddDoors(keys);
        AddHolders(keys);
        AddUnits(keys);
        transaction.Commit();
        return true;
    }();
    static_cast<void>(filled);
    return folder;
}

LargeSiteCopy::LargeSiteCopy() {
    const QString path = PathOf(kKeySystemFile);
    if (!QFile::remove(path) || !QFile::copy(LargeSiteFolder().PathOf(kKeySystemFile), path))
        throw std::runtime_error("The large site cannot be copied.");
}

} // namespace quorrel::bench
