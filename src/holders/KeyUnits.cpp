#include "holders/KeyUnits.h"

#include "engine/PageGeometry.h"
#include "holders/UnitOrder.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/Conflict.h"
#include "store/DayNumber.h"
#include "store/OfSystem.h"
#include "store/SystemTables.h"

#include <QHash>
#include <QSet>
#include <QStringBuilder>

#include <algorithm>
#include <tuple>

namespace quorrel {

namespace {

constexpr int kUnitWidth = 12; ///< characters by which two units are told apart
constexpr int kNoteWidth = 50;
constexpr int kPositionsListed = 150;
constexpr qint64 kUnitsOfASystem = 100000;
constexpr int kHighestUnit = 32767;
/// How many holders are looked up at a time.
constexpr qsizetype kHoldersAtATime = 200;

/// What stands between a held unit and its holder in a line.
const QString kBetween = QStringLiteral(" - ");

/// What a line of a held unit says of its holder.
template <class Holder>
QString TextOf(const Holder& holder) {
    return holder.UserIDNumber % u' ' % holder.Lastname % u' ' % holder.Firstname;
}

QString KeyIDOf(const NamedKeyRow& key) {
    return RightTrimmed(key.Label.left(kKeyIDWidth));
}

bool IsListed(const NamedKeyRow& key) {
    return !key.Label.isEmpty() && key.Label[0] != u' ' && key.Position < kPositionsListed;
}

ListedKey ListedOf(const NamedKeyRow& key) {
    return {key.key, KeyIDOf(key),
            Padded(key.Label, kKeyIDWidth) % u"-  " % OneLine(key.Description)};
}

template <class Row>
Query<WholeOf<Row>> OfKey(const Session& session, const QString& keyID) {
    return OfSystem<Row>(session).WhereTrimmed(&WholeOf<Row>::KeyID,
                                               RightTrimmed(keyID.left(kKeyIDWidth)));
}

bool SameUnit(const QString& one, const QString& other) {
    return Padded(one, kUnitWidth) == Padded(other, kUnitWidth);
}

/// The unit itself, whatever became of it.
QString WithoutSuffix(const QString& unit) {
    for (const QString& suffix : {kReturned, kLost})
        if (unit.endsWith(suffix))
            return unit.chopped(suffix.size());
    return unit;
}

bool IsHeld(Session& session, const QString& keyID, const QString& unit) {
    return !Recordset<UsertoUnitRow>(
                session.Keys(),
                OfKey<UsertoUnitRow>(session, keyID).Where(&UsertoUnitRow::UnitID, unit))
                .Empty();
}

/// Makes sure that a key still has the Key ID that the list shows.
void RequireAsListed(Session& session, const ListedKey& key) {
    const QString subject = QStringLiteral("Key ") + key.keyID;
    const auto stored = StoredRow<NamedKeyRow>(session.Keys(), key.key, subject);
    if (KeyIDOf(stored) != key.keyID)
        throw ChangedElsewhere::Changed(subject);
}

ChangedElsewhere UnitChanged(const ListedKey& key, const QString& unit) {
    return ChangedElsewhere::Changed(QStringLiteral("Unit %1 of %2").arg(unit, key.keyID));
}

/// The holders of some numbers, in table order.
QHash<QString, QStringList> TextsOfHolders(Session& session, const QStringList& numbers) {
    QHash<QString, QStringList> texts;
    for (qsizetype at = 0; at < numbers.size(); at += kHoldersAtATime)
        Recordset<HolderNameRow>(session.Keys(),
                                 OfSystem<HolderNameRow>(session).WhereAny(
                                     &KeyUsersRow::UserIDNumber, numbers.mid(at, kHoldersAtATime)))
            .Walk([&](const HolderNameRow& holder) {
                texts[holder.UserIDNumber].append(TextOf(holder));
                return true;
            });
    return texts;
}

/// Deletes the first broken row, in the order of keys and units. Gives it.
std::optional<UsertoUnitRow> RepairBrokenRow(Session& session) {
    // Two look-ups through the index; the engine would walk all units for both at once.
    const auto broken = [&]() -> std::optional<UsertoUnitRow> {
        std::vector<UsertoUnitRow> rows;
        using Unit = UsertoUnitRow;
        for (const auto& query : {OfSystem<Unit>(session).Where(&Unit::UserID, QString()),
                                  OfSystem<Unit>(session).WhereNull(&Unit::UserID)})
            for (const UsertoUnitRow& row : Recordset<UsertoUnitRow>(session.Keys(), query).Rows())
                rows.push_back(row);
        const auto first = std::min_element(
            rows.begin(), rows.end(), [](const UsertoUnitRow& one, const UsertoUnitRow& other) {
                return std::tie(one.KeyID, one.UnitID) < std::tie(other.KeyID, other.UnitID);
            });
        return first == rows.end() ? std::nullopt : std::optional(*first);
    };
    if (!broken())
        return std::nullopt;
    SystemTransaction transaction(session);
    const auto row = broken();
    if (row)
        Recordset<UsertoUnitRow>(session.Keys(), Query<UsertoUnitRow>().WhereKey(row->key))
            .DeleteAll();
    transaction.Commit();
    return row;
}

void AddUnit(Session& session, const QString& keyID, const QString& unit, qint64& high) {
    const qint64 base = session.ActiveSystemNumber * kUnitsOfASystem;
    if (high < base)
        high += base;
    KeyUnitRow row;
    row.UnitIDNumber = ++high;
    row.UnitID = unit;
    row.KeyID = Padded(keyID, kKeyIDWidth);
    row.SystemNumber = session.ActiveSystemNumber;
    Recordset<KeyUnitRow>::Add(session.Keys(), row);
}

/// Adds a row to the log of returned or of lost keys.
template <class Log>
void AddToLog(Session& session, int Log::*number, const UsertoUnitRow& held, const TakenUnit& taken,
              const QString& department, const QString& note) {
    const QDateTime now = session.clock();
    Log row;
    row.*number = static_cast<int>(Recordset<Log>(session.Keys()).Largest(number) + 1);
    row.Date = now.date().toString(Qt::ISODate);
    row.Time = now.time().toString(Qt::ISODate);
    row.KeyID = Padded(held.KeyID, kKeyIDWidth);
    row.UnitID = taken.unit;
    row.UserName = taken.userName;
    row.UserDepartment = department;
    row.LoggedUser = session.LoggedUser;
    row.Report = note.left(kNoteWidth);
    row.SystemNumber = session.ActiveSystemNumber;
    Recordset<Log>::Add(session.Keys(), row);
}

/// Takes one unit out of its holder's hands and logs it.
TakenUnit TakeOut(Session& session, const UsertoUnitRow& held,
                  const std::optional<KeyUsersRow>& holder, const QString& note, bool lost) {
    const TakenUnit taken{held.UnitID,
                          holder ? holder->Lastname + QStringLiteral(", ") + holder->Firstname
                                 : held.UserID};
    const QString department = holder ? holder->Department : QString();
    Recordset<UsertoUnitRow>(session.Keys(), Query<UsertoUnitRow>().WhereKey(held.key)).DeleteAll();
    if (lost)
        AddToLog(session, &LostKeysRow::LostID, held, taken, department, note);
    else
        AddToLog(session, &ReturnKeyRow::ReturnID, held, taken, department, note);
    return taken;
}

/// The units that a line of the list of held units takes back, the one that is meant last.
std::vector<UsertoUnitRow> UnitsOfLine(Session& session, const ListedKey& key,
                                       const QString& line) {
    std::vector<UsertoUnitRow> units;
    bool asListed = false;
    Recordset<UsertoUnitRow>(session.Keys(), OfKey<UsertoUnitRow>(session, key.keyID)
                                                 .OrderBy(&UsertoUnitRow::KeyID)
                                                 .OrderBy(&UsertoUnitRow::UnitID))
        .Walk([&](const UsertoUnitRow& row) {
            if (line.startsWith(row.UnitID + kBetween + row.UserID))
                units.push_back(row);
            return true;
        });
    for (const UsertoUnitRow& row : units)
        for (const QString& holder : TextsOfHolders(session, {row.UserID}).value(row.UserID))
            asListed = asListed || line == row.UnitID + kBetween + holder;
    if (!asListed)
        throw UnitChanged(key, line.left(line.indexOf(kBetween)));
    return units;
}

/// Deletes the rows of all units of a key that agree with one in 12 characters.
template <class Row>
void DeleteAlike(Session& session, const ListedKey& key, const QString& unit) {
    for (const Row& row : Recordset<Row>(session.Keys(), OfKey<Row>(session, key.keyID)).Rows())
        if (SameUnit(row.UnitID, unit))
            Recordset<Row>(session.Keys(), Query<Row>().WhereKey(row.key)).DeleteAll();
}

} // namespace

std::vector<ListedKey> ListKeys(Session& session, const QString& begin) {
    const QString wanted = begin.toUpper();
    std::vector<ListedKey> listed;
    Recordset<NamedKeyRow>(session.Keys(), OfSystem<NamedKeyRow>(session)
                                               .WhereNot(&PatternsRow::Label, kUnnamed)
                                               .WhereBelow(&PatternsRow::Position, kPositionsListed)
                                               .OrderBy(&PatternsRow::PageNumber)
                                               .OrderBy(&PatternsRow::Position))
        .Walk([&](const NamedKeyRow& key) {
            if (IsListed(key) && key.Label.left(begin.size()).toUpper() == wanted)
                listed.push_back(ListedOf(key));
            return true;
        });
    return listed;
}

std::optional<ListedKey> FindKey(Session& session, RowKey key) {
    const auto stored =
        Recordset<NamedKeyRow>(session.Keys(), Query<PatternsRow>().WhereKey(key)).First();
    return stored && IsListed(*stored) ? std::optional(ListedOf(*stored)) : std::nullopt;
}

FreeUnits ListFreeUnits(Session& session, const QString& keyID) {
    FreeUnits found;
    if (keyID.trimmed().isEmpty())
        return found;
    QSet<QString> held;
    Recordset<UsertoUnitRow>(session.Keys(), OfKey<UsertoUnitRow>(session, keyID))
        .Walk([&](const UsertoUnitRow& row) {
            held.insert(row.UnitID);
            return true;
        });
    double high = 0;
    Recordset<KeyUnitRow>(session.Keys(),
                          OfKey<KeyUnitRow>(session, keyID).OrderBy(&KeyUnitRow::UnitIDNumber))
        .Walk([&](const KeyUnitRow& row) {
            const double value = Val(row.UnitID);
            if (value > high || (high == 0 && found.last < row.UnitID)) {
                high = value;
                found.last = row.UnitID;
            }
            if (!row.UnitID.isEmpty() && !held.contains(row.UnitID))
                found.units.append(row.UnitID);
            return true;
        });
    SortUnits(found.units);
    return found;
}

HeldUnits ListHeldUnits(Session& session, const QString& keyID) {
    HeldUnits held;
    const auto broken = RepairBrokenRow(session);
    if (broken)
        held.repaired = QStringLiteral(" Error found for Key %1 - Unit %2 - Record Deleted.")
                            .arg(broken->KeyID, broken->UnitID);
    if (keyID.trimmed().isEmpty())
        return held;
    const auto rows = Recordset<UsertoUnitRow>(session.Keys(), OfKey<UsertoUnitRow>(session, keyID)
                                                                   .OrderBy(&UsertoUnitRow::KeyID)
                                                                   .OrderBy(&UsertoUnitRow::UnitID))
                          .Rows();
    QStringList numbers;
    for (const UsertoUnitRow& row : rows)
        numbers.append(row.UserID);
    numbers.removeDuplicates();
    const auto holders = TextsOfHolders(session, numbers);
    for (const UsertoUnitRow& row : rows) {
        // The list ends where the broken row stood.
        if (broken && std::pair(row.KeyID, row.UnitID) >= std::pair(broken->KeyID, broken->UnitID))
            return held;
        for (const QString& holder : holders.value(row.UserID))
            held.lines.append(row.UnitID + kBetween + holder);
    }
    if (!broken)
        SortHeldUnits(held.lines);
    return held;
}

QStringList ListUnitsOf(Session& session, const QString& number) {
    QStringList lines;
    if (number.isEmpty())
        return lines;
    Recordset<UsertoUnitRow>(session.Keys(), OfSystem<UsertoUnitRow>(session)
                                                 .Where(&UsertoUnitRow::UserID, number)
                                                 .OrderBy(&UsertoUnitRow::KeyID)
                                                 .OrderBy(&UsertoUnitRow::UnitID))
        .Walk([&](const UsertoUnitRow& row) {
            const QString day =
                row.KeyUsersID == 0 ? QString() : QStringLiteral(" - ") + DayText(row.KeyUsersID);
            lines.append(row.KeyID + QStringLiteral("  ") + row.UnitID + QStringLiteral("  ") +
                         Padded(day, 14));
            return true;
        });
    return lines;
}

Issued IssueUnits(Session& session, const ListedKey& key, const QString& first,
                  const QString& last) {
    Issued issued;
    const auto refused = [&](Issued::Outcome outcome) {
        issued.outcome = outcome;
        return issued;
    };
    if (!session.SessionPermissions.AddEditKeyUsers)
        return refused(Issued::Outcome::NoRight);
    SystemTransaction transaction(session);
    RequireAsListed(session, key);
    // A unit that was returned or lost is still there under its number.
    QSet<QString> existing;
    Recordset<KeyUnitRow>(session.Keys(), OfKey<KeyUnitRow>(session, key.keyID))
        .Walk([&](const KeyUnitRow& row) {
            existing.insert(Padded(WithoutSuffix(row.UnitID), kUnitWidth));
            return true;
        });
    if (existing.contains(Padded(first, kUnitWidth)))
        return refused(Issued::Outcome::Exists);
    const bool run = !last.isEmpty();
    if (run && (first.isEmpty() || !first[0].isDigit()))
        return refused(Issued::Outcome::NoNumber);
    if (run && (Val(first) > kHighestUnit || Val(last) > kHighestUnit))
        return refused(Issued::Outcome::TooMany);
    qint64 high = Recordset<KeyUnitRow>(session.Keys(), OfSystem<KeyUnitRow>(session))
                      .Largest(&KeyUnitRow::UnitIDNumber);
    const auto issue = [&](const QString& unit) {
        if (existing.contains(Padded(unit, kUnitWidth)))
            return;
        AddUnit(session, key.keyID, unit, high);
        ++issued.count;
        issued.lastUnit = unit;
    };
    if (!run)
        issue(first);
    for (int number = IntVal(first); run && number <= IntVal(last); ++number)
        issue(QString::number(number));
    transaction.Commit();
    return issued;
}

Assigned AssignUnit(Session& session, const ListedKey& key, const QString& unit,
                    const ListedHolder& holder) {
    if (unit.endsWith(QLatin1String("LOST!")))
        return {Assigned::Outcome::Lost, {}, {}};
    if (!session.SessionPermissions.AddEditKeyUsers)
        return {Assigned::Outcome::NoRight, {}, {}};
    Database& keys = session.Keys();
    SystemTransaction transaction(session);
    RequireAsListed(session, key);
    const KeyUsersRow user = RequireAsListed(session, holder);
    const QString plain = unit.endsWith(kReturned) ? unit.chopped(kReturned.size()) : unit;
    auto row = Recordset<KeyUnitRow>(keys, OfKey<KeyUnitRow>(session, key.keyID)
                                               .Where(&KeyUnitRow::UnitID, unit)
                                               .OrderBy(&KeyUnitRow::UnitIDNumber))
                   .First();
    if (!row || IsHeld(session, key.keyID, plain))
        throw UnitChanged(key, unit);
    UsertoUnitRow held;
    held.UTUID = static_cast<int>(Recordset<UsertoUnitRow>(keys, OfSystem<UsertoUnitRow>(session))
                                      .Largest(&UsertoUnitRow::UTUID) +
                                  1);
    held.KeyID = Padded(key.keyID, kKeyIDWidth);
    held.UnitID = plain;
    held.UserID = user.UserIDNumber;
    held.UserIDDouble = user.UserID;
    held.KeyUsersID = DayNumber(session.clock().date());
    held.SystemNumber = session.ActiveSystemNumber;
    Recordset<UsertoUnitRow>::Add(keys, held);
    row->UnitID = plain;
    Recordset<KeyUnitRow>::Update(keys, *row);
    transaction.Commit();
    return {Assigned::Outcome::Done, plain, user};
}

std::vector<KeyUsersRow> HoldersOfLine(Session& session, const ListedKey& key,
                                       const QString& line) {
    std::vector<KeyUsersRow> holders;
    Recordset<HolderNameRow>(session.Keys(), OfSystem<HolderNameRow>(session))
        .Walk([&](const HolderNameRow& row) {
            if (line.contains(kBetween + TextOf(row)))
                if (auto holder = FindHolder(session, row.UserIDNumber))
                    holders.push_back(*holder);
            return true;
        });
    if (holders.empty())
        throw UnitChanged(key, line.left(line.indexOf(kBetween)));
    return holders;
}

QString UnitOfLine(const QString& line, const KeyUsersRow& holder) {
    return line.left(line.lastIndexOf(kBetween + TextOf(holder)));
}

std::vector<TakenUnit> TakeBackUnit(Session& session, const ListedKey& key, const QString& line,
                                    const KeyUsersRow& holder, const QString& note, bool lost) {
    if (!session.SessionPermissions.AddEditKeyUsers)
        return {};
    SystemTransaction transaction(session);
    RequireAsListed(session, key);
    const auto units = UnitsOfLine(session, key, line);
    const auto user =
        StoredRow<KeyUsersRow>(session.Keys(), holder.key, QStringLiteral("The user of this unit"));
    std::vector<TakenUnit> taken;
    taken.reserve(units.size());
    for (const UsertoUnitRow& held : units)
        taken.push_back(TakeOut(session, held,
                                held.UserID == user.UserIDNumber ? std::optional(user)
                                                                 : FindHolder(session, held.UserID),
                                note, lost));
    const QString& unit = taken.back().unit;
    auto row = Recordset<KeyUnitRow>(session.Keys(), OfKey<KeyUnitRow>(session, key.keyID)
                                                         .Where(&KeyUnitRow::UnitID, unit)
                                                         .OrderBy(&KeyUnitRow::UnitIDNumber))
                   .First();
    if (row) {
        row->UnitID = unit + (lost ? kLost : kReturned);
        Recordset<KeyUnitRow>::Update(session.Keys(), *row);
    }
    transaction.Commit();
    return taken;
}

bool DeleteUnit(Session& session, const ListedKey& key, const QString& unit) {
    if (!session.SessionPermissions.AddEditKeyUsers)
        return false;
    SystemTransaction transaction(session);
    RequireAsListed(session, key);
    const Recordset<KeyUnitRow> asListed(
        session.Keys(), OfKey<KeyUnitRow>(session, key.keyID).Where(&KeyUnitRow::UnitID, unit));
    if (asListed.Empty() || IsHeld(session, key.keyID, unit))
        throw UnitChanged(key, unit);
    DeleteAlike<UsertoUnitRow>(session, key, unit);
    DeleteAlike<KeyUnitRow>(session, key, unit);
    transaction.Commit();
    return true;
}

} // namespace quorrel
