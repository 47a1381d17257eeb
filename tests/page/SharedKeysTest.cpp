#include "access/Departments.h"
#include "page/KeyRecord.h"
#include "platform/Recordset.h"
#include "store/Conflict.h"
#include "store/DoorTables.h"
#include "store/HolderTables.h"
#include "store/OfSystem.h"
#include "support/TestProgram.h"

namespace quorrel::test {
namespace {

/// A desk at which the first page of the system is on the screen.
class Desk {
public:
    explicit Desk(Session& session)
        : m_session(session), m_page(session), m_record(session, m_page) {
        m_page.LoadPageView();
    }

    void Select(int cell) { m_screen = m_record.Open(cell, false); }

    /// Types over boxes of the selected key and leaves it.
    bool Leave(const std::function<void(KeyRecordText&)>& type) {
        type(m_screen);
        return m_record.SaveKeyRecord(m_screen);
    }

    void Name(int cell, const QString& keyID) {
        Select(cell);
        EXPECT_TRUE(Leave([&](KeyRecordText& screen) { screen.keyID = keyID; }));
    }

    Session& m_session;
    PageView m_page;
    KeyRecord m_record;
    KeyRecordText m_screen;
};

/// Two workstations with the same page of the same system.
class SharedKeys : public testing::Test {
protected:
    void SetUp() override {
        program.CreateAndOpen(StandardSystem("Pier", "2715"));
        QString failure;
        ASSERT_TRUE(LoadStartupFiles(there, failure)) << failure.toStdString();
        there.SessionPermissions = program.session.SessionPermissions;
        OpenKeySystem(there, ListKeySystems(there).at(0));
        here = std::make_unique<Desk>(program.session);
        other = std::make_unique<Desk>(there);
    }

    /// Both desks show a key that has this Key ID.
    void ShowNamed(int cell, const QString& keyID) {
        here->Name(cell, keyID);
        for (Desk* desk : {here.get(), other.get()}) {
            desk->m_page.LoadPageView();
            desk->Select(cell);
        }
    }

    /// Leaves the key here with something typed that is in conflict with what is stored. Nothing
    /// may be written then.
    QString Conflict(const std::function<void(KeyRecordText&)>& type) {
        const QString before = Everything();
        QString told;
        try {
            here->Leave(type);
            ADD_FAILURE() << "Another workstation's work was undone unseen";
        } catch (const ChangedElsewhere& conflict) {
            told = QString::fromUtf8(conflict.what());
        }
        EXPECT_EQ(Everything(), before);
        return told;
    }

    /// All that is stored of keys, and the departments.
    QString Everything() {
        QString text;
        for (const PatternsRow& row : Recordset<PatternsRow>(program.session.Keys()).Rows())
            text += row.Label + '|' + row.KeyWay + '|' + row.Department + '|' + row.Description +
                    '|' + row.AlphaCode + '\n';
        for (const AllKeysRow& row : Recordset<AllKeysRow>(program.session.Keys()).Rows())
            text += row.KeyID + '|' + row.KeyWay + '|' + row.Cuts + '|' + row.CustomCuts + '\n';
        return text + QString::number(Recordset<DepartmentRow>(program.session.Keys()).Count());
    }

    PatternsRow Stored(int cell) {
        return *Recordset<PatternsRow>(program.session.Keys(),
                                       OfSystem<PatternsRow>(program.session)
                                           .Where(&PatternsRow::PageNumber, 1)
                                           .Where(&PatternsRow::Position, cell))
                    .First();
    }

    QStringList KeyIDs() {
        QStringList ids;
        for (const AllKeysRow& row : Recordset<AllKeysRow>(program.session.Keys()).Rows())
            ids += row.KeyID.trimmed();
        return ids;
    }

