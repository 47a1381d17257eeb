#include "holders/Receipt.h"
#include "reports/ReportSite.h"
#include "support/ScriptedBoxes.h"

namespace quorrel::test {
namespace {

ReceiptSubject Edith() {
    ReceiptSubject subject{"Edith", "Marsh", "1041", "Clerk", "STORES", {}, {}, {}, {}, {}};
    subject.userList = {"A1           1  03/14/2026", "B2           12 03/14/2026"};
    return subject;
}

ReceiptSubject WithKey() {
    ReceiptSubject subject = Edith();
    subject.keyLine = "A1          -  Boiler room";
    subject.unit = "3";
    subject.units = {"3", "4"};
    subject.LastIssuedUnit = "4";
    return subject;
}

QString PrintedReceipt(ReportSite& site, ReceiptKind kind, const ReceiptSubject& subject,
                       const QString& policy = "Keys stay the company's.",
                       const Paper& paper = kA4) {
    ReceiptHead head{"Quorrel for Acme", "Pier", policy, QDate(2026, 3, 15), {"logo.png", 100, 50}};
    return site.Printed(
        [&](Printer& printer) {
            PrintReceipts(printer, head, {kind, subject});
        },
        paper);
}

TEST(Receipt, OffersWhatWasDoneLastFirstAndNothingTwice) {
    ReportSite site;
    EXPECT_FALSE(([&] {
        site.boxes.Expect("BLANK", BoxAnswer::No);
        return ChooseReceipt(site.session, {});
    }()));
    for (const ReceiptKind kind :
         {ReceiptKind::AllKeysOfHolder, ReceiptKind::UnitsOfKey, ReceiptKind::SelectedUnit,
          ReceiptKind::SelectedUnit, ReceiptKind::IssuedUnit, ReceiptKind::UnitsOfKey})
        RecordForReceipt(site.session, kind);
    const char* const questions[] = {
        "Would you like to print a receipt for A1          -  Boiler room's all unassigned Units?",
        "Would you like to print a receipt for A1          -  Boiler room  Unit 4 ?",
        "Would you like to print a receipt for A1          -  Boiler room  Unit 3 ?",
        "Would you like to print a receipt for all keys assigned to Edith, Marsh ?",
        "Would you like to print BLANK key receipts?"};
    for (int click = 0; click < 2; ++click) {
        for (const char* question : questions)
            site.boxes.Expect(question, BoxAnswer::No);
        EXPECT_FALSE(ChooseReceipt(site.session, WithKey()));
    }
    site.boxes.Expect(questions[0], BoxAnswer::No);
    site.boxes.Expect(questions[1], BoxAnswer::Yes);
    const auto receipt = ChooseReceipt(site.session, WithKey());
    ASSERT_TRUE(receipt);
    EXPECT_EQ(receipt->kind, ReceiptKind::IssuedUnit);
    EXPECT_EQ(receipt->subject.lastName, QString(22, u' ')) << "the holder signs by hand";
    EXPECT_EQ(site.boxes.Last().title, "Print Key Receipt");
    site.boxes.Expect(questions[3], BoxAnswer::Yes);
    EXPECT_EQ(ChooseReceipt(site.session, Edith())->subject.lastName, "Marsh");
}

TEST(Receipt, IsAPageToSign) {
    ReportSite site;
    ExpectGolden("receipt-holder", PrintedReceipt(site, ReceiptKind::AllKeysOfHolder, Edith()));
    ReceiptSubject blank = WithKey();
    blank.firstName = blank.lastName = QString(22, u' ');
    ExpectGolden("receipt-blank", PrintedReceipt(site, ReceiptKind::Blank, blank));
    const QString unit = PrintedReceipt(site, ReceiptKind::SelectedUnit, WithKey());
    EXPECT_TRUE(unit.contains("\n              A1              3             "));
    const QString units = PrintedReceipt(site, ReceiptKind::UnitsOfKey, WithKey());
    EXPECT_EQ(units.count("=== sheet"), 2);
    EXPECT_TRUE(units.contains("\n              A1            4               "));
    ReceiptSubject none = WithKey();
    none.units.clear();
    EXPECT_EQ(PrintedReceipt(site, ReceiptKind::UnitsOfKey, none), QString());
}

TEST(Receipt, KeepsItsLengthWhateverThePolicyIs) {
    ReportSite site;
    const auto rows = [&](const QString& policy) {
        const QString text =
            PrintedReceipt(site, ReceiptKind::SelectedUnit, WithKey(), policy, kLetter);
        EXPECT_EQ(text.count("=== sheet"), 1) << policy.size();
        return text.count("\n              " + QString(30, u'_'));
    };
    EXPECT_EQ(rows(""), 17) << "behind the two lines of the holder's list";
    EXPECT_EQ(rows("One line"), 17);
    EXPECT_EQ(rows(QString("x\r\n").repeated(9)), 13);
    EXPECT_EQ(rows(QString("x\n").repeated(39)), 0);
    EXPECT_EQ(rows(QString("word ").repeated(200)), 13) << "a wrapped line counts";
    EXPECT_EQ(rows(QString(1000, u'x')), 13);
    ReceiptSubject many = Edith();
    for (int key = 0; key < 28; ++key)
        many.userList += QString("K%1").arg(key);
    const QString text = PrintedReceipt(site, ReceiptKind::AllKeysOfHolder, many);
    EXPECT_EQ(text.count("=== sheet"), 2) << "more keys than a page holds go on";
    EXPECT_TRUE(text.contains("Signed by: Edith Marsh"));
}

} // namespace
} // namespace quorrel::test
