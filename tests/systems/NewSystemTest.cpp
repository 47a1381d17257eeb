#include "engine/Patterns.h"
#include "engine/Preview.h"
#include "store/DatabaseFiles.h"
#include "store/DoorTables.h"
#include "store/Scramble.h"
#include "store/SystemTables.h"
#include "support/TestProgram.h"

#include "platform/Recordset.h"

namespace quorrel::test {
namespace {

std::vector<PatternsRow> PatternsOf(Session& session, int systemID) {
    return Recordset<PatternsRow>(session.Keys(), Query<PatternsRow>()
                                                      .Where(&PatternsRow::SystemNumber, systemID)
                                                      .OrderBy(&PatternsRow::Serial))
        .Rows();
}

TEST(CheckNewSystem, RefusesWhatCannotBeCreated) {
    TestProgram program;
    CreateKeySystem(program.session, StandardSystem("Town Hall", "2715"));
    const auto refusal = [&](auto&& change) {
        NewSystem system = StandardSystem("New", "395172");
        change(system);
        const auto refused = CheckNewSystem(program.session, system);
        EXPECT_EQ(ListKeySystems(program.session).size(), 1U);
        EXPECT_TRUE(!refused || !refused->text.isEmpty());
        return refused ? std::optional(refused->field) : std::nullopt;
    };
    using Field = Refusal::Field;
    EXPECT_EQ(refusal([](NewSystem&) {}), std::nullopt);
    EXPECT_EQ(refusal([](NewSystem& s) { s.name = ""; }), Field::Name);
    EXPECT_EQ(refusal([](NewSystem& s) { s.name = "   "; }), Field::Name);
    EXPECT_EQ(refusal([](NewSystem& s) { s.name = " town hall "; }), Field::Name);
    const auto number = [&](int SystemDefinition::*field, int value) {
        return refusal([=](NewSystem& s) { s.definition.*field = value; });
    };
    EXPECT_EQ(number(&SystemDefinition::pins, 3), Field::Pins);
    EXPECT_EQ(number(&SystemDefinition::pins, 2147483647), Field::Pins);
    EXPECT_EQ(number(&SystemDefinition::minPin, -2147483647), Field::MinimumPin);
    EXPECT_EQ(number(&SystemDefinition::maxPin, 10), Field::MaximumPin);
    EXPECT_EQ(number(&SystemDefinition::increment, 0), Field::Increment);
    EXPECT_EQ(number(&SystemDefinition::increment, -1), Field::Increment);
    EXPECT_EQ(number(&SystemDefinition::safetyFactor, 1), Field::SafetyFactor);
    EXPECT_EQ(refusal([](NewSystem& s) { s.definition.pins = 5; }), Field::Master);
    EXPECT_EQ(refusal([](NewSystem& s) { s.definition.master = "39517x"; }), Field::Master);
    EXPECT_EQ(refusal([](NewSystem& s) { s.definition.master = " 95172"; }), Field::Master);
    const auto angled = [](const char* angles) {
        return [angles](NewSystem& s) {
            s.type = SystemType::AngledCut;
            s.special = QString::fromLatin1(angles);
        };
    };
    EXPECT_EQ(refusal(angled("")), Field::Angle);
    EXPECT_EQ(refusal(angled("12345")), Field::Angle);
    EXPECT_EQ(refusal(angled("12345L")), Field::Angle);
    EXPECT_EQ(refusal(angled("123456")), std::nullopt);
    const auto core = [](const char* control) {
        return [control](NewSystem& s) {
            s.type = SystemType::ICCore23;
            s.special = QString::fromLatin1(control);
        };
    };
    EXPECT_EQ(refusal(core("")), Field::Control);
    EXPECT_EQ(refusal(core("395172")), Field::Control) << "the master key would draw every core";
    EXPECT_EQ(refusal(core("395170")), std::nullopt);
    EXPECT_EQ(refusal(angled("395172")), std::nullopt);
    // Ten cuts, none of them the master's, on each of three positions: too many pages.
    EXPECT_EQ(refusal([](NewSystem& s) { s.definition.increment = 1; }), Field::Master);
    // The only cut of every position is the master's.
    EXPECT_EQ(refusal([](NewSystem& s) { s.definition = Definition("444444", 4, 5, 4); }),
              Field::MinimumPin);
}

TEST(CheckNewSystem, SaysWhatANumberCanBe) {
    TestProgram program;
    NewSystem system = StandardSystem("New", "395172");
    system.definition.increment = 0;
    EXPECT_EQ(CheckNewSystem(program.session, system)->text,
              "Increment: the number can be 1 to 4, and it is 0.");
}

TEST(CreateKeySystem, WritesTheKnownSystemsAsThePreviewCountsThem) {
    TestProgram program;
    for (const auto& [master, low, high, increment, rows] :
         {std::tuple{"395172", 0, 9, 2, 64 * 104 + 64 + 16 + 4 + 1},
          std::tuple{"31524", 1, 5, 1, 16 * 104 + 16 + 4 + 1},
          std::tuple{"2715", 0, 9, 2, 4 * 104 + 1}}) {
        NewSystem system = StandardSystem(QString::fromLatin1(master), master);
        system.definition = Definition(master, low, high, increment);
        const int id = CreateKeySystem(program.session, system).SystemID;
        EXPECT_EQ(ContentsOf(program.session, id).keys, rows) << master;
        std::vector<int> perPage(CountUsableKeys(system.definition).perPage.size(), 0);
        for (const PatternsRow& row : PatternsOf(program.session, id))
            if (!row.Master)
                ++perPage.at(static_cast<std::size_t>(row.PageNumber - 1));
        EXPECT_EQ(perPage, CountUsableKeys(system.definition).perPage) << master;
    }
}

TEST(CreateKeySystem, StoresTheDefinitionAndEveryKeyOfIt) {
    TestProgram program;
    NewSystem system = StandardSystem(QString::fromUtf8(" \u00c9cole d'Art "), "31524");
    system.address = "1, High Street";
    system.lockBrand = "Quayside";
    system.notes = "100%";
    system.type = SystemType::ICCore23;
    system.special = "24135";
    system.definition = Definition("31524", 1, 5, 1, 3);
    const int id = CreateKeySystem(program.session, system).SystemID;

    const auto stored = ListKeySystems(program.session);
    ASSERT_EQ(stored.size(), 1U);
    EXPECT_EQ(stored[0].SystemID, id);
    EXPECT_EQ(stored[0].SystemName, QString::fromUtf8("\u00c9cole d'Art"));
    EXPECT_EQ(stored[0].Address, "1, High Street");
    EXPECT_EQ(stored[0].LockBrand, "Quayside");
    EXPECT_EQ(stored[0].Notes, "100%");
    EXPECT_EQ(stored[0].SafetyFactor, 3);
    EXPECT_EQ(stored[0].NumberOfPins, 5);
    EXPECT_EQ(stored[0].PinIncrement, 1);
    EXPECT_EQ(stored[0].MasterKey, Scrambled("31524"));
    EXPECT_EQ(stored[0].MapFile, "");
    EXPECT_EQ(stored[0].MapFileID, 0);

    const auto rows = PatternsOf(program.session, id);
    std::size_t next = 0;
    GeneratePatterns(system.definition, system.type, "24135", [&](const Pattern& key) {
        ASSERT_LT(next, rows.size());
        const PatternsRow& row = rows[next++];
        EXPECT_EQ(row.Cuts, Scrambled(QString::fromStdString(key.text)));
        EXPECT_EQ(row.PageNumber, key.page);
        EXPECT_EQ(row.Position, key.position);
        EXPECT_EQ(row.Serial, static_cast<double>(key.serial));
        EXPECT_EQ(row.Master, key.master);
    });
    EXPECT_EQ(next, rows.size());
    EXPECT_EQ(rows.back().Position, 200);
    for (const PatternsRow& row : {rows.front(), rows[700], rows.back()}) {
        EXPECT_EQ(row.Label, QString(19, u' '));
        EXPECT_EQ(row.Description, QString(16, u' '));
        EXPECT_EQ(row.Department, QString(7, u' '));
        EXPECT_EQ(row.KeyWay, QString(8, u' '));
        EXPECT_EQ(row.AlphaCode, "");
    }
}

TEST(CreateKeySystem, AFullDiskLeavesNothingBehind) {
    TestProgram program;
    Database& keys = program.session.Keys();
    CreateKeySystem(program.session, StandardSystem("Old", "2715"));
    const qint64 pages = keys.Number("PRAGMA page_count");
    keys.Execute("PRAGMA max_page_count = " + std::to_string(pages + 40));
    try {
        CreateKeySystem(program.session, StandardSystem("Large", "3951728"));
        ADD_FAILURE() << "Written to a full disk";
    } catch (const DatabaseError& error) {
        EXPECT_EQ(error.kind(), DatabaseError::Kind::Full);
        EXPECT_NE(std::string(error.what()).find("no room left"), std::string::npos);
    }
    EXPECT_EQ(ListKeySystems(program.session).size(), 1U);
    EXPECT_EQ(Recordset<PatternsRow>(keys).Count(), 4 * 104 + 1);
    keys.Execute("PRAGMA max_page_count = 1000000");
    EXPECT_EQ(CreateKeySystem(program.session, StandardSystem("Next", "2715")).SystemID, 2);
    EXPECT_EQ(keys.Number("SELECT COUNT(*) FROM pragma_integrity_check WHERE "
                          "integrity_check = 'ok'"),
              1);
}

TEST(CreateKeySystem, ANameTakenMeanwhileIsRefused) {
    TestProgram program;
    CreateKeySystem(program.session, StandardSystem("Depot", "2715"));
    EXPECT_THROW(CreateKeySystem(program.session, StandardSystem("DEPOT ", "31524")),
                 NameTakenError);
    EXPECT_EQ(ListKeySystems(program.session).size(), 1U);
    EXPECT_EQ(Recordset<PatternsRow>(program.session.Keys()).Count(), 4 * 104 + 1);
}

/// Numbers that systems get one after the other.
class SystemNumbers : public testing::Test {
protected:
    int Create() {
        const QString name = QStringLiteral("System %1").arg(++m_created);
        return CreateKeySystem(session, StandardSystem(name, "2715")).SystemID;
    }

