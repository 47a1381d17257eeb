#include "reports/PinKitPage.h"

#include "pinning/PinSizes.h"
#include "pinning/PinningChart.h"
#include "platform/Text.h"

#include <algorithm>
#include <map>

namespace quorrel {

namespace {

constexpr int kKitRule = 92;
constexpr int kTallest = 19; ///< steps of the longest pin that has a length

/// Pins by their steps.
using PinTally = std::map<int, int>;

/// Steps of the single pins that a pin of 10 to 19 steps is stacked of.
constexpr std::initializer_list<int> kStackedOf[] = {{8, 2}, {9, 2}, {8, 4}, {9, 4},    {8, 6},
                                                     {9, 6}, {8, 8}, {9, 8}, {8, 2, 8}, {8, 4, 8}};

/// The lengths of a lock brand's pins, empty where its table has none.
class PinLengths {
public:
    PinLengths(Session& session, const QString& brand)
        : m_sizes(FindPinSizes(session, brand).value_or(PinSizes())),
          m_tall(TallPins(m_sizes.top)) {}

    QString Bottom(int steps) const { return Single(m_sizes.bottom, steps); }

    /// Of a top, a control or a driver pin, which are made of the same pins.
    QString Upper(int steps) const {
        if (steps < 10)
            return Single(m_sizes.top, steps);
        if (steps > kTallest)
            return {};
        const auto place = static_cast<std::size_t>(steps - 10);
        const auto& parts = kStackedOf[place];
        const bool whole = std::all_of(parts.begin(), parts.end(), [&](int part) {
            return !Single(m_sizes.top, part).isEmpty();
        });
        return whole ? m_tall[place].trimmed() : QString();
    }

private:
    static QString Single(const std::array<QString, 10>& sizes, int steps) {
        return steps < 0 || steps > 9 ? QString()
                                      : sizes[static_cast<std::size_t>(steps)].trimmed();
    }

    PinSizes m_sizes;
    std::array<QString, 10> m_tall;
};

class PinKitPrint {
public:
    PinKitPrint(Session& session, Printer& printer, const ReportHead& head)
        : m_printer(printer), m_head(head), m_brand(session.System.lockBrand),
          m_lengths(session, m_brand) {}

    void PrintHead() {
        m_printer.FontBold = true;
        m_printer.FontSize = 15;
        m_printer.Print();
        m_printer.Print({Zone(2), "       ", m_head.ProgramTitle});
        m_printer.Print();
        m_printer.Print({Zone(2), "     Pin Kit for ", m_head.SystemNameLabel});
        m_printer.Print({Zone(3), ReportDate(m_head.date)});
        m_printer.FontSize = 10;
        m_printer.FontBold = false;
        m_printer.Print({Rule(kKitRule)});
        m_printer.Print({Zone(2), "Lock brand: ", OneLine(m_brand)});
        m_printer.Print();
        m_printer.FontUnderline = true;
        m_printer.Print({Zone(2), Padded(QStringLiteral("Pin"), 14),
                         Padded(QStringLiteral("Steps"), 14), Padded(QStringLiteral("Length"), 14),
                         Padded(QStringLiteral("Pieces"), 14)});
        m_printer.FontUnderline = false;
        m_printer.PaintPicture(m_head.logo);
    }

    void PrintTally(const char* kind, const PinTally& tally,
                    QString (PinLengths::*lengthOf)(int) const) {
        for (const auto& [steps, pieces] : tally) {
            const QString length = (m_lengths.*lengthOf)(steps);
            m_lacks = m_lacks || length.isEmpty();
            m_printer.Print({Zone(2), Padded(QLatin1String(kind), 14),
                             Padded(QString::number(steps), 14),
                             Padded(length.isEmpty() ? QStringLiteral("?") : length, 14),
                             QString::number(pieces)});
        }
    }

    void PrintFoot() {
        m_printer.Print({Rule(kKitRule)});
        if (m_lacks)
            m_printer.Print({Zone(2), "? : the pin sizes of this lock brand tell no such length."});
    }

private:
    Printer& m_printer;
    const ReportHead& m_head;
    const QString m_brand;
    const PinLengths m_lengths;
    bool m_lacks = false; ///< a length that the brand's table does not have
};

} // namespace

void PrintPinKit(Session& session, Printer& printer, const ReportHead& head,
                 const std::vector<PinStack>& chambers) {
    PinTally bottom, top, control, driver;
    for (const PinStack& stack : chambers) {
        ++bottom[stack.bottom];
        for (const int wafer : stack.wafers)
            ++top[wafer];
        if (stack.control)
            ++control[*stack.control];
        if (stack.driver)
            ++driver[*stack.driver];
    }
    PinKitPrint print(session, printer, head);
    print.PrintHead();
    print.PrintTally("Bottom", bottom, &PinLengths::Bottom);
    print.PrintTally("Top", top, &PinLengths::Upper);
    print.PrintTally("Control", control, &PinLengths::Upper);
    print.PrintTally("Driver", driver, &PinLengths::Upper);
    print.PrintFoot();
}

} // namespace quorrel
