#include "reports/HardwareReport.h"

#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/DoorTables.h"
#include "store/OfSystem.h"

#include <algorithm>

namespace quorrel {

namespace {

/// Lines below a head after which the next door begins a page.
constexpr int kLinesOnPage = 52;
constexpr int kRuleColumns = 93;

struct FittedDoor {
    using Self = FittedDoor;
    using Whole = DoorsRow;
    RowKey key = 0;
    QString DoorLabel;
    QString DoorDescription;
    QString DoorLocation;
    QString Text1;

    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(DoorLabel), QUORREL_COLUMN(DoorDescription),
                          QUORREL_COLUMN(DoorLocation), QUORREL_COLUMN(Text1)};
    }
};

Recordset<FittedDoor> DoorsByLabel(Session& session) {
    return Recordset<FittedDoor>(session.Keys(),
                                 OfSystem<FittedDoor>(session).OrderBy(&DoorsRow::DoorLabel));
}

/// What stands before the first line end.
QString FirstLine(const QString& text) {
    const auto end = std::find_if(text.begin(), text.end(),
                                  [](QChar letter) { return letter == u'\r' || letter == u'\n'; });
    return text.left(end - text.begin());
}

/// A copy of the report in the making.
class HardwareCopy {
public:
    HardwareCopy(Printer& printer, const ReportHead& head) : m_printer(printer), m_head(head) {
        PrintHead();
    }

    void Print(const QString& hardware, const std::vector<FittedDoor>& doors) {
        if (m_lines > kLinesOnPage)
            BeginPage();
        PrintHeading(hardware);
        for (const FittedDoor& door : doors) {
            if (door.Text1 != hardware)
                continue;
            if (m_lines > kLinesOnPage) {
                BeginPage();
                PrintHeading(hardware + QStringLiteral("  continued."));
            }
            PrintDoor(door);
        }
        m_printer.Print({" ", Rule(kRuleColumns)});
        ++m_lines;
    }

private:
    void BeginPage() {
        m_printer.NewPage();
        PrintHead();
    }

    void PrintHead() {
        PrintProgramTitle(m_printer, m_head);
        m_printer.FontSize = 11;
        m_printer.Print(
            {Zone(2), "              Door Chart - ", m_head.SystemNameLabel, " - Hardware "});
        m_printer.Print({Zone(4), Padded(QStringLiteral("Page # ") + Str(m_page), 20),
                         ReportDate(m_head.date)});
        m_printer.Print({Zone(3)});
        m_printer.FontSize = 10;
        m_printer.FontBold = false;
        m_printer.Print({Zone(2), " ", Rule(81)});
        m_printer.PaintPicture(m_head.logo);
        m_printer.Print();
        PrintColumnHeads();
        m_lines = 0;
        ++m_page;
    }

    void PrintColumnHeads() {
        m_printer.FontUnderline = true;
        m_printer.PrintOpen({" Hardware     Door(s)       "});
        m_printer.ForeColor = ink::kBlue;
        m_printer.PrintOpen({"Description   "});
        m_printer.ForeColor = ink::kCyan;
        m_printer.Print({"Location    "});
        m_printer.ForeColor = ink::kBlack;
        m_printer.FontUnderline = false;
    }

    void PrintHeading(const QString& text) {
        m_printer.Print();
        m_printer.Print();
        m_printer.Print({text});
        m_lines += 3;
    }

    void PrintDoor(const FittedDoor& door) {
        m_printer.ForeColor = ink::kBlack;
        m_printer.PrintOpen({Zone(2), door.DoorLabel, NextZone()});
        m_printer.ForeColor = ink::kBlue;
        m_printer.Print({FirstLine(door.DoorDescription)});
        m_lines += 2;
        if (!IsBlank(door.DoorLocation)) {
            m_printer.ForeColor = ink::kCyan;
            m_printer.Print({Zone(4), OneLine(door.DoorLocation)});
            ++m_lines;
        }
        m_printer.ForeColor = ink::kBlack;
        m_printer.Print();
    }

    Printer& m_printer;
    const ReportHead& m_head;
    int m_page = 1;
    int m_lines = 0; ///< since the head
};

} // namespace

std::vector<ReportEntry> ListReportHardware(Session& session) {
    QStringList hardware = Recordset<FittedDoor>(session.Keys(), OfSystem<FittedDoor>(session))
                               .Distinct(&DoorsRow::Text1);
    hardware.removeIf([](const QString& text) { return text.isEmpty() || text[0] == u' '; });
    hardware.sort();
    std::vector<ReportEntry> entries;
    for (const QString& text : hardware)
        entries.push_back({0, text, text});
    return entries;
}

int CountDoorsWith(Session& session, const QString& hardware) {
    return static_cast<int>(
        Recordset<FittedDoor>(session.Keys(),
                              OfSystem<FittedDoor>(session).Where(&DoorsRow::Text1, hardware))
            .Count());
}

void PrintHardware(Session& session, Printer& printer, const ReportHead& head,
                   const std::vector<ReportEntry>& hardware) {
    const std::vector<FittedDoor> doors = DoorsByLabel(session).Rows();
    HardwareCopy copy(printer, head);
    for (const ReportEntry& entry : hardware)
        copy.Print(entry.text, doors);
    printer.EndDoc();
    printer.FontUnderline = false;
}

} // namespace quorrel