    void DeleteLast() { DeleteKeySystem(session, ListKeySystems(session).back()); }

    void FileAMap(int number) {
        MapRow map;
        map.MapID = number;
        map.SystemNumber = number;
        Recordset<MapRow>::Add(*Database::Open(program.PathOf(kMapFile), kMapKind), map);
    }

    TestProgram program;
    Session& session = program.session;

private:
    int m_created = 0;
};

TEST_F(SystemNumbers, NoneIsGivenTwice) {
    EXPECT_EQ(Create(), 1);
    EXPECT_EQ(Create(), 2);
    DeleteLast();
    EXPECT_EQ(Create(), 3) << "the highest one was free";
    DeleteLast();
    DeleteLast();
    EXPECT_EQ(Create(), 4) << "there was no system left";
    // Earlier programs left rows and maps behind, and a system may use another's maps.
    session.Keys().Execute("INSERT INTO Doors (SystemNumber) VALUES (6)");
    EXPECT_EQ(Create(), 7);
    FileAMap(9);
    EXPECT_EQ(Create(), 10);
    session.Keys().Execute("UPDATE KeySystem SET MapFileID = 12");
    EXPECT_EQ(Create(), 13);
    session.Keys().Execute("DELETE FROM NumbersGiven");
    DeleteLast();
    EXPECT_EQ(Create(), 14) << "deleting keeps the number of a system of an earlier program";
}

TEST_F(SystemNumbers, WhatIsNoNumberDoesNotCountAndTheLastOneIsTold) {
    session.Keys().Execute("INSERT INTO Doors (SystemNumber) VALUES (9000000000), ('x'), (-4)");
    FileAMap(70000);
    EXPECT_EQ(Create(), 1);
    session.Keys().Execute("INSERT INTO Doors (SystemNumber) VALUES (32766)");
    EXPECT_EQ(Create(), 32767);
    EXPECT_THROW(Create(), std::runtime_error);
    EXPECT_EQ(ListKeySystems(session).size(), 2U);
}

} // namespace
} // namespace quorrel::test
