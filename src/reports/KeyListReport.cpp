#include "reports/KeyListReport.h"

#include "platform/Text.h"
#include "reports/ReportKeys.h"
#include "store/HolderTables.h"
#include "store/OfSystem.h"

#include <QHash>

namespace quorrel {

namespace {

constexpr int kListHeadLines = 10;
constexpr int kListLines = 58; ///< after which the next key begins a page
constexpr int kListFoot = 65;  ///< lines above the foot
constexpr int kListRow = 40;   ///< columns of a row of a description
constexpr int kListDescription = 54;

/// How many units each key has, by its Key ID.
QHash<QString, int> CountUnits(Session& session) {
    QHash<QString, int> counts;
    Recordset<KeyUnitRow>(session.Keys(),
                          OfSystem<KeyUnitRow>(session).OrderBy(&KeyUnitRow::UnitIDNumber))
        .WalkColumn(&KeyUnitRow::KeyID,
                    [&](const QString& keyID, RowKey) { ++counts[Padded(keyID, kKeyIDWidth)]; });
    return counts;
}

/// A description in two rows: split at its first line end, else where the row is full.
std::pair<QString, QString> TwoRows(const QString& description) {
    const QString text = WithoutLastLineEnds(RightTrimmed(description));
    const qsizetype end = text.indexOf(u'\r') < 0 ? text.indexOf(u'\n') : text.indexOf(u'\r');
    if (end < 0)
        return {text.left(kListRow), text.mid(kListRow, kListRow)};
    const qsizetype next = text.mid(end, 2) == QStringLiteral("\r\n") ? end + 2 : end + 1;
    return {text.left(end).left(kListRow), OneLine(text.mid(next)).left(kListRow)};
}

/// A copy of the list in the making.
class KeyListCopy {
public:
    KeyListCopy(Printer& printer, const ReportHead& head) : m_printer(printer), m_head(head) {
        PrintHead();
    }

    void Print(const ReportKey& key, int units) {
        if (m_lines > kListLines)
            BreakPage();
        const auto [first, second] = TwoRows(key.Description);
        m_printer.PrintOpen({"   ", Left(key.Label + QString(12, u' '), 10), "   "});
        m_printer.ForeColor = units == 0 ? ink::kRed : ink::kYellow;
        m_printer.PrintOpen({Padded(Str(units), 5)});
        m_printer.ForeColor = ink::kBlack;
        m_printer.PrintOpen(
            {Padded(Str(key.PageNumber), 7), Padded(OneLine(key.Department), 26), first});
        EndRow();
        if (!second.isEmpty()) {
            m_printer.PrintOpen({QString(kListDescription, u' '), second});
            EndRow();
        }
    }

    void End() {
        PrintFoot();
        m_printer.EndDoc();
    }

private:
    void PrintHead() {
        m_printer.FontBold = true;
        m_printer.FontSize = 15;
        m_printer.Print({"       ", m_head.ProgramTitle});
        m_printer.FontSize = 11;
        m_printer.Print({"       Key List for ", m_head.SystemNameLabel});
        m_printer.Print({"       ", ReportDate(m_head.date)});
        m_printer.FontSize = 10;
        m_printer.FontBold = false;
        m_printer.PaintPicture(m_head.logo);
        m_printer.Print({Rule(83)});
        m_printer.Print({Rule(83)});
        PrintColumnHeads();
        m_printer.Print({"   ", Rule(94)});
        m_lines = kListHeadLines;
    }

    void PrintColumnHeads() {
        m_printer.FontBold = true;
        m_printer.ForeColor = ink::kRed;
        m_printer.PrintOpen({"   ", "Key ID    "});
        m_printer.ForeColor = ink::kBlue;
        m_printer.PrintOpen({"#Made   "});
        m_printer.ForeColor = ink::kGreen;
        m_printer.PrintOpen({"Page "});
        m_printer.ForeColor = ink::kBlack;
        m_printer.Print({"Department                  ", "Description"});
        m_printer.FontBold = false;
    }

    void EndRow() {
        m_printer.Print();
        ++m_lines;
    }

    void PrintFoot() {
        while (m_lines < kListFoot)
            EndRow();
        m_printer.Print(
            {"                                             Page #", QString::number(m_page)});
        ++m_page;
    }

    void BreakPage() {
        PrintFoot();
        m_printer.NewPage();
        PrintHead();
    }

    Printer& m_printer;
    const ReportHead& m_head;
    int m_lines = 0; ///< since the page began
    int m_page = 1;
};

} // namespace

void PrintKeyList(Session& session, Printer& printer, const ReportHead& head) {
    const QHash<QString, int> units = CountUnits(session);
    KeyListCopy copy(printer, head);
    for (const ReportKey& key : ReadNamedKeys(session))
        copy.Print(key, units.value(Padded(key.Label, kKeyIDWidth)));
    copy.End();
}

} // namespace quorrel
