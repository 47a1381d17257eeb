#include "reports/IssueChart.h"

#include "platform/Text.h"
#include "reports/HeldUnits.h"
#include "reports/ReportKeys.h"
#include "store/DayNumber.h"
#include "store/OfSystem.h"

namespace quorrel {

namespace {

constexpr int kRowsOfChart = 27;
constexpr int kSignature = 64; ///< columns

/// A unit of a key with its number, both as they are compared.
QString UnitName(const QString& keyID, const QString& unit) {
    return Padded(keyID, kKeyIDWidth) + Padded(unit, kKeyIDWidth);
}

/// What the charts of all keys are made of.
struct IssueBooks {
    explicit IssueBooks(Session& session) {
        Recordset<KeyUnitRow>(session.Keys(),
                              OfSystem<KeyUnitRow>(session).OrderBy(&KeyUnitRow::UnitIDNumber))
            .Walk([&](const KeyUnitRow& unit) {
                unitsOf[Padded(unit.KeyID, kKeyIDWidth)] += unit.UnitID;
                return true;
            });
        Recordset<HandedUnit>(session.Keys(),
                              OfSystem<HandedUnit>(session).OrderBy(&UsertoUnitRow::UnitID))
            .Walk([&](const HandedUnit& unit) {
                const QString name = UnitName(unit.KeyID, unit.UnitID);
                if (!handed.contains(name))
                    handed.insert(name, unit);
                return true;
            });
        Recordset<ReportHolder>(session.Keys(), OfSystem<ReportHolder>(session))
            .Walk([&](const ReportHolder& holder) {
                const QString number = RightTrimmed(holder.UserIDNumber);
                if (!holders.contains(number))
                    holders.insert(number, holder);
                return true;
            });
    }

    QHash<QString, QStringList> unitsOf; ///< by the Key ID
    QHash<QString, HandedUnit> handed;   ///< by `UnitName`
    QHash<QString, ReportHolder> holders;
};

/// The chart of one key in the making.
class KeyChart {
public:
    KeyChart(Session& session, Printer& printer, const ReportHead& head, const ReportKey& key)
        : m_printer(printer), m_head(head), m_key(key),
          m_cuts(session.SessionPermissions.ReadPrintPinning ? QString::fromStdString(key.plain)
                                                             : QStringLiteral("********")) {
        PrintHead(
            "             Key Issue Chart - ", 80,
            " Key Unit      TM ID       Print Name             Date Issued        Signature    "
            "                  ");
    }

    void Print(const IssueBooks& books) {
        const QString keyID = Padded(m_key.Label, kKeyIDWidth);
        for (const QString& unit : books.unitsOf.value(keyID)) {
            if (m_rows == kRowsOfChart)
                BreakPage();
            const auto handed = books.handed.constFind(UnitName(keyID, unit));
            if (handed == books.handed.constEnd())
                PrintUnit(unit, {}, {}, {});
            else
                PrintHanded(unit, *handed, books.holders.value(RightTrimmed(handed->UserID)));
        }
        while (m_rows < kRowsOfChart)
            PrintRow({QString(96, u' ')});
        m_printer.NewPage();
    }

private:
    void PrintHead(const char* title, int rule, const char* columns) {
        PrintProgramTitle(m_printer, m_head);
        m_printer.FontSize = 11;
        m_printer.Print({Zone(2), title, m_head.SystemNameLabel, " - Key ",
                         Left(m_key.Label + QString(13, u' '), 12)});
        m_printer.Print({Zone(2), Left(m_cuts + QString(44, u' '), 30), " ",
                         Left(ReportDate(m_head.date) + QString(20, u' '), 17), QString(13, u' ')});
        m_printer.FontSize = 10;
        m_printer.FontBold = false;
        m_printer.Print({Zone(2), " ", Rule(rule)});
        m_printer.PaintPicture(m_head.logo);
        m_printer.Print();
        m_printer.FontUnderline = true;
        m_printer.Print({columns});
        m_printer.FontUnderline = false;
        m_rows = 0;
    }

    void BreakPage() {
        m_printer.Print({" ", Rule(93)});
        m_printer.NewPage();
        PrintHead(
            "        Key Issue Chart - ", 81,
            " Key Unit      TM ID       Print Name                         Signature           "
            "                  ");
    }

    void PrintHanded(const QString& unit, const HandedUnit& handed, const ReportHolder& holder) {
        PrintUnit(unit, handed.UserID, holder.HasName() ? OneLine(holder.Name()) : QString(),
                  handed.KeyUsersID == 0 ? QString() : DayText(handed.KeyUsersID));
    }

    void PrintUnit(const QString& unit, const QString& number, const QString& name,
                   const QString& date) {
        PrintRow({"     ", Left(unit, 8), NextZone(), Padded(number, 8), NextZone(),
                  Left(name + QString(27, u' '), 20), NextZone(), Padded(date, 10), NextZone(),
                  QString(kSignature, u' ')});
    }

    /// A row, and the room to sign above the next one.
    void PrintRow(std::initializer_list<PrintItem> items) {
        m_printer.FontUnderline = true;
        m_printer.Print(items);
        m_printer.FontUnderline = false;
        m_printer.Print();
        ++m_rows;
    }

    Printer& m_printer;
    const ReportHead& m_head;
    const ReportKey& m_key;
    const QString m_cuts;
    int m_rows = 0;
};

} // namespace

QStringList PrintIssueCharts(Session& session, Printer& printer, const ReportHead& head,
                             const std::vector<ReportEntry>& chosen) {
    const std::vector<ReportKey> named = ReadNamedKeys(session);
    const IssueBooks books(session);
    QStringList passedOver;
    for (const ReportKey* key : FindChosen(named, chosen, passedOver))
        KeyChart(session, printer, head, *key).Print(books);
    printer.EndDoc();
    printer.FontUnderline = false;
    printer.KillDoc();
    return passedOver;
}

} // namespace quorrel
