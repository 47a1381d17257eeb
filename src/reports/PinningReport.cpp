#include "reports/PinningReport.h"

#include "platform/Text.h"
#include "reports/KeyPins.h"
#include "reports/PinKitPage.h"
#include "reports/ReportKeys.h"

#include <algorithm>
#include <array>

namespace quorrel {

namespace {

constexpr int kPinningRule = 92;
constexpr int kPinningHeadLines = 14;
constexpr int kPinningLines = 58; ///< after which the next block begins a page
constexpr int kPinningFoot = 65;  ///< lines above the foot
constexpr int kPinningColumn = 26;
constexpr std::size_t kKeysInBlock = 3;

/// What is printed of a key.
struct PinnedKey {
    QString description, labelAndCuts;
    std::vector<PinStack> pins;
};

/// How many pins of each size, 0 to 9.
using PinCounts = std::array<int, 10>;

PinnedKey PinnedKeyOf(const Session& session, const ReportKey& key) {
    return {OneLine(key.Description),
            Padded(key.Label, kKeyIDWidth) + u' ' + PrintedCuts(session, key.plain),
            PinsOf(session, key.plain)};
}

/// A copy of the report in the making.
class PinningCopy {
public:
    PinningCopy(const Session& session, Printer& printer, const ReportHead& head,
                const std::vector<PinnedKey>& keys)
        : m_core(session.System.SystemIsIC), m_printer(printer), m_head(head), m_keys(keys) {
        for (const PinnedKey& key : keys)
            for (const PinStack& stack : key.pins) {
                ++m_top.at(static_cast<std::size_t>(stack.Master()));
                ++m_bottom.at(static_cast<std::size_t>(stack.bottom));
            }
    }

    void Print() {
        PrintHead();
        for (std::size_t first = 0; first < m_keys.size(); first += kKeysInBlock) {
            if (m_lines > kPinningLines)
                BreakPage();
            PrintBlock(first);
        }
        PrintFoot();
    }

private:
    void PrintHead() {
        m_printer.FontBold = true;
        m_printer.FontSize = 15;
        m_printer.Print();
        m_printer.Print({Zone(2), "       ", m_head.ProgramTitle});
        m_printer.Print();
        m_printer.Print({Zone(2), "     Pinning Chart for ", m_head.SystemNameLabel});
        m_printer.Print({Zone(3), ReportDate(m_head.date)});
        m_printer.FontSize = 10;
        m_printer.FontBold = false;
        m_printer.Print({Rule(kPinningRule)});
        m_printer.Print({Zone(2), "_Pins ___0______1______2______3______4______5______6______7____"
                                  "__8______9______"});
        PrintCounts("__T____", m_top);
        PrintCounts("__B____", m_bottom);
        m_printer.Print({Rule(kPinningRule)});
        m_printer.Print();
        m_printer.PaintPicture(m_head.logo);
        m_lines = kPinningHeadLines;
    }

    void PrintCounts(const char* name, const PinCounts& counts) {
        m_printer.PrintOpen({Zone(2), name});
        for (const int count : counts)
            m_printer.PrintOpen({Left(Str(count) + QStringLiteral("________"), 7)});
        m_printer.Print();
    }

    void PrintBlock(std::size_t first) {
        const auto row = [&](int colour, const char* heading, auto&& text) {
            m_printer.ForeColor = colour;
            m_printer.PrintOpen({heading});
            for (std::size_t place = first; place < first + kKeysInBlock; ++place)
                m_printer.PrintOpen({Padded(place < m_keys.size() ? text(m_keys[place]) : QString(),
                                            kPinningColumn),
                                     "  "});
            EndRow();
        };
        const auto pins = [](QString (*rowOf)(const std::vector<PinStack>&)) {
            return [rowOf](const PinnedKey& key) { return rowOf(key.pins); };
        };
        row(ink::kRed, "Description  ", [](const PinnedKey& key) { return key.description; });
        EndRow();
        row(ink::kBlack, "Key ID-Cuts  ", [](const PinnedKey& key) { return key.labelAndCuts; });
        if (m_core) {
            row(ink::kMagenta, "Driver Pins  ", pins(DriverPins));
            row(ink::kCyan, "Control Pins ", pins(ControlPins));
        }
        row(ink::kBlue, "Top Pins     ", pins(TopPins));
        row(ink::kGreen, "Bottom Pins  ", pins(BottomPins));
        m_printer.ForeColor = ink::kBlack;
        m_printer.PrintOpen({Rule(kPinningRule)});
        EndRow();
    }

    void EndRow() {
        m_printer.Print();
        ++m_lines;
    }

    void PrintFoot() {
        while (m_lines < kPinningFoot)
            EndRow();
        m_printer.Print(
            {"                                            Page #", QString::number(m_page)});
        ++m_page;
    }

    void BreakPage() {
        PrintFoot();
        m_printer.NewPage();
        PrintHead();
    }

    const bool m_core;
    Printer& m_printer;
    const ReportHead& m_head;
    const std::vector<PinnedKey>& m_keys;
    PinCounts m_top{}, m_bottom{};
    int m_lines = 0;
    int m_page = 1;
};

} // namespace

QStringList PrintPinningReport(Session& session, Printer& printer, const ReportHead& head,
                               const std::vector<ReportEntry>& chosen, bool pinKit) {
    const std::vector<ReportKey> named = ReadNamedKeys(session);
    QStringList passedOver;
    std::vector<PinnedKey> keys;
    std::vector<PinStack> pins;
    for (const ReportKey* key : FindChosen(named, chosen, passedOver)) {
        keys.push_back(PinnedKeyOf(session, *key));
        pins.insert(pins.end(), keys.back().pins.begin(), keys.back().pins.end());
    }
    PinningCopy(session, printer, head, keys).Print();
    if (pinKit) {
        printer.NewPage();
        PrintPinKit(session, printer, head, pins);
    }
    printer.EndDoc();
    return passedOver;
}

} // namespace quorrel
