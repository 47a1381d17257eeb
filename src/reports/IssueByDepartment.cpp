#include "reports/IssueByDepartment.h"

#include "access/Departments.h"
#include "platform/Text.h"
#include "reports/HeldUnits.h"
#include "reports/ReportKeys.h"

#include <set>

namespace quorrel {

namespace {

constexpr int kDepartmentLinesOnPage =
    58; ///< below a head, after which the next line begins a page
constexpr int kDepartmentRule = 93;
constexpr int kUnitDescription = 63;

/// A copy of the report in the making.
class DepartmentCopy {
public:
    DepartmentCopy(Session& session, Printer& printer, const ReportHead& head)
        : m_session(session), m_printer(printer), m_head(head) {
        for (ReportKey& key : ReadNamedKeys(session))
            m_keys.insert(Padded(key.Label, kKeyIDWidth), key);
        PrintHead();
    }

    void BeginDepartment(const QString& department) {
        m_department = department;
        if (m_lines > kDepartmentLinesOnPage)
            BreakPage({});
        else
            PrintBars({});
    }

    void Print(const ReportHolder& holder, const std::vector<HandedUnit>& units) {
        BreakWhenFull();
        PrintHolder(holder);
        for (const HandedUnit& unit : units) {
            if (BreakWhenFull())
                PrintHolder(holder);
            PrintUnit(unit);
        }
    }

    void End() {
        m_printer.EndDoc();
        m_printer.KillDoc();
    }

private:
    void PrintHead() {
        PrintTitleBlock(m_printer, m_head,
                        QStringLiteral("  Key Issue by Department Chart for ") +
                            m_head.SystemNameLabel);
        m_printer.Print({"      "});
        m_lines = 0;
    }

    bool BreakWhenFull() {
        const bool full = m_lines > kDepartmentLinesOnPage;
        if (full)
            BreakPage(QStringLiteral(" . . . Continued"));
        return full;
    }

    void BreakPage(const QString& mark) {
        m_printer.Print({" ", Rule(kDepartmentRule)});
        m_printer.NewPage();
        PrintHead();
        PrintBars(mark);
    }

    void PrintBars(const QString& mark) {
        const QString bar(kDepartmentRule, u'=');
        m_printer.ForeColor = ink::kBlue;
        m_printer.Print({"    ", bar});
        m_printer.Print({"    ", m_department, mark});
        m_printer.Print({"    ", bar});
        m_printer.ForeColor = ink::kBlack;
        m_lines += 3;
    }

    void PrintHolder(const ReportHolder& holder) {
        m_printer.Print({"     ", Rule(kDepartmentRule)});
        m_printer.ForeColor = ink::kRed;
        m_printer.Print({"        ", Padded(holder.UserIDNumber, 12), " ", OneLine(holder.Name())});
        m_printer.ForeColor = ink::kBlack;
        m_lines += 2;
    }

    void PrintUnit(const HandedUnit& unit) {
        const ReportKey key = m_keys.value(Padded(unit.KeyID, kKeyIDWidth));
        const bool grand = key.Master && InkOfMaster(m_session, key) == ink::kGreen;
        m_printer.ForeColor = grand ? ink::kGreen : ink::kCyan;
        m_printer.Print({"        ", Padded(ReportDescription(key.Description), kUnitDescription),
                         Padded(unit.KeyID, 12), "  ", " - ", unit.UnitID});
        m_printer.ForeColor = ink::kBlack;
        ++m_lines;
    }

    Session& m_session;
    Printer& m_printer;
    const ReportHead& m_head;
    QHash<QString, ReportKey> m_keys; ///< by their Key IDs
    QString m_department;
    int m_lines = 0; ///< since the head
};

} // namespace

std::vector<ReportEntry> ListReportDepartments(Session& session) {
    std::set<QString> names;
    for (const QString& name : ListDepartments(session))
        names.insert(RightTrimmed(name));
    for (const ReportHolder& holder : ReadNamedHolders(session))
        names.insert(RightTrimmed(holder.Department));
    std::vector<ReportEntry> entries;
    for (const QString& name : names)
        if (!name.isEmpty() && name[0] != u' ')
            entries.push_back({0, name, name});
    return entries;
}

void PrintIssueByDepartment(Session& session, Printer& printer, const ReportHead& head,
                            const std::vector<ReportEntry>& chosen) {
    QHash<QString, std::vector<ReportHolder>> staff;
    for (const ReportHolder& holder : ReadNamedHolders(session))
        staff[RightTrimmed(holder.Department)].push_back(holder);
    const auto units = ReadHandedUnits(session);
    DepartmentCopy copy(session, printer, head);
    for (const ReportEntry& department : chosen) {
        copy.BeginDepartment(department.name);
        for (const ReportHolder& holder : staff.value(department.name))
            copy.Print(holder, units.value(RightTrimmed(holder.UserIDNumber)));
    }
    copy.End();
}

} // namespace quorrel
