#pragma once

#include "platform/Table.h"

/// \file
/// Tables of doors, their cross-keying and the departments.

namespace quorrel {

/// Colour of a door's target on its map unless another was chosen: cyan, in blue-green-red order.
inline constexpr int kTargetColour = 0xFFFF00;

/// Step from the `DoorID`s of one system to those of the next.
inline constexpr int kDoorIDStep = 10000;

/// One door.
struct DoorsRow {
    using Self = DoorsRow;
    RowKey key = 0;
    double DoorID = 0; ///< SystemNumber x 10000 + running number
    int SystemNumber = 0;
    QString DoorLabel;
    QString DoorDescription;
    QString DoorLocation;
    QString CutsLabel; ///< Key ID; 8 blanks at add, 7 after removal
    QString Text1;     ///< hardware type
    QString Text2;     ///< details of the hardware
    int Sing1 = 0;     ///< colour of the map target
    int Sing2 = 0;     ///< 1 once keyed
    int Long1 = 0;     ///< yyyymmdd of the first save as keyed
    bool Crosskeyed = false;
    double Coordx = 0; ///< 0: not placed
    double CoordY = 0;
    int LinkMapID = 0; ///< 0: none

    static constexpr const char* kTable = "Doors";
    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(DoorID),       QUORREL_COLUMN(SystemNumber),
                          QUORREL_COLUMN(DoorLabel),    QUORREL_COLUMN(DoorDescription),
                          QUORREL_COLUMN(DoorLocation), QUORREL_COLUMN(CutsLabel),
                          QUORREL_COLUMN(Text1),        QUORREL_COLUMN(Text2),
                          QUORREL_COLUMN(Sing1),        QUORREL_COLUMN(Sing2),
                          QUORREL_COLUMN(Long1),        QUORREL_COLUMN(Crosskeyed),
                          QUORREL_COLUMN(Coordx),       QUORREL_COLUMN(CoordY),
                          QUORREL_COLUMN(LinkMapID)};
    }
};

/// Key IDs that also open a cross-keyed door.
struct CrossKeyedRow {
    using Self = CrossKeyedRow;
    RowKey key = 0;
    int SystemNumber = 0;
    double DoorID = 0;
    QString KeyID1;
    QString KeyID2;
    QString KeyID3;
    QString KeyID4;
    QString KeyID5;
    QString KeyID6;

    static constexpr const char* kTable = "CrossKeyed";
    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(SystemNumber), QUORREL_COLUMN(DoorID),
                          QUORREL_COLUMN(KeyID1),       QUORREL_COLUMN(KeyID2),
                          QUORREL_COLUMN(KeyID3),       QUORREL_COLUMN(KeyID4),
                          QUORREL_COLUMN(KeyID5),       QUORREL_COLUMN(KeyID6)};
    }
};

/// One department of a system.
struct DepartmentRow {
    using Self = DepartmentRow;
    RowKey key = 0;
    QString Department;
    int SystemNumber = 0;

    static constexpr const char* kTable = "Department";
    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(Department), QUORREL_COLUMN(SystemNumber)};
    }
};

/// Legend texts of a system's maps. The field names say nothing of their use.
struct ActivityRow {
    using Self = ActivityRow;
    RowKey key = 0;
    QString Form;
    QString LoggedUser;
    QString Value1;
    QString Value2;
    QString Value3;
    QString Value4;
    QString Value5;
    QString Value6;
    int SystemNumber = 0;

    static constexpr const char* kTable = "Activity";
    static constexpr auto Columns() {
        return std::tuple{
            QUORREL_COLUMN(Form),   QUORREL_COLUMN(LoggedUser), QUORREL_COLUMN(Value1),
            QUORREL_COLUMN(Value2), QUORREL_COLUMN(Value3),     QUORREL_COLUMN(Value4),
            QUORREL_COLUMN(Value5), QUORREL_COLUMN(Value6),     QUORREL_COLUMN(SystemNumber)};
    }
};

/// One location map.
struct MapRow {
    using Self = MapRow;
    RowKey key = 0;
    int MapID = 0;
    QString MapName;
    QString MapPath;
    int MapParentID = 0;
    double ParentX = 0;
    double ParentY = 0;
    int SystemNumber = 0;
    int MapAbove = 0;
    int MapBelow = 0;
    int Int1 = 0;
    int Int2 = 0;
    double Sng1 = 0;
    double Sng2 = 0;
    int Lng1 = 0;
    int Lng2 = 0;
    QString Text1;
    QString Text2;

    static constexpr const char* kTable = "Map";
    static constexpr auto Columns() {
        return std::tuple{
            QUORREL_COLUMN(MapID),        QUORREL_COLUMN(MapName),  QUORREL_COLUMN(MapPath),
            QUORREL_COLUMN(MapParentID),  QUORREL_COLUMN(ParentX),  QUORREL_COLUMN(ParentY),
            QUORREL_COLUMN(SystemNumber), QUORREL_COLUMN(MapAbove), QUORREL_COLUMN(MapBelow),
            QUORREL_COLUMN(Int1),         QUORREL_COLUMN(Int2),     QUORREL_COLUMN(Sng1),
            QUORREL_COLUMN(Sng2),         QUORREL_COLUMN(Lng1),     QUORREL_COLUMN(Lng2),
            QUORREL_COLUMN(Text1),        QUORREL_COLUMN(Text2)};
    }
};

/// What lists show of a door and of the key that opens it: a part of the table's columns.
struct KeyedDoorRow {
    using Self = KeyedDoorRow;
    using Whole = DoorsRow;
    RowKey key = 0;
    QString DoorLabel;
    QString DoorDescription;
    QString CutsLabel;
    bool Crosskeyed = false;

    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(DoorLabel), QUORREL_COLUMN(DoorDescription),
                          QUORREL_COLUMN(CutsLabel), QUORREL_COLUMN(Crosskeyed)};
    }
};

/// The hardware of a door alone.
struct DoorHardwareRow {
    using Self = DoorHardwareRow;
    using Whole = DoorsRow;
    RowKey key = 0;
    QString Text1;

    static constexpr auto Columns() { return std::tuple{QUORREL_COLUMN(Text1)}; }
};

} // namespace quorrel
