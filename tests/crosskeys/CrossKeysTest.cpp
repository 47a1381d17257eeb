#include "doors/CrossKeys.h"
#include "crosskeys/CrossPinning.h"
#include "crosskeys/CrossSite.h"
#include "crosskeys/KeysWithAccess.h"
#include "doors/DoorAssignment.h"
#include "platform/Text.h"
#include "store/Conflict.h"
#include "support/SimulatedLock.h"

#include <set>

namespace quorrel::test {
namespace {

/// Goes on until the user cancels.
class Going : public Progress {
public:
    explicit Going(int steps = -1) : m_steps(steps) {}
    bool Advance(int) override { return m_steps < 0 || m_steps-- > 0; }

private:
    int m_steps;
};

KeysWithAccess AccessOf(CrossSite& site, const CrossKeyIDs& keyIDs) {
    Going going;
    const auto access = CalculateKeysWithAccess(
        site.session, CalculateCrossPinning(site.session, keyIDs).keying, going);
    EXPECT_TRUE(access);
    return access.value_or(KeysWithAccess());
}

TEST(CrossKeyBoxes, KeepTheKeysPackedAndFindTheirPlace) {
    EXPECT_EQ(CrossKeyText("a1"), "A1          ");
    EXPECT_EQ(CrossKeyText("  "), "");
    EXPECT_EQ(CrossKeyText("abcdefghijklmn"), "ABCDEFGHIJKL");
    CrossKeyIDs keys = CrossSite::Keys({"A1", "", "A3", "", "A5"});
    EXPECT_EQ(BoxForCrossKey(keys, "A3"), 1) << "the first that is empty";
    PackCrossKeys(keys);
    EXPECT_EQ(keys, CrossSite::Keys({"A1", "A3", "", "", "A5"})) << "up to the first empty one";
    keys = CrossSite::Keys({"A1", "A2", "A3", "A4", "A5", "A6"});
    EXPECT_EQ(BoxForCrossKey(keys, "A2"), 1);
    EXPECT_EQ(BoxForCrossKey(keys, "A"), 5) << "A is not A1";
    EXPECT_EQ(BoxForCrossKey(keys, "A7"), 5);
    keys[2].clear();
    PackCrossKeys(keys);
    EXPECT_EQ(keys, CrossSite::Keys({"A1", "A2", "A4", "A5", "A6"}));
}

TEST(CrossKeys, MeanTheKeyOfExactlyThisKeyIDOrTheLastOfABeginning) {
    CrossSite site;
    const std::string one = site.Name(1, 0, "A1");
    site.Name(1, 1, "A10");
    const std::string last = site.Name(1, 2, "A19");
    EXPECT_EQ(FindMeantKey(site.session, CrossKeyText("A1")).cuts, one);
    EXPECT_EQ(FindMeantKey(site.session, CrossKeyText("A1")).matches, 1);
    const MeantKey begun = FindMeantKey(site.session, "A1");
    EXPECT_EQ(begun.cuts, last);
    EXPECT_EQ(begun.matches, 3);
    EXPECT_EQ(FindMeantKey(site.session, CrossKeyText("B")).matches, 0);
    EXPECT_EQ(FindMeantKey(site.session, QString(12, u' ')).matches, 0)
        << "blanks are no unnamed key";
    EXPECT_TRUE(RemarkOn(site.session, 1, FindMeantKey(site.session, "A1")).contains("means 3"));
    EXPECT_TRUE(RemarkOn(site.session, 1, MeantKey()).contains("no key"));
}

TEST(CrossKeys, AreStoredForTheirDoorAndMetByAnotherWorkstation) {
    CrossSite site;
    const DoorsRow door = site.Door("North");
    const CrossKeyedRow first =
        SaveCrossKeys(site.session, door, std::nullopt, CrossSite::Keys({"A1", "A2"}));
    EXPECT_EQ(KeyIDsOf(FindCrossKeys(site.session, door.DoorID)), CrossSite::Keys({"A1", "A2"}));
    EXPECT_THROW(SaveCrossKeys(site.session, door, std::nullopt, CrossSite::Keys({"A9"})),
                 ChangedElsewhere)
        << "added meanwhile";

    OtherWorkstation other(site);
    SaveCrossKeys(other.session, door, first, CrossSite::Keys({"A1", "B2"}));
    EXPECT_EQ(
        KeyIDsOf(SaveCrossKeys(site.session, door, first, CrossSite::Keys({"A1", "A2", "A3"}))),
        CrossSite::Keys({"A1", "B2", "A3"}))
        << "what both have changed apart from one another";
    EXPECT_THROW(SaveCrossKeys(site.session, door, first, CrossSite::Keys({"A1", "C2"})),
                 ChangedElsewhere);
    EXPECT_EQ(KeysAfterConflict(CrossSite::Keys({"A1", "C2", "A4"}), KeyIDsOf(first),
                                CrossSite::Keys({"A1", "B2"})),
              CrossSite::Keys({"A1", "B2", "A4"}));
    other.Delete("North");
    EXPECT_THROW(SaveCrossKeys(site.session, door, first, CrossSite::Keys({"A1"})),
                 ChangedElsewhere);
    site.Save("South");
    EXPECT_GT(site.Door("South").DoorID, door.DoorID) << "no door inherits the keys of another";
}

TEST(CrossKeys, ListTheirDoorUnderThePickedKey) {
    CrossSite site;
    site.Name(1, 0, "A1");
    site.Save("Northern Gate 1");
    site.Save("Northern Gate 2");
    const auto keys = ListCrossKeyable(site.session, "a");
    ASSERT_EQ(keys.size(), 1U);
    const DoorsRow shown = site.Door("Northern Gate 2");
    EXPECT_EQ(GiveDoorKey(site.session, keys[0].line, shown).CutsLabel, Padded("A1", 12));
    EXPECT_EQ(site.KeysOfDoors(),
              QStringList({QString(8, u' '), QString(8, u' '), Padded("A1", 12)}));
    EXPECT_THROW(GiveDoorKey(site.session, keys[0].line, shown), ChangedElsewhere);
    RowLine renamed = keys[0].line;
    renamed.label = "B1";
    EXPECT_THROW(GiveDoorKey(site.session, renamed, site.Door("North")), ChangedElsewhere);
}

TEST(CrossKeys, AdmitKeysBeyondTheHierarchyOfTheirDoor) {
    CrossSite site;
    site.Name(1, 0, "A1");
    site.Name(1, 4, "AM"); // the block master over A1
    site.Name(1, 21, "B1");
    site.Name(1, 1, "C1");
    DoorsRow door = site.Door("North");
    EXPECT_TRUE(DescribeCrossKeying(site.session, door.key).contains("names no key"));
    const QStringList beyond =
        KeysBeyondHierarchy(site.session, Padded("A1", 12), CrossSite::Keys({"A1", "B1"}));
    EXPECT_TRUE(beyond.contains("B1"));
    EXPECT_FALSE(beyond.contains("A1"));
    EXPECT_FALSE(beyond.contains("AM"));
    SaveCrossKeys(site.session, door, std::nullopt, CrossSite::Keys({"A1"}));
    EXPECT_TRUE(
        KeysBeyondHierarchy(site.session, QString(7, u' '), CrossSite::Keys({"A1"})).contains("A1"))
        << "the door is under no key";
}

TEST(CrossPinning, PinsAsManyKeysAsTheCylinderHasChambers) {
    CrossSite site(QStringLiteral("3951"));
    CrossKeyIDs keys;
    std::vector<std::string> cuts = {site.MasterCuts()};
    for (int key = 0; key < 6; ++key) {
        const QString keyID = QStringLiteral("A%1").arg(key);
        cuts.push_back(site.Name(1 + key % 2, key, keyID));
        keys[static_cast<std::size_t>(key)] = CrossKeyText(keyID);
    }
    const CrossPinning pinning = CalculateCrossPinning(site.session, keys);
    EXPECT_EQ(pinning.keying.Chambers(),
              CrossKeying({cuts.begin(), cuts.begin() + 5}, 4).Chambers());
    EXPECT_EQ(pinning.remarks[4], "");
    EXPECT_EQ(pinning.remarks[5], "not pinned (4 pins)");
    EXPECT_EQ(pinning.cuts[5], cuts[5]) << "its cuts are shown all the same";
    EXPECT_EQ(pinning.cylinder.stacks.size(), 4U);

    const KeysWithAccess access = AccessOf(site, keys);
    EXPECT_TRUE(access.changes.empty() && access.masters.empty() && access.phantoms.empty());
    SimulatedLock lock;
    const PinRows rows = pinning.keying.Rows();
    lock.Load(rows.bottom, {rows.wafers.begin(), rows.wafers.end()}, 4);
    std::uint64_t turning = 0;
    ForEveryKey(4, '9', [&](const std::string& key) { turning += lock.Turns(key) ? 1 : 0; });
    EXPECT_EQ(access.combinations, turning) << "the figure beside the empty lists is the true one";
    EXPECT_LT(access.trulyPhantom, access.combinations);
}

TEST(CrossPinning, FollowsTheHighestCutInACore) {
    CrossSite site(QStringLiteral("39517"), SystemType::ICCore23);
    site.Name(1, 0, "A1");
    const CrossPinning pinning = CalculateCrossPinning(site.session, CrossSite::Keys({"A1"}));
    const CorePanel panel = CorePanelOf(pinning);
    for (int chamber = 0; chamber < 5; ++chamber) {
        const auto& cuts = pinning.keying.Chambers()[static_cast<std::size_t>(chamber)];
        EXPECT_EQ(panel.bottom[chamber], QString::number(cuts.front()));
        EXPECT_EQ(panel.top[chamber], QString::number(cuts.back() - cuts.front()));
        const int control = 4 + 10 - cuts.back();
        EXPECT_EQ(panel.control[chamber], QString(QLatin1Char(PinCharacter(control))));
        EXPECT_EQ(panel.driver[chamber],
                  QString(QLatin1Char(PinCharacter(23 - control - cuts.back()))));
    }
    site.session.System.SpecialCuts = "4x444";
    EXPECT_THROW(CalculateCrossPinning(site.session, {}), std::runtime_error);
}

TEST(KeysWithAccess, OfNoCrossKeysAreTheMasterAlone) {
    CrossSite site;
    const KeysWithAccess access = AccessOf(site, {});
    EXPECT_EQ(access.combinations, 1U);
    EXPECT_TRUE(access.changes.empty());
    EXPECT_TRUE(access.phantoms.empty());
    ASSERT_EQ(access.masters.size(), 1U);
    EXPECT_EQ(access.masters[0].cuts, site.MasterCuts());
    EXPECT_EQ(access.masters[0].Text(true).left(10),
              Padded(QString::fromStdString(site.MasterCuts()), 8) + "- ");
    EXPECT_EQ(access.masters[0].Text(false).left(10), "********- ");
}

TEST(KeysWithAccess, AreExactlyWhatTurnsInASimulatedLock) {
    for (const char* master : {"39517", "395172"}) {
        CrossSite site{QLatin1String(master)};
        site.Name(1, 0, "A1");
        site.Name(2, 41, "B1");
        site.Name(1, 67, "C1");
        const CrossKeyIDs keys = CrossSite::Keys({"A1", "B1", "C1"});
        const PinRows rows = CalculateCrossPinning(site.session, keys).keying.Rows();
        SimulatedLock lock;
        const std::size_t pins = std::string(master).size();
        lock.Load(rows.bottom, {rows.wafers.begin(), rows.wafers.end()}, pins);
        std::set<std::string> turning;
        ForEveryKey(pins, '9', [&](const std::string& key) {
            if (lock.Turns(key))
                turning.insert(key);
        });
        const KeysWithAccess access = AccessOf(site, keys);
        std::set<std::string> listed(access.phantoms.begin(), access.phantoms.end());
        EXPECT_EQ(listed.size(), access.trulyPhantom);
        for (const auto* found : {&access.changes, &access.masters})
            for (const KeyWithAccess& key : *found) {
                EXPECT_TRUE(listed.insert(key.cuts).second) << key.cuts << " is listed twice";
                EXPECT_EQ(key.master, found == &access.masters);
            }
        EXPECT_EQ(listed, turning);
        EXPECT_FALSE(access.changes.empty());
        EXPECT_FALSE(access.phantoms.empty());
    }
}

TEST(KeysWithAccess, CountTheControlKeyAndWarnOfIt) {
    CrossSite site(QStringLiteral("395172"), SystemType::ICCore23);
    const auto control = CrossKeying({"444444", site.MasterCuts()}, 6);
    Going going;
    const auto access = CalculateKeysWithAccess(site.session, control, going);
    ASSERT_TRUE(access);
    EXPECT_TRUE(access->controlKey);
    QStringList warnings;
    for (const auto* keys : {&access->changes, &access->masters})
        for (const KeyWithAccess& key : *keys)
            warnings += key.Warning();
    EXPECT_EQ(warnings.count("CONTROL KEY cuts"), 1);
    EXPECT_EQ(DifferingChambers("444444", "444454"), "5");
}

TEST(KeysWithAccess, OfACancelledRunAreNone) {
    CrossSite site(QStringLiteral("39517"));
    std::vector<std::string> keys;
    for (char cut = '0'; cut <= '9'; ++cut)
        keys.push_back(std::string(5, cut));
    const CrossKeying every(keys, 5);
    Going stops(3);
    EXPECT_FALSE(CalculateKeysWithAccess(site.session, every, stops));
    Going goes;
    EXPECT_EQ(CalculateKeysWithAccess(site.session, every, goes)->combinations, 100000U);
}

} // namespace
} // namespace quorrel::test
