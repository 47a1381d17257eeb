#include "reports/IssueByUser.h"

#include "platform/Text.h"
#include "reports/HeldUnits.h"
#include "reports/ReportKeys.h"

namespace quorrel {

namespace {

constexpr int kUserLinesOnPage = 58; ///< below a head, after which the next line begins a page
constexpr int kUserLinesAtEnd = 61;
constexpr int kUserRule = 93;
constexpr int kHolderColumns = 51; ///< of number and name, with the four blanks before them

QString EntryText(const ReportHolder& holder) {
    return Padded(holder.Name(), 24) + OneLine(holder.Department);
}

/// A copy of the report in the making.
class UserCopy {
public:
    UserCopy(Session& session, Printer& printer, const ReportHead& head)
        : m_session(session), m_printer(printer), m_head(head) {
        for (ReportKey& key : ReadNamedKeys(session))
            if (key.Master)
                m_masters.insert(Padded(key.Label, kKeyIDWidth), key);
        PrintHead();
    }

    void Print(const ReportHolder& holder, const std::vector<HandedUnit>& units) {
        bool named = false;
        for (const HandedUnit& unit : units) {
            if (m_lines > kUserLinesOnPage) {
                m_printer.NewPage();
                PrintHead();
                named = false;
            }
            if (named)
                m_printer.PrintOpen({QString(kHolderColumns, u' ')});
            else
                PrintHolder(holder);
            named = true;
            PrintUnit(unit);
        }
    }

    void End() {
        PrintRule();
        while (m_lines < kUserLinesAtEnd) {
            m_printer.Print();
            ++m_lines;
        }
        m_printer.EndDoc();
        m_printer.FontUnderline = false;
        m_printer.KillDoc();
    }

private:
    void PrintHead() {
        PrintTitleBlock(m_printer, m_head,
                        QStringLiteral("  Key Issue by User Chart for ") + m_head.SystemNameLabel);
        m_printer.Print();
        m_printer.ForeColor = ink::kRed;
        m_printer.PrintOpen({"    TMID        ", "TM Name                            "});
        m_printer.ForeColor = ink::kCyan;
        m_printer.PrintOpen({"Key ID               "});
        m_printer.ForeColor = ink::kBlue;
        m_printer.Print({"Unit ID "});
        m_printer.ForeColor = ink::kBlack;
        m_lines = 0;
    }

    void PrintRule() {
        m_printer.Print({" ", Rule(kUserRule)});
        ++m_lines;
    }

    void PrintHolder(const ReportHolder& holder) {
        PrintRule();
        m_printer.ForeColor = ink::kRed;
        m_printer.PrintOpen({Padded(QStringLiteral("    ") + holder.UserIDNumber, 16),
                             Padded(OneLine(holder.Name()), kHolderColumns - 16)});
    }

    /// The rest of the line, each field below its head.
    void PrintUnit(const HandedUnit& unit) {
        const auto master = m_masters.constFind(Padded(unit.KeyID, kKeyIDWidth));
        const bool grand =
            master != m_masters.constEnd() && InkOfMaster(m_session, *master) == ink::kGreen;
        m_printer.ForeColor = grand ? ink::kGreen : ink::kCyan;
        m_printer.Print({Padded(unit.KeyID, 14), QString(7, u' '), Padded(unit.UnitID, 12)});
        m_printer.ForeColor = ink::kBlack;
        ++m_lines;
    }

    Session& m_session;
    Printer& m_printer;
    const ReportHead& m_head;
    QHash<QString, ReportKey> m_masters; ///< by their Key IDs
    int m_lines = 0;                     ///< since the head
};

} // namespace

std::vector<ReportEntry> ListReportHolders(Session& session) {
    std::vector<ReportEntry> entries;
    for (const ReportHolder& holder : ReadNamedHolders(session))
        entries.push_back({holder.key, EntryText(holder), holder.Name()});
    return entries;
}

QStringList PrintIssueByUser(Session& session, Printer& printer, const ReportHead& head,
                             const std::vector<ReportEntry>& chosen) {
    QHash<RowKey, ReportHolder> holders;
    for (const ReportHolder& holder : ReadNamedHolders(session))
        holders.insert(holder.key, holder);
    const auto units = ReadHandedUnits(session);
    QStringList passedOver;
    UserCopy copy(session, printer, head);
    for (const ReportEntry& entry : chosen) {
        const auto holder = holders.constFind(entry.key);
        if (holder == holders.constEnd() || holder->Name() != entry.name)
            passedOver += entry.name;
        else
            copy.Print(*holder, units.value(RightTrimmed(holder->UserIDNumber)));
    }
    copy.End();
    return passedOver;
}

} // namespace quorrel
