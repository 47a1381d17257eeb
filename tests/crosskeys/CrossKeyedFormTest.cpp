#include "crosskeys/CrossSite.h"
#include "crosskeys/KeysWithAccess.h"
#include "crosskeys/frmCrossKeyed.h"
#include "platform/Text.h"
#include "support/FormDriver.h"
#include "systems/KeySystems.h"
#include "widgets/TextList.h"

#include <QFile>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

namespace quorrel::test {
namespace {

const QString kQuestion = QStringLiteral("This will take several minutes! Are you sure?");

/// The cross-key page of a door on the screen.
class FrmCrossKeyed : public testing::Test {
protected:
    FrmCrossKeyed() {
        first = site.Name(1, 0, "A1", "Boiler");
        site.Name(1, 1, "A10");
        second = site.Name(2, 41, "B1");
    }
    ~FrmCrossKeyed() override { delete form.data(); }

    void Open() {
        form = new frmCrossKeyed(site.session, site.Door("North"), {});
        QObject::connect(&form->Events(), &FormEvents::Closed, [this] { ++closed; });
        form->show();
        QCoreApplication::processEvents();
    }

    QString Box(int box) {
        return Find<QLineEdit>(form, ("txtKeyID_" + std::to_string(box)).c_str())->text();
    }
    QString Text(const char* label) { return LabelText(form, label); }
    QStringList Lines(const char* list) { return Find<TextList>(form, list)->Lines(); }

    void Pick(int row) {
        Find<TextList>(form, "lstKeyIDs")->SetCurrentRow(row);
        Click(form, "cmdAssignTo");
    }
    CrossKeyIDs Stored() {
        return KeyIDsOf(FindCrossKeys(site.session, site.Door("North").DoorID));
    }
    void CalculateAccess() {
        site.boxes.Expect(kQuestion);
        Click(form, "cmdAccess");
    }

