#include "search/SearchLists.h"

#include "holders/KeyUnits.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/OfSystem.h"
#include "store/SystemTables.h"

#include <QHash>
#include <QStringBuilder>

namespace quorrel {

namespace {

const QString kGap(2, u' ');

/// What lists tell of a door.
struct SearchedDoor {
    using Self = SearchedDoor;
    using Whole = DoorsRow;
    RowKey key = 0;
    QString DoorLabel;
    QString DoorDescription;
    QString DoorLocation;
    QString CutsLabel;
    bool Crosskeyed = false;

    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(DoorLabel), QUORREL_COLUMN(DoorDescription),
                          QUORREL_COLUMN(DoorLocation), QUORREL_COLUMN(CutsLabel),
                          QUORREL_COLUMN(Crosskeyed)};
    }

    DoorSearchLine Line(const QString& text) const {
        return {text, key, DoorLabel, CutsLabel, Crosskeyed};
    }
};

struct DepartmentKey {
    using Self = DepartmentKey;
    using Whole = PatternsRow;
    RowKey key = 0;
    QString Label;
    QString Department;

    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(Label), QUORREL_COLUMN(Department)};
    }
};

struct IssuedUnit {
    using Self = IssuedUnit;
    using Whole = KeyUnitRow;
    RowKey key = 0;
    QString KeyID;
    QString UnitID;

    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(KeyID), QUORREL_COLUMN(UnitID)};
    }
};

struct UnitInHand {
    using Self = UnitInHand;
    using Whole = UsertoUnitRow;
    RowKey key = 0;
    QString KeyID;
    QString UnitID;
    QString UserID;

    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(KeyID), QUORREL_COLUMN(UnitID), QUORREL_COLUMN(UserID)};
    }

    QString Text() const { return KeyID + kGap + UnitID; }
};

/// Doors are those of the system under whose number the maps are filed.
template <class Visit>
void WalkSearchedDoors(Session& session, Visit&& visit) {
    Recordset<SearchedDoor>(
        session.Keys(), Query<DoorsRow>().Where(&DoorsRow::SystemNumber, session.MapFilingNumber))
        .Walk([&](const SearchedDoor& door) {
            visit(door);
            return true;
        });
}

QString TextOf(const SearchedDoor& door, DoorColumn column) {
    switch (column) {
    case DoorColumn::Location:
        return door.DoorLocation;
    case DoorColumn::Description:
        return door.DoorDescription;
    case DoorColumn::DoorID:
    case DoorColumn::Department:
        break;
    }
    return door.DoorLabel;
}

QString TextOf(const HolderNameRow& holder, HolderColumn column) {
    switch (column) {
    case HolderColumn::LastName:
        return holder.Lastname;
    case HolderColumn::FirstName:
        return holder.Firstname;
    case HolderColumn::UserID:
        break;
    }
    return holder.UserIDNumber;
}

QString LineOf(const HolderNameRow& holder, HolderColumn column) {
    switch (column) {
    case HolderColumn::LastName:
        return holder.UserIDNumber % u" - " % holder.Lastname % u' ' % holder.Firstname % u' ' %
               holder.Department;
    case HolderColumn::FirstName:
        return holder.UserIDNumber % u" - " % holder.Firstname % u' ' % holder.Lastname % u' ' %
               holder.Department;
    case HolderColumn::UserID:
        break;
    }
    return holder.UserIDNumber % u' ' % holder.Lastname % u' ' % holder.Firstname % u" - " %
           holder.Department;
}

template <class Visit>
void WalkHolders(Session& session, Visit&& visit) {
    Recordset<HolderNameRow>(session.Keys(), OfSystem<HolderNameRow>(session))
        .Walk([&](const HolderNameRow& holder) {
            visit(holder);
            return true;
        });
}

/// The part of a unit's text before what became of it.
QString Number(const QString& unit) {
    const auto fate = unit.indexOf(u"***");
    return fate < 0 ? unit : unit.left(fate);
}

} // namespace

std::vector<DoorSearchLine> SearchDoorsBy(Session& session, DoorColumn column,
                                          const QString& text) {
    const QString upper = text.toUpper();
    std::vector<DoorSearchLine> lines;
    WalkSearchedDoors(session, [&](const SearchedDoor& door) {
        const QString searched = TextOf(door, column);
        if (BeginsWith(searched, upper))
            lines.push_back(door.Line(
                column == DoorColumn::DoorID ? searched : searched + kGap + door.DoorLabel));
    });
    return lines;
}