    TestProgram program;
    Session there{program.folder.path(), program.boxes, program.session.clock,
                  program.session.random};
    std::unique_ptr<Desk> here, other;
};

TEST_F(SharedKeys, AKeyThatWasNamedMeanwhileIsNotNamedAgain) {
    here->Select(6);
    other->Name(6, "THEIRS");
    const QString told = Conflict([](KeyRecordText& screen) {
        screen.keyID = "MINE";
        screen.description = "North gate";
        screen.department = "NEW";
    });
    EXPECT_TRUE(told.startsWith("The selected key (Change Key, page 1) has been changed"));
    EXPECT_TRUE(told.contains("MINE") && told.contains("North gate")) << "what was typed is kept";
    EXPECT_EQ(KeyIDs(), QStringList("THEIRS"));

    here->m_page.LoadPageView();
    here->Select(6);
    EXPECT_EQ(here->m_screen.keyID, "THEIRS");
}

TEST_F(SharedKeys, ADescriptionLeavesTheNameThatTheKeyHasByNow) {
    ShowNamed(6, "OLD");
    other->Name(6, "NEW");
    // By its new name it is issued and tied to a door.
    UsertoUnitRow unit;
    unit.SystemNumber = there.ActiveSystemNumber;
    unit.KeyID = "NEW         ";
    Recordset<UsertoUnitRow>::Add(there.Keys(), unit);
    EXPECT_TRUE(here->Leave([](KeyRecordText& screen) { screen.description = "North gate"; }));
    EXPECT_EQ(Stored(6).Label, "NEW         ");
    EXPECT_EQ(Stored(6).Description, "North gate");
    EXPECT_EQ(KeyIDs(), QStringList("NEW"));
    EXPECT_EQ(here->m_screen.keyID, "NEW") << "shown as it is now";
    EXPECT_EQ(here->m_page.Cell(6).keyLabel, "NEW");
    EXPECT_EQ(here->m_record.LastStored(),
              "Key ID NEW stored, with changes of another workstation");
}

TEST_F(SharedKeys, ChangesOfDifferentBoxesAreBothStored) {
    ShowNamed(6, "A1");
    EXPECT_TRUE(other->Leave([](KeyRecordText& screen) {
        screen.department = "STORES";
        screen.keyway = "KW";
    }));
    EXPECT_TRUE(here->Leave([](KeyRecordText& screen) { screen.keyID = "B1"; }));
    EXPECT_EQ(Stored(6).Label, "B1          ");
    EXPECT_EQ(Stored(6).Department, "STORES");
    const auto named = Recordset<AllKeysRow>(program.session.Keys()).Rows();
    ASSERT_EQ(named.size(), 1U);
    EXPECT_EQ(named[0].KeyID.trimmed(), "B1");
    EXPECT_EQ(named[0].KeyWay.trimmed(), "KW") << "both tables are in step";
}

TEST_F(SharedKeys, AChangeOfTheSameBoxIsTold) {
    ShowNamed(6, "A1");
    EXPECT_TRUE(other->Leave([](KeyRecordText& screen) { screen.description = "Theirs"; }));
    const QString told = Conflict([](KeyRecordText& screen) { screen.description = "Mine"; });
    EXPECT_TRUE(told.startsWith("Key ID A1 has been changed")) << told.toStdString();
    ShowNamed(7, "A2");
    other->Name(7, "B2");
    Conflict([](KeyRecordText& screen) { screen.keyID = "C2"; });
    ShowNamed(8, "A3");
    other->Name(8, "B3");
    Conflict([](KeyRecordText& screen) { screen.keyID = " "; }); // takes it away
}

TEST_F(SharedKeys, ADepartmentThatWasRenamedOrDeletedDoesNotComeBack) {
    ShowNamed(6, "A1");
    EXPECT_TRUE(here->Leave([](KeyRecordText& screen) { screen.department = "STORES"; }));
    EXPECT_EQ(here->m_record.Open(7, false).department, "STORES") << "offered to the next";
    for (const QString& by : {QString("KITCHEN"), QString()}) {
        here->Select(6);
        if (by.isEmpty())
            DeleteDepartment(there, "KITCHEN");
        else
            RenameDepartment(there, "STORES", by);
        EXPECT_TRUE(here->Leave([&](KeyRecordText& screen) { screen.description = "For " + by; }));
        EXPECT_EQ(Stored(6).Department.trimmed(), by);
        const QStringList known = here->m_page.ListDepartments();
        EXPECT_EQ(known.filter("STORES") + known.filter("KITCHEN"),
                  by.isEmpty() ? QStringList() : QStringList(by));
    }

    EXPECT_TRUE(here->Leave([](KeyRecordText& screen) { screen.department = "LINEN"; }));
    RenameDepartment(there, "LINEN", "LAUNDRY");
    EXPECT_EQ(here->m_record.Open(7, false).department, "LINEN") << "not known here yet";
    here->m_record.RefreshOffer(here->m_page.ListDepartments());
    EXPECT_EQ(here->m_record.Open(7, false).department, "LAUNDRY");
}

TEST_F(SharedKeys, AKeyThatHasLostItsNameGetsNoRecord) {
    ShowNamed(6, "A1");
    other->Name(6, " ");
    Conflict([](KeyRecordText& screen) { screen.description = "North gate"; });
    EXPECT_TRUE(KeyIDs().isEmpty());
    // Taking it away here as well is what holds already.
    EXPECT_TRUE(here->Leave([](KeyRecordText& screen) { screen.keyID = " "; }));
}

TEST_F(SharedKeys, GuardsAskByTheNameThatIsTakenAway) {
    ShowNamed(6, "A1");
    DoorsRow door;
    door.SystemNumber = there.MapFilingNumber;
    door.CutsLabel = "A1          ";
    Recordset<DoorsRow>::Add(there.Keys(), door);
    program.boxes.Expect("There are Doors Assigned to A1 - Delete all Assignments before");
    EXPECT_FALSE(here->Leave([](KeyRecordText& screen) { screen.keyID = "B1"; }));
    EXPECT_EQ(KeyIDs(), QStringList("A1"));
}

TEST_F(SharedKeys, AKeyOrSystemThatIsGoneIsTold) {
    ShowNamed(6, "A1");
    there.Keys().Execute("DELETE FROM Patterns WHERE PageNumber = 1 AND Position = 6");
    const QString told = Conflict([](KeyRecordText& screen) { screen.keyID = "B1"; });
    EXPECT_TRUE(told.startsWith("Key ID A1 is no longer in the file"));
    DeleteKeySystem(there, ListKeySystems(there).front());
    CreateKeySystem(there, StandardSystem("School", "2715"));
    here->Select(7);
    EXPECT_THROW(here->Leave([](KeyRecordText& screen) { screen.keyID = "B1"; }), SystemGone);
    EXPECT_TRUE(KeyIDs().isEmpty());
}

} // namespace
} // namespace quorrel::test