    CrossSite site;
    QPointer<frmCrossKeyed> form;
    std::string first, second;
    int closed = 0;
};

TEST_F(FrmCrossKeyed, TakesKeysIntoItsBoxesAndStoresThemBySaveAlone) {
    Open();
    EXPECT_EQ(Text("lblListedUnder"), "This door is listed under no key.");
    Pick(0);
    EXPECT_EQ(Box(1), Padded("A1", 12));
    EXPECT_EQ(site.Door("North").CutsLabel, Padded("A1", 12)) << "at once";
    EXPECT_EQ(Text("lblState"), "not saved yet");
    EXPECT_EQ(Stored(), CrossKeyIDs());
    Pick(0);
    EXPECT_TRUE(Text("lblFoot").contains("already"));
    QTest::mouseClick(Find<TextList>(form, "lstKeyIDs")->viewport(), Qt::LeftButton, {}, {20, 40});
    auto* keys = Find<TextList>(form, "lstKeyIDs");
    keys->SetCurrentRow(2);
    QTest::keyClick(keys, Qt::Key_Return);
    EXPECT_EQ(Box(2), Padded("B1", 12));
    Click(form, "cmdSave");
    EXPECT_EQ(Text("lblState"), "");
    EXPECT_EQ(Stored(), CrossSite::Keys({"A1", "B1"}));
    Find<QLineEdit>(form, "txtKeyID_1")->setFocus();
    QCoreApplication::processEvents();
    Click(form, "cmdRemoveFrom");
    EXPECT_EQ(Box(1), Padded("B1", 12));
    EXPECT_EQ(Box(2), "");
    EXPECT_EQ(Stored(), CrossSite::Keys({"A1", "B1"}));
    Click(form, "cmdDone");
    EXPECT_EQ(closed, 1) << "without a question";
}

TEST_F(FrmCrossKeyed, TabbingThroughItsBoxesChangesNothing) {
    Open();
    Click(form, "cmdPinning");
    const QString bottom = Text("lblBottomPins");
    EXPECT_EQ(bottom, Padded(QString::fromStdString(site.MasterCuts()), 8));
    Find<QLineEdit>(form, "txtKeyID_1")->setFocus();
    for (int box = 1; box <= 7; ++box)
        QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
    for (int box = 1; box <= 6; ++box)
        EXPECT_EQ(Box(box), "");
    EXPECT_EQ(Text("lblBottomPins"), bottom);
    EXPECT_EQ(Text("lblState"), "");
    Type(form, "txtKeyID_2", "x9");
    EXPECT_EQ(Text("lblBottomPins"), "") << "no stale result stands";
    Click(form, "cmdPinning");
    EXPECT_EQ(Box(2), Padded("X9", 12));
    EXPECT_EQ(Text("lblRemark_2"), "no key has this Key ID");
    EXPECT_EQ(Text("lblCuts_2"), "");
    EXPECT_EQ(Text("lblBottomPins"), bottom);
}

TEST_F(FrmCrossKeyed, ShowsPinsAndWhoHasAccess) {
    Open();
    Type(form, "txtKeyID_1", "a1");
    Type(form, "txtKeyID_2", "b1");
    Click(form, "cmdPinning");
    EXPECT_EQ(Text("lblCuts_1"), QString::fromStdString(first));
    EXPECT_EQ(Text("lblCuts_2"), QString::fromStdString(second));
    const CrossKeying keying({site.MasterCuts(), first, second}, 6);
    EXPECT_EQ(Text("lblTopPins_0"), QString::fromStdString(keying.Rows().wafers[0]));
    site.boxes.Expect(kQuestion, BoxAnswer::Cancel);
    Click(form, "cmdAccess");
    EXPECT_TRUE(Lines("lstChanges").isEmpty());
    CalculateAccess();
    EXPECT_EQ(site.boxes.Last().title, "Calculate Keys with Access");
    const auto all = static_cast<qsizetype>(keying.CountCombinations());
    EXPECT_EQ(Lines("lstChanges").size() + Lines("lstMasterSort").size() +
                  Lines("lstAllCuts").size(),
              all);
    EXPECT_EQ(Text("Label7"), QString("%1 Phantom Keys").arg(Lines("lstAllCuts").size()));
    EXPECT_TRUE(Lines("lstChanges").join('|').contains(QString::fromStdString(first) + "  - A1"));
    Type(form, "txtKeyID_2", "");
    EXPECT_TRUE(Lines("lstChanges").isEmpty());
    EXPECT_EQ(Text("Label7"), "");
}

TEST_F(FrmCrossKeyed, TellsBesideEachKeyHowManyPhantomKeysItWouldAdd) {
    Open();
    Type(form, "txtKeyID_1", "a1");
    Click(form, "cmdPinning");
    auto* keys = Find<TextList>(form, "lstKeyIDs");
    ASSERT_EQ(keys->Count(), 3);
    const CrossKeying now({site.MasterCuts(), first}, 6);
    const auto cuts = ListSystemCuts(site.session);
    const auto added = now.With(second).CountPhantoms(cuts) - now.CountPhantoms(cuts);
    EXPECT_GT(added, 0U);
    EXPECT_TRUE(QTest::qWaitFor([&] { return keys->AsideOf(2) == QString("+%1").arg(added); }));
    EXPECT_EQ(keys->AsideOf(0), "+0");
}

TEST_F(FrmCrossKeyed, CountsWhatAKeyWouldReplaceOnceAllBoxesAreFull) {
    for (int cell = 2; cell < 8; ++cell)
        if (cell != 4)
            site.Name(3, cell, QString("D%1").arg(cell));
    Open();
    int box = 0;
    for (const char* keyID : {"A1", "B1", "D2", "D3", "D5", "D6"})
        Type(form, ("txtKeyID_" + std::to_string(++box)).c_str(), keyID);
    Click(form, "cmdPinning");
    const auto cuts = ListSystemCuts(site.session);
    const auto phantoms = [&](const CrossKeyIDs& keys) {
        return static_cast<std::int64_t>(
            CrossKeyingFor(site.session, FindCrossKeyCuts(site.session, keys)).CountPhantoms(cuts));
    };
    const auto change = phantoms(CrossSite::Keys({"A1", "B1", "D2", "D3", "D5", "D7"})) -
                        phantoms(CrossSite::Keys({"A1", "B1", "D2", "D3", "D5", "D6"}));
    auto* keys = Find<TextList>(form, "lstKeyIDs");
    const int row = keys->Count() - 1;
    const QString aside =
        change < 0 ? QString::fromUtf8("\u2212%1").arg(-change) : QString("+%1").arg(change);
    EXPECT_TRUE(QTest::qWaitFor([&] { return keys->AsideOf(row) == aside; }))
        << keys->AsideOf(row).toStdString() << " is not " << aside.toStdString();
    EXPECT_EQ(keys->AsideOf(row - 1), "+0") << "held already";
}

TEST_F(FrmCrossKeyed, TellsAtOnceWhatStoredKeysMeanNoLonger) {
    SaveCrossKeys(site.session, site.Door("North"), {}, CrossSite::Keys({"GONE", "B1"}));
    auto row = FindCrossKeys(site.session, site.Door("North").DoorID);
    row->KeyID3 = "A1";
    Recordset<CrossKeyedRow>::Update(site.session.Keys(), *row);
    Open();
    EXPECT_EQ(Text("lblRemark_1"), "no key has this Key ID");
    EXPECT_EQ(Text("lblRemark_2"), "");
    EXPECT_EQ(Text("lblRemark_3"), "means 2 keys; A10 is pinned");
    Type(form, "txtKeyID_2", "A");
    EXPECT_EQ(Text("lblRemark_1"), "no key has this Key ID") << "that of another box stays";
    Type(form, "txtKeyID_2", "B1");
    Click(form, "cmdPinning");
    EXPECT_NE(Text("lblBottomPins"), "");
    Find<QLineEdit>(form, "txtKeyID_3")->setFocus();
    Find<QLineEdit>(form, "txtKeyID_4")->setFocus();
    EXPECT_EQ(Text("lblRemark_3"), "") << "the Key ID is whole now";
    EXPECT_EQ(Text("lblBottomPins"), "") << "the pins were those of another key";
}

TEST_F(FrmCrossKeyed, ShowsNoCutsToWhomMayNotReadThem) {
    site.session.SessionPermissions.ReadPrintPinning = false;
    Open();
    Type(form, "txtKeyID_1", "a1");
    EXPECT_FALSE(Find<QPushButton>(form, "cmdPinning")->isEnabled());
    EXPECT_FALSE(Find<TextList>(form, "lstAllCuts")->isEnabled());
    CalculateAccess();
    EXPECT_EQ(Text("lblCuts_0"), "********");
    EXPECT_EQ(Text("lblCuts_1"), "********");
    QStringList texts;
    for (const QLabel* label : form->findChildren<QLabel*>())
        texts << label->text() << label->toolTip() << label->accessibleName()
              << label->accessibleDescription();
    for (const QWidget* widget : form->findChildren<QWidget*>())
        texts << widget->accessibleDescription() << widget->toolTip();
    for (const char* list : {"lstChanges", "lstMasterSort", "lstAllCuts"}) {
        const auto* lines = Find<TextList>(form, list);
        for (int row = 0; row < lines->Count(); ++row)
            for (const int role : {static_cast<int>(Qt::DisplayRole),
                                   static_cast<int>(Qt::AccessibleDescriptionRole),
                                   static_cast<int>(LineModel::kAsideRole)})
                texts << lines->model()->index(row, 0).data(role).toString();
    }
    for (const std::string& cuts : {first, site.MasterCuts()})
        EXPECT_FALSE(texts.join('|').contains(QString::fromStdString(cuts)));
    EXPECT_FALSE(Lines("lstMasterSort").isEmpty());
}

TEST_F(FrmCrossKeyed, TellsThatTheSystemIsGoneRatherThanOfPhantomKeys) {
    Open();
    CalculateAccess();
    EXPECT_EQ(Lines("lstMasterSort").size(), 1);
    DeleteKeySystem(site.session, site.system);
    site.boxes.Expect(kQuestion);
    site.boxes.Expect("has been deleted at another workstation");
    Click(form, "cmdAccess");
    EXPECT_TRUE(Lines("lstMasterSort").isEmpty());
    EXPECT_EQ(Text("Label7"), "");
}

TEST_F(FrmCrossKeyed, KeepsWhatWasTypedWhenAnotherWorkstationHasChangedTheSameDoor) {
    const DoorsRow door = site.Door("North");
    const auto stored = SaveCrossKeys(site.session, door, std::nullopt, CrossSite::Keys({"A1"}));
    Open();
    Type(form, "txtKeyID_1", "b1");
    Type(form, "txtKeyID_2", "a10");
    OtherWorkstation other(site);
    SaveCrossKeys(other.session, door, stored, CrossSite::Keys({"C1"}));
    site.boxes.Expect("has been changed at another workstation");
    Click(form, "cmdSave");
    EXPECT_EQ(Box(1), Padded("C1", 12));
    EXPECT_EQ(Box(2), Padded("A10", 12)) << "what nobody else has changed stays typed";
    EXPECT_EQ(Stored(), CrossSite::Keys({"C1"}));
    Click(form, "cmdSave");
    EXPECT_EQ(Stored(), CrossSite::Keys({"C1", "A10"}));
    Type(form, "txtKeyID_3", "b1");
    site.boxes.Expect("The cross-keying of Door North", BoxAnswer::No);
    QTest::keyClick(form, Qt::Key_Escape);
    EXPECT_EQ(closed, 0);
}

TEST(FrmCrossKeyedIC, ShowsThePinsOfACoreForTheSelectedKey) {
    CrossSite site(QStringLiteral("39517"), SystemType::ICCore23);
    site.Name(1, 0, "A1");
    PinningRequest selected;
    selected.system = "Jetty";
    selected.keyID = "A1";
    selected.keyway = "Y11";
    selected.key = site.Name(1, 1, "A2");
    selected.master = site.MasterCuts();
    frmCrossKeyed form(site.session, site.Door("North"), selected);
    form.show();
    EXPECT_EQ(form.objectName(), "frmCrossKeyedIC");
    EXPECT_EQ(LabelText(&form, "XlblKeyWay"), "Y11");
    EXPECT_EQ(LabelText(&form, "XlblCuts"), QString::fromStdString(selected.key));
    Type(&form, "txtKeyID_1", "a1");
    Click(&form, "cmdPinning");
    const auto panel = CorePanelOf(CalculateCrossPinning(site.session, CrossSite::Keys({"A1"})));
    for (int chamber = 0; chamber < 7; ++chamber) {
        const std::string name = "XlblControlPins_" + std::to_string(chamber);
        const auto* figure = Find<QLabel>(&form, name.c_str());
        EXPECT_EQ(figure->isVisible(), chamber < 5);
        EXPECT_EQ(figure->text(), panel.control.value(chamber));
    }
    Type(&form, "txtKeyID_1", "");
    EXPECT_EQ(LabelText(&form, "XlblControlPins_0"), "");
}

/// Pages of a PDF file that was written by the toolkit.
qsizetype PagesOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll().count("/Type /Page\n");
}

TEST(FrmCrossKeyedIC, PrintsWhatHasScrolledOutOfSightOnAPageOfItsOwn) {
    CrossSite site(QStringLiteral("39517"), SystemType::ICCore23);
    frmCrossKeyed form(site.session, site.Door("North"), {});
    form.show();
    const QString path = site.folder.filePath("keys.pdf");
    for (const auto& [size, pages] : {std::pair(QSize(780, 600), 2), {QSize(2400, 1600), 1}}) {
        form.resize(size);
        QCoreApplication::processEvents();
        site.boxes.ExpectFileDialog("PDF Files (*.pdf)|*.pdf", path);
        Click(&form, "cmdPrint");
        EXPECT_EQ(PagesOf(path), pages);
        EXPECT_TRUE(LabelText(&form, "lblFoot").contains("keys.pdf"));
    }
}

} // namespace
} // namespace quorrel::test