std::vector<DoorSearchLine> DoorsByDepartment(Session& session) {
    QHash<QString, std::vector<SearchedDoor>> doorsOfKey;
    WalkSearchedDoors(session, [&](const SearchedDoor& door) {
        if (!IsNoValue(door.CutsLabel))
            doorsOfKey[Padded(door.CutsLabel, kKeyIDWidth)].push_back(door);
    });
    QHash<QString, QStringList> keysOfDepartment;
    Recordset<DepartmentKey>(session.Keys(), OfSystem<DepartmentKey>(session)
                                                 .WhereNot(&PatternsRow::Label, kUnnamed)
                                                 .OrderBy(&PatternsRow::PageNumber)
                                                 .OrderBy(&PatternsRow::Position))
        .Walk([&](const DepartmentKey& key) {
            if (!IsNoValue(key.Label))
                keysOfDepartment[RightTrimmed(key.Department)] += Padded(key.Label, kKeyIDWidth);
            return true;
        });
    std::vector<DoorSearchLine> lines;
    for (const QString& department : ListSearchDepartments(session)) {
        DoorSearchLine line;
        line.text = department;
        lines.push_back(line);
        for (const QString& keyID : keysOfDepartment.value(RightTrimmed(department)))
            for (const SearchedDoor& door : doorsOfKey.value(keyID))
                lines.push_back(door.Line(kGap + door.DoorLabel + kGap + door.DoorDescription));
    }
    return lines;
}

QStringList ListSearchDepartments(Session& session) {
    QStringList departments;
    Recordset<DepartmentRow>(session.Keys(), OfSystem<DepartmentRow>(session))
        .Walk([&](const DepartmentRow& row) {
            if (!IsNoValue(row.Department))
                departments += row.Department;
            return true;
        });
    return departments;
}

std::vector<UnitLine> UnitsOfHolder(Session& session, const QString& number) {
    std::vector<UnitLine> lines;
    Recordset<UnitInHand>(session.Keys(),
                          OfSystem<UnitInHand>(session).Where(&UsertoUnitRow::UserID, number))
        .Walk([&](const UnitInHand& unit) {
            lines.push_back({unit.Text(), unit.KeyID});
            return true;
        });
    return lines;
}

std::vector<UnitLine> UnitsOfDepartment(Session& session, const QString& department) {
    QHash<QString, std::vector<UnitInHand>> unitsOf;
    Recordset<UnitInHand>(session.Keys(), OfSystem<UnitInHand>(session))
        .Walk([&](const UnitInHand& unit) {
            unitsOf[unit.UserID].push_back(unit);
            return true;
        });
    std::vector<UnitLine> lines;
    WalkHolders(session, [&](const HolderNameRow& holder) {
        if (RightTrimmed(holder.Department) != RightTrimmed(department))
            return;
        for (const UnitInHand& unit : unitsOf.value(holder.UserIDNumber))
            lines.push_back({unit.Text() % u" - " % holder.UserIDNumber % u' ' % holder.Lastname %
                                 u' ' % holder.Firstname,
                             unit.KeyID});
    });
    return lines;
}

KeysOfUnit FindKeysOfUnit(Session& session, const QString& unitID) {
    KeysOfUnit found;
    Recordset<IssuedUnit>(session.Keys(),
                          OfSystem<IssuedUnit>(session).OrderBy(&KeyUnitRow::UnitIDNumber))
        .Walk([&](const IssuedUnit& unit) {
            if (unit.UnitID == unitID)
                found.keyIDs += unit.KeyID;
            const QString number = Number(unit.UnitID);
            if (number.isEmpty() || (number != unitID && unit.UnitID != unitID))
                return true;
            for (const auto& [end, fate] :
                 {std::pair(kLost, "lost"), std::pair(kReturned, "returned")})
                if (unit.UnitID.endsWith(end))
                    found.fates += QStringLiteral("Unit %1 of %2 is recorded as %3")
                                       .arg(Named(number), Named(unit.KeyID), QLatin1String(fate));
            return true;
        });
    return found;
}

QString HighestUnit(Session& session) {
    QString highest;
    Recordset<IssuedUnit>(session.Keys(),
                          OfSystem<IssuedUnit>(session).OrderBy(&KeyUnitRow::UnitIDNumber))
        .WalkColumn(&KeyUnitRow::UnitID, [&](const QString& unit, RowKey) {
            const auto compared = Number(unit).size();
            if (QStringView(unit).left(compared) > QStringView(highest).left(compared))
                highest = unit;
        });
    return highest;
}

std::vector<ListedHolder> SearchHoldersBy(Session& session, HolderColumn column,
                                          const QString& text) {
    const QString upper = text.toUpper();
    std::vector<ListedHolder> lines;
    WalkHolders(session, [&](const HolderNameRow& holder) {
        if (BeginsWith(TextOf(holder, column), upper))
            lines.push_back({holder.key, holder.UserIDNumber, LineOf(holder, column)});
    });
    return lines;
}

} // namespace quorrel
