#include "holders/KeyUnits.h"

#include "engine/PageGeometry.h"
#include "holders/KeyHolders.h"
#include "holders/UnitOrder.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/DayNumber.h"
#include "store/OfSystem.h"
#include "store/SystemTables.h"

#include <QHash>
#include <QSet>

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

/// What a line of a held unit says of its holder.
QString TextOf(const HolderNameRow& holder) {
    return holder.UserIDNumber + u' ' + holder.Lastname + u' ' + holder.Firstname;
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
    Transaction transaction(session.Keys());
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

/// Adds one row to the log of returned or of lost keys.
template <class Log>
void AddToLog(Session& session, int Log::*number, const QString& keyID, const QString& unit,
              const KeyUsersRow& holder, const QString& note) {
    const QDateTime now = session.clock();
    Log row;
    row.*number = static_cast<int>(Recordset<Log>(session.Keys()).Largest(number) + 1);
    row.Date = now.date().toString(Qt::ISODate);
    row.Time = now.time().toString(Qt::ISODate);
    row.KeyID = Padded(keyID, kKeyIDWidth);
    row.UnitID = unit;
    row.UserName = holder.Lastname + QStringLiteral(", ") + holder.Firstname;
    row.UserDepartment = holder.Department;
    row.LoggedUser = session.LoggedUser;
    row.Report = note.left(kNoteWidth);
    row.SystemNumber = session.ActiveSystemNumber;
    Recordset<Log>::Add(session.Keys(), row);
}

} // namespace

