#pragma once

#include "platform/Table.h"

/// \file
/// Tables of the key systems themselves: their definition, keys and named keys.

namespace quorrel {

/// Characters of a Key ID, wherever one is stored.
inline constexpr int kKeyIDWidth = 12;

/// Characters of a department's name, wherever one is stored.
inline constexpr int kDepartmentWidth = 34;

/// The `Label` of a key without a Key ID.
inline const QString kUnnamed(19, u' ');

/// One key system.
struct KeySystemRow {
    using Self = KeySystemRow;
    RowKey key = 0;
    int SystemID = 0; ///< `SystemNumber` in all other tables
    QString SystemName;
    QString Address;
    QString LockBrand;
    int SafetyFactor = 0; ///< 2 to 9
    int NumberOfPins = 0; ///< 4 to 7
    int PinIncrement = 0; ///< 1 to 4
    QString Notes;
    QString MasterKey; ///< scrambled
    QString MapFile;   ///< path of the map file; empty: the default
    int MapFileID = 0; ///< number the maps are filed under; 0: `SystemID`

    static constexpr const char* kTable = "KeySystem";
    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(SystemID),     QUORREL_COLUMN(SystemName),
                          QUORREL_COLUMN(Address),      QUORREL_COLUMN(LockBrand),
                          QUORREL_COLUMN(SafetyFactor), QUORREL_COLUMN(NumberOfPins),
                          QUORREL_COLUMN(PinIncrement), QUORREL_COLUMN(Notes),
                          QUORREL_COLUMN(MasterKey),    QUORREL_COLUMN(MapFile),
                          QUORREL_COLUMN(MapFileID)};
    }
};

/// The highest `SystemID` that was ever given in the file, one row: no number is given twice.
struct NumbersGivenRow {
    using Self = NumbersGivenRow;
    RowKey key = 0;
    int Highest = 0;

    static constexpr const char* kTable = "NumbersGiven";
    static constexpr auto Columns() { return std::tuple{QUORREL_COLUMN(Highest)}; }
};

/// One key of a system.
struct PatternsRow {
    using Self = PatternsRow;
    RowKey key = 0;
    int SystemNumber = 0;
    int PageNumber = 0; ///< from 1
    int Position = 0;   ///< 0 to 108, or 190 and 200
    double Serial = 0;  ///< running number; pages are read in its order
    QString Cuts;       ///< scrambled: N digits and the mark
    bool Master = false;
    QString Label;       ///< the Key ID; 19 blanks when unnamed
    QString Description; ///< 16 blanks when empty
    QString Department;  ///< 7 blanks when none
    QString KeyWay;      ///< 8 blanks when none
    QString AlphaCode;   ///< despite its name the date of the label

    static constexpr const char* kTable = "Patterns";
    static constexpr auto Columns() {
        return std::tuple{
            QUORREL_COLUMN(SystemNumber), QUORREL_COLUMN(PageNumber),  QUORREL_COLUMN(Position),
            QUORREL_COLUMN(Serial),       QUORREL_COLUMN(Cuts),        QUORREL_COLUMN(Master),
            QUORREL_COLUMN(Label),        QUORREL_COLUMN(Description), QUORREL_COLUMN(Department),
            QUORREL_COLUMN(KeyWay),       QUORREL_COLUMN(AlphaCode)};
    }
};

/// One named key: the quick list behind the lists of Key IDs.
struct AllKeysRow {
    using Self = AllKeysRow;
    RowKey key = 0;
    int SystemNumber = 0;
    QString KeyID;      ///< padded to 12
    QString KeyWay;     ///< padded to 9
    QString Cuts;       ///< scrambled
    QString CustomCuts; ///< despite its name the date of the label
    int PageNumber = 0;
    int Position = 0;

    static constexpr const char* kTable = "AllKeys";
    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(SystemNumber), QUORREL_COLUMN(KeyID),
                          QUORREL_COLUMN(KeyWay),       QUORREL_COLUMN(Cuts),
                          QUORREL_COLUMN(CustomCuts),   QUORREL_COLUMN(PageNumber),
                          QUORREL_COLUMN(Position)};
    }
};

/// Pin sizes of a lock brand, for each cut 0 to 9.
struct ManufacturerRow {
    using Self = ManufacturerRow;
    RowKey key = 0;
    QString Name; ///< two leading blanks hide it from the lists
    QString Bottom0;
    QString Bottom1;
    QString Bottom2;
    QString Bottom3;
    QString Bottom4;
    QString Bottom5;
    QString Bottom6;
    QString Bottom7;
    QString Bottom8;
    QString Bottom9;
    QString Top0;
    QString Top1;
    QString Top2;
    QString Top3;
    QString Top4;
    QString Top5;
    QString Top6;
    QString Top7;
    QString Top8;
    QString Top9;

    static constexpr const char* kTable = "Manufacturer";
    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(Name),    QUORREL_COLUMN(Bottom0), QUORREL_COLUMN(Bottom1),
                          QUORREL_COLUMN(Bottom2), QUORREL_COLUMN(Bottom3), QUORREL_COLUMN(Bottom4),
                          QUORREL_COLUMN(Bottom5), QUORREL_COLUMN(Bottom6), QUORREL_COLUMN(Bottom7),
                          QUORREL_COLUMN(Bottom8), QUORREL_COLUMN(Bottom9), QUORREL_COLUMN(Top0),
                          QUORREL_COLUMN(Top1),    QUORREL_COLUMN(Top2),    QUORREL_COLUMN(Top3),
                          QUORREL_COLUMN(Top4),    QUORREL_COLUMN(Top5),    QUORREL_COLUMN(Top6),
                          QUORREL_COLUMN(Top7),    QUORREL_COLUMN(Top8),    QUORREL_COLUMN(Top9)};
    }
};

/// What lists show of a named key: a part of the table's columns.
struct NamedKeyRow {
    using Self = NamedKeyRow;
    using Whole = PatternsRow;
    RowKey key = 0;
    int PageNumber = 0;
    int Position = 0;
    QString Label;
    QString Department;
    QString Description;

    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(PageNumber), QUORREL_COLUMN(Position),
                          QUORREL_COLUMN(Label), QUORREL_COLUMN(Department),
                          QUORREL_COLUMN(Description)};
    }
};

/// A named key and its cuts: a part of the quick list.
struct NamedCutsRow {
    using Self = NamedCutsRow;
    using Whole = AllKeysRow;
    RowKey key = 0;
    QString KeyID;
    QString Cuts;

    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(KeyID), QUORREL_COLUMN(Cuts)};
    }
};

} // namespace quorrel
