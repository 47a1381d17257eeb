#include "reports/CompleteChart.h"

#include "engine/PageGeometry.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "reports/KeyPins.h"
#include "reports/ReportKeys.h"
#include "store/OfSystem.h"
#include "store/Scramble.h"
#include "store/SystemTables.h"

#include <algorithm>

namespace quorrel {

namespace {

constexpr int kFirstOfPartII = 50;
constexpr int kMastersOnPage = 33;
const QString kUnnamedKey(12, u'_');

struct ChartRow {
    using Self = ChartRow;
    using Whole = PatternsRow;
    RowKey key = 0;
    int PageNumber = 0;
    int Position = 0;
    double Serial = 0;
    QString Cuts;
    bool Master = false;
    QString Label;
    QString Description;
    QString Department;
    QString KeyWay;

    static constexpr auto Columns() {
        return std::tuple{
            QUORREL_COLUMN(PageNumber),  QUORREL_COLUMN(Position),   QUORREL_COLUMN(Serial),
            QUORREL_COLUMN(Cuts),        QUORREL_COLUMN(Master),     QUORREL_COLUMN(Label),
            QUORREL_COLUMN(Description), QUORREL_COLUMN(Department), QUORREL_COLUMN(KeyWay)};
    }
};

std::vector<ChartRow> RowsOfPage(Session& session, int page) {
    std::vector<ChartRow> rows =
        Recordset<ChartRow>(session.Keys(), OfSystem<ChartRow>(session)
                                                .Where(&PatternsRow::PageNumber, page)
                                                .OrderBy(&PatternsRow::Position))
            .Rows();
    std::erase_if(rows, [](const ChartRow& row) { return row.Position >= kFirstLevelCell; });
    return rows;
}

/// How many chambers of a master have the theoretical master's cut.
int LevelOf(int position) {
    switch (KindOfCell(std::clamp(position, 0, kLastLevelCell))) {
    case CellKind::ChangeKey:
        return 0;
    case CellKind::BlockMaster:
    case CellKind::LineMaster:
        return 1;
    case CellKind::AreaMaster:
    case CellKind::ColumnMaster:
        return 2;
    default:
        return 3 + position - kFirstLevelCell;
    }
}

char MasterLetter(int position) {
    if (position >= 100)
        return 'C';
    if (position == 94 || position == 99)
        return 'A';
    return position == 84 || position == 89 ? 'L' : 'B';
}

/// What stands behind a master's Key ID: letter, level, and the last two digits of its position.
QString MasterCode(int position) {
    return QStringLiteral("%1%2%3-")
        .arg(QLatin1Char(MasterLetter(position)))
        .arg(LevelOf(position))
        .arg(position % 100, 2, 10, QLatin1Char('0'));
}

/// What is printed of a row.
struct ChartKey {
    std::string cuts; ///< a digit a chamber; empty when they cannot be read
    bool beyondSafety = false;
    QString mark;
};

ChartKey ChartKeyOf(const Session& session, const ChartRow& row) {
    ChartKey key;
    const auto whole = CutsOf(row.Cuts, session.System.PinCount);
    if (whole) {
        key.cuts = whole->substr(0, static_cast<std::size_t>(session.System.PinCount));
        key.beyondSafety = whole->back() == '*';
    }
    key.mark = key.beyondSafety ? QStringLiteral("*")
               : row.Master     ? QStringLiteral("-")
                                : QStringLiteral(" ");
    return key;
}

/// The pins of a kind in a field of 8.
QString PinField(QString pins) {
    return Padded(pins.remove(u' '), 8);
}

/// A copy of the chart in the making.
class ChartCopy {
public:
    ChartCopy(Session& session, Printer& printer, const ReportHead& head)
        : m_session(session), m_printer(printer), m_head(head), m_core(session.System.SystemIsIC) {}

    void PrintPage(int page) {
        const std::vector<ChartRow> rows = RowsOfPage(m_session, page);
        PrintPart(page, "  Part II", rows, kFirstOfPartII, kFirstLevelCell);
        PrintPart(page, "  Part I", rows, 0, kFirstOfPartII);
    }

    void PrintMasters() {
        PrintMastersHead();
        Recordset<ChartRow>(m_session.Keys(),
                            OfSystem<ChartRow>(m_session)
                                .WhereAtLeast(&PatternsRow::Position, kFirstLevelCell)
                                .WhereBelow(&PatternsRow::Position, kLastLevelCell + 1)
                                .OrderBy(&PatternsRow::Serial))
            .Walk([&](const ChartRow& row) {
                if (m_lines > kMastersOnPage) {
                    m_printer.NewPage();
                    PrintMastersHead();
                }
                PrintMaster(row);
                return true;
            });
        m_printer.NewPage();
    }

private:
    void PrintPart(int page, const char* part, const std::vector<ChartRow>& rows, int first,
                   int end) {
        m_printer.Print({" ", "        ", m_head.ProgramTitle, "        ", m_head.SystemNameLabel,
                         part, " - System Page Number ", QString::number(page)});
        m_printer.Print({m_core ? " Keyway  Label      Serial Cuts    Bottom  Top     Control "
                                  "Driver Description                                    "
                                : " Keyway  Label      Serial Cuts    Bottom  Top     Description "
                                  "                                   "});
        for (const ChartRow& row : rows)
            if (row.Position >= first && row.Position < end)
                PrintRow(row);
        m_printer.NewPage();
    }