QStringList ListKeys(Session& session, const QString& begin) {
    const QString wanted = begin.toUpper();
    QStringList lines;
    Recordset<NamedKeyRow>(session.Keys(), OfSystem<NamedKeyRow>(session)
                                               .WhereNot(&PatternsRow::Label, kUnnamed)
                                               .WhereBelow(&PatternsRow::Position, kPositionsListed)
                                               .OrderBy(&PatternsRow::PageNumber)
                                               .OrderBy(&PatternsRow::Position))
        .Walk([&](const NamedKeyRow& key) {
            if (key.Label.isEmpty() || key.Label[0] == u' ' ||
                key.Label.left(begin.size()).toUpper() != wanted)
                return true;
            lines.append(Padded(key.Label, kKeyIDWidth) + QStringLiteral("-  ") +
                         OneLine(key.Description));
            return true;
        });
    return lines;
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
            held.lines.append(row.UnitID + QStringLiteral(" - ") + holder);
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

Issued IssueUnits(Session& session, const QString& keyID, const QString& first,
                  const QString& last) {
    Issued issued;
    if (!session.SessionPermissions.AddEditKeyUsers) {
        issued.outcome = Issued::Outcome::NoRight;
        return issued;
    }
    const bool run = !last.isEmpty();
    if (run && (first.isEmpty() || !first[0].isDigit())) {
        issued.outcome = Issued::Outcome::NoNumber;
        return issued;
    }
    if (run && (Val(first) > kHighestUnit || Val(last) > kHighestUnit)) {
        issued.outcome = Issued::Outcome::TooMany;
        return issued;
    }
    Transaction transaction(session.Keys());
    // A unit that was returned or lost is still there under its number.
    QSet<QString> existing;
    Recordset<KeyUnitRow>(session.Keys(), OfKey<KeyUnitRow>(session, keyID))
        .Walk([&](const KeyUnitRow& row) {
            existing.insert(Padded(WithoutSuffix(row.UnitID), kUnitWidth));
            return true;
        });
    qint64 high = Recordset<KeyUnitRow>(session.Keys(), OfSystem<KeyUnitRow>(session))
                      .Largest(&KeyUnitRow::UnitIDNumber);
    const auto issue = [&](const QString& unit) {
        if (existing.contains(Padded(unit, kUnitWidth)))
            return false;
        AddUnit(session, keyID, unit, high);
        ++issued.count;
        issued.lastUnit = unit;
        return true;
    };
    if (!run && !issue(first))
        issued.outcome = Issued::Outcome::Exists;
    for (int number = IntVal(first); run && number <= IntVal(last); ++number)
        issue(QString::number(number));
    transaction.Commit();
    return issued;
}

UnitDone AssignUnit(Session& session, const QString& keyID, const QString& unit,
                    const KeyUsersRow& holder) {
    if (unit.endsWith(QLatin1String("LOST!")))
        return UnitDone::Lost;
    if (!session.SessionPermissions.AddEditKeyUsers)
        return UnitDone::NoRight;
    Database& keys = session.Keys();
    Transaction transaction(keys);
    if (!FindHolder(session, holder.UserIDNumber))
        return UnitDone::NoHolder;
    const QString plain = unit.endsWith(kReturned) ? unit.chopped(kReturned.size()) : unit;
    auto row = Recordset<KeyUnitRow>(keys, OfKey<KeyUnitRow>(session, keyID)
                                               .Where(&KeyUnitRow::UnitID, unit)
                                               .OrderBy(&KeyUnitRow::UnitIDNumber))
                   .First();
    if (!row || IsHeld(session, keyID, plain))
        return UnitDone::Changed;
    UsertoUnitRow held;
    held.UTUID = static_cast<int>(Recordset<UsertoUnitRow>(keys, OfSystem<UsertoUnitRow>(session))
                                      .Largest(&UsertoUnitRow::UTUID) +
                                  1);
    held.KeyID = Padded(keyID, kKeyIDWidth);
    held.UnitID = plain;
    held.UserID = holder.UserIDNumber;
    held.UserIDDouble = holder.UserIDDouble;
    held.KeyUsersID = DayNumber(session.clock().date());
    held.SystemNumber = session.ActiveSystemNumber;
    Recordset<UsertoUnitRow>::Add(keys, held);
    row->UnitID = plain;
    Recordset<KeyUnitRow>::Update(keys, *row);
    transaction.Commit();
    return UnitDone::Done;
}

std::vector<KeyUsersRow> HoldersOfLine(Session& session, const QString& line) {
    std::vector<KeyUsersRow> holders;
    Recordset<HolderNameRow>(session.Keys(), OfSystem<HolderNameRow>(session))
        .Walk([&](const HolderNameRow& row) {
            if (line.contains(QStringLiteral(" - ") + TextOf(row)))
                if (auto holder = FindHolder(session, row.UserIDNumber))
                    holders.push_back(*holder);
            return true;
        });
    return holders;
}

UnitDone TakeBackUnit(Session& session, const QString& keyID, const QString& line,
                      const KeyUsersRow& holder, const QString& note, bool lost) {
    if (!session.SessionPermissions.AddEditKeyUsers)
        return UnitDone::NoRight;
    Database& keys = session.Keys();
    Transaction transaction(keys);
    std::optional<QString> unit;
    for (const UsertoUnitRow& row :
         Recordset<UsertoUnitRow>(keys, OfKey<UsertoUnitRow>(session, keyID)
                                            .OrderBy(&UsertoUnitRow::KeyID)
                                            .OrderBy(&UsertoUnitRow::UnitID))
             .Rows()) {
        if (!line.startsWith(row.UnitID + QStringLiteral(" - ") + row.UserID))
            continue;
        Recordset<UsertoUnitRow>(keys, Query<UsertoUnitRow>().WhereKey(row.key)).DeleteAll();
        unit = row.UnitID;
    }
    if (!unit)
        return UnitDone::Changed;
    if (lost)
        AddToLog(session, &LostKeysRow::LostID, keyID, *unit, holder, note);
    else
        AddToLog(session, &ReturnKeyRow::ReturnID, keyID, *unit, holder, note);
    auto row = Recordset<KeyUnitRow>(keys, OfKey<KeyUnitRow>(session, keyID)
                                               .Where(&KeyUnitRow::UnitID, *unit)
                                               .OrderBy(&KeyUnitRow::UnitIDNumber))
                   .First();
    if (row) {
        row->UnitID = *unit + (lost ? kLost : kReturned);
        Recordset<KeyUnitRow>::Update(keys, *row);
    }
    transaction.Commit();
    return UnitDone::Done;
}

UnitDone DeleteUnit(Session& session, const QString& keyID, const QString& unit) {
    if (!session.SessionPermissions.AddEditKeyUsers)
        return UnitDone::NoRight;
    Database& keys = session.Keys();
    Transaction transaction(keys);
    if (IsHeld(session, keyID, unit))
        return UnitDone::Changed;
    for (const UsertoUnitRow& row :
         Recordset<UsertoUnitRow>(keys, OfKey<UsertoUnitRow>(session, keyID)).Rows())
        if (SameUnit(row.UnitID, unit))
            Recordset<UsertoUnitRow>(keys, Query<UsertoUnitRow>().WhereKey(row.key)).DeleteAll();
    bool found = false;
    for (const KeyUnitRow& row :
         Recordset<KeyUnitRow>(keys, OfKey<KeyUnitRow>(session, keyID)).Rows())
        if (SameUnit(row.UnitID, unit)) {
            Recordset<KeyUnitRow>(keys, Query<KeyUnitRow>().WhereKey(row.key)).DeleteAll();
            found = true;
        }
    if (!found)
        return UnitDone::Changed;
    transaction.Commit();
    return UnitDone::Done;
}

} // namespace quorrel
