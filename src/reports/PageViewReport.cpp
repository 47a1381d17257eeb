#include "reports/PageViewReport.h"

#include "platform/Text.h"
#include "reports/KeyPins.h"

#include <vector>

namespace quorrel {

namespace {

constexpr int kPageRule = 83;
constexpr int kCellLabel = 12; ///< columns of a cell
constexpr int kLastOfPart1 = 78;
constexpr int kPinningSize = 8; ///< points: a part is one sheet
const QString kPageGap(3, u' ');

/// The cuts of a cell; empty for a cell without a key.
std::string CutsOfCell(const PageView& page, int cell) {
    const std::string& tag = page.Cell(cell).tag;
    const auto pins = static_cast<std::size_t>(page.System().PinCount);
    return page.Cell(cell).IsBlank() || tag.size() < pins ? std::string() : tag.substr(0, pins);
}

bool IsBeyondSafety(const PageView& page, int cell) {
    const std::string& tag = page.Cell(cell).tag;
    return !CutsOfCell(page, cell).empty() && tag.back() == '*';
}

class PagePrint {
public:
    PagePrint(Session& session, Printer& printer, const ReportHead& head, const PageView& page)
        : m_session(session), m_printer(printer), m_head(head), m_page(page) {}

    void PrintHead(const QString& title) {
        m_printer.FontBold = true;
        m_printer.FontSize = 10;
        m_printer.Print({"       ", m_head.ProgramTitle});
        m_printer.Print({title});
        m_printer.Print({"       Master Key ",
                         PrintedCuts(m_session, m_session.System.MasterKeyCuts), ControlField()});
        m_printer.Print({Rule(kPageRule)});
        m_printer.PaintPicture(m_head.logo);
    }

    /// A row of cells across: their Key IDs, and below them their cuts.
    void PrintCells(const std::vector<int>& cells) {
        PrintRow(cells, [&](int cell) { return LabelOf(cell); });
        PrintRow(cells, [&](int cell) {
            const QString cuts = CutsText(cell);
            return Right(QString(8, u' ') + cuts, 8);
        });
    }

    void PrintPinning(int cell) {
        const std::string cuts = CutsOfCell(m_page, cell);
        const QString digits = cuts.empty() ? QStringLiteral("0000000 ") : CutsText(cell);
        const std::vector<PinStack> pins = PinsOf(m_session, cuts);
        m_printer.PrintOpen({"  ", Padded(QString::number(cell), 5), LabelOf(cell), kPageGap,
                             Padded(digits, 10), Padded(BottomPins(pins), 16),
                             Padded(TopPins(pins), 16)});
        if (m_session.System.SystemIsIC)
            m_printer.PrintOpen({Padded(ControlPins(pins), 16), Padded(DriverPins(pins), 16)});
        m_printer.Print();
    }

private:
    QString ControlField() const {
        const OpenSystem& system = m_session.System;
        return system.SystemIsIC
                   ? QStringLiteral("  Control Key ") + PrintedCuts(m_session, system.SpecialCuts)
                   : QString();
    }

    QString LabelOf(int cell) const {
        const PageCell& shown = m_page.Cell(cell);
        return Padded(shown.HasLabel() ? shown.keyLabel : QString(), kCellLabel);
    }

    QString CutsText(int cell) const {
        const std::string cuts = CutsOfCell(m_page, cell);
        return cuts.empty() ? QString() : PrintedCuts(m_session, cuts);
    }

    template <class TextOf>
    void PrintRow(const std::vector<int>& cells, TextOf&& textOf) {
        for (const int cell : cells) {
            const bool beyond = IsBeyondSafety(m_page, cell);
            m_printer.ForeColor = beyond                   ? ink::kBlue
                                  : IsMasterPosition(cell) ? ink::kGreen
                                                           : ink::kBlack;
            m_printer.FontUnderline = beyond;
            m_printer.PrintOpen({RightTrimmed(textOf(cell))});
            m_printer.FontUnderline = false;
            m_printer.PrintOpen(
                {QString(kCellLabel - ColumnsOf(RightTrimmed(textOf(cell))), u' '), kPageGap});
        }
        m_printer.ForeColor = ink::kBlack;
        m_printer.Print();
    }

    Session& m_session;
    Printer& m_printer;
    const ReportHead& m_head;
    const PageView& m_page;
};

QString PageTitle(const char* begin, const PageView& page) {
    return QLatin1String(begin) + QString::number(page.LoadedPage());
}

/// The levels above the page that the system has, from the highest down.
std::vector<int> LevelCells(const PageView& page) {
    std::vector<int> cells;
    for (int cell = MasterCell(page.System().PinCount); cell >= kFirstLevelCell; --cell)
        cells.push_back(cell);
    return cells;
}

} // namespace

void PrintPageView(Session& session, Printer& printer, const ReportHead& head,
                   const PageView& page) {
    PagePrint print(session, printer, head, page);
    print.PrintHead(PageTitle("       Page View for Page ", page) + QStringLiteral("    ") +
                    ReportDate(head.date));
    printer.FontSize = 12;
    print.PrintCells(LevelCells(page));
    for (int group = 0; group < 4; ++group) {
        printer.Print();
        for (int row = 5 * group; row < 5 * group + 5; ++row)
            print.PrintCells({row, 20 + row, 40 + row, 60 + row, 80 + row});
    }
    printer.Print();
    print.PrintCells({100, 101, 102, 103});
    printer.EndDoc();
}

void PrintPagePinning(Session& session, Printer& printer, const ReportHead& head,
                      const PageView& page) {
    PagePrint print(session, printer, head, page);
    const auto part = [&](const char* name, int first, int last) {
        print.PrintHead(PageTitle("       Pinning Chart for Page ", page) + QLatin1String(name));
        printer.FontBold = false;
        printer.FontSize = kPinningSize;
        for (int cell = first; cell <= last; ++cell)
            print.PrintPinning(cell);
        printer.NewPage();
    };
    part("    Part 1", 0, kLastOfPart1);
    part("    Part 2", kLastOfPart1 + 1, kFirstLevelCell - 1);
    printer.EndDoc();
}

} // namespace quorrel