    void PrintRow(const ChartRow& row) {
        const ChartKey key = ChartKeyOf(m_session, row);
        m_printer.FontBold = row.Master && !key.beyondSafety;
        m_printer.ForeColor = key.beyondSafety ? ink::kBlue : row.Master ? ink::kCyan : ink::kBlack;
        m_printer.FontUnderline = key.beyondSafety;
        m_printer.Print({" ", Left(row.KeyWay + QString(9, u' '), 8),
                         Padded(LabelField(row) + SerialField(row) + CutsField(key), 26),
                         PinFields(key.cuts), Padded(ReportDescription(row.Description), 45), " ",
                         OneLine(row.Department)});
        m_printer.FontBold = m_printer.FontUnderline = false;
        m_printer.ForeColor = ink::kBlack;
    }

    static QString LabelField(const ChartRow& row) {
        const QString label = Left(row.Label, 3) == QStringLiteral("   ") || row.Label.isEmpty()
                                  ? kUnnamedKey
                                  : RightTrimmed(row.Label);
        return Padded(row.Master ? Right(label + MasterCode(row.Position), 10) : Left(label, 10),
                      10);
    }

    static QString SerialField(const ChartRow& row) {
        return Left(Str(row.Serial) + QString(11, u' '), 8);
    }

    QString CutsField(const ChartKey& key) const {
        const QString cuts = PrintedCuts(m_session, key.cuts);
        return m_session.SessionPermissions.ReadPrintPinning ? cuts + key.mark : cuts;
    }

    QString PinFields(const std::string& cuts) const {
        const std::vector<PinStack> pins = PinsOf(m_session, cuts);
        QString fields = PinField(BottomPins(pins)) + PinField(TopPins(pins));
        if (m_core)
            fields += PinField(ControlPins(pins)) + PinField(DriverPins(pins));
        return fields;
    }

    void PrintMastersHead() {
        m_printer.Print({"       ", m_head.ProgramTitle});
        m_printer.Print({"       Complete Chart for ", m_head.SystemNameLabel});
        m_printer.Print({"       ", ReportDate(m_head.date)});
        m_printer.PaintPicture(m_head.logo);
        m_printer.Print();
        m_lines = 0;
    }

    /// The trade's word for a level above the page master; the highest level has none.
    QString LevelWord(int position) const {
        const int pins = m_session.System.PinCount;
        if (position == MasterCell(pins))
            return {};
        if (position == 105)
            return QStringLiteral("Base ");
        if (position == 106 && pins >= 6)
            return QStringLiteral("Group ");
        return position == 107 && pins >= 7 ? QStringLiteral("System ") : QString();
    }

    void PrintMaster(const ChartRow& row) {
        const ChartKey key = ChartKeyOf(m_session, row);
        m_printer.PrintOpen({"Pg", Padded(Str(row.PageNumber), 6), " Mstr ",
                             QString::number(LevelOf(row.Position)), " "});
        m_printer.FontBold = true;
        m_printer.ForeColor = ink::kGreen;
        m_printer.PrintOpen({Padded(LevelWord(row.Position), 8)});
        m_printer.FontBold = false;
        m_printer.ForeColor = ink::kBlack;
        m_printer.Print({Padded(CutsField(key), 10), PinFields(key.cuts), LabelText(row)});
        ++m_lines;
    }

    static QString LabelText(const ChartRow& row) {
        return IsBlank(row.Label) ? QString() : RightTrimmed(row.Label);
    }

    Session& m_session;
    Printer& m_printer;
    const ReportHead& m_head;
    const bool m_core;
    int m_lines = 0; ///< of masters since the head
};

ChartExtent Clamped(Session& session, ChartExtent extent) {
    const int highest = HighestPage(session);
    extent.lastPage = extent.lastPage < 1 ? highest : std::min(extent.lastPage, highest);
    extent.firstPage = std::clamp(extent.firstPage, 1, std::max(1, extent.lastPage));
    return extent;
}

} // namespace

int HighestPage(Session& session) {
    return static_cast<int>(Recordset<PatternsRow>(session.Keys(), OfSystem<PatternsRow>(session))
                                .Largest(&PatternsRow::PageNumber));
}

SheetNeeds CompleteChartSheets(const Session& session) {
    SheetNeeds needs;
    needs.landscape = true;
    needs.columns = session.System.SystemIsIC ? 147 : 131;
    needs.lines = 59;
    return needs;
}

int CompleteChartSheetCount(Session& session, const ChartExtent& extent) {
    const ChartExtent pages = Clamped(session, extent);
    return 2 * std::max(0, pages.lastPage - pages.firstPage + 1);
}

void PrintCompleteChart(Session& session, Printer& printer, const ReportHead& head,
                        const ChartExtent& extent) {
    const ChartExtent pages = Clamped(session, extent);
    ChartCopy copy(session, printer, head);
    for (int page = pages.firstPage; page <= pages.lastPage; ++page)
        copy.PrintPage(page);
    if (extent.masters)
        copy.PrintMasters();
    printer.EndDoc();
}

} // namespace quorrel
