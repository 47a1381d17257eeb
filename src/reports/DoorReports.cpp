#include "reports/DoorReports.h"

#include "engine/MasterMask.h"
#include "engine/PageGeometry.h"
#include "platform/Text.h"
#include "reports/ReportKeys.h"
#include "store/DoorTables.h"
#include "store/OfSystem.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace quorrel {

namespace {

constexpr int kDoorRule = 93;
constexpr int kLinesOfHead = 7;
constexpr int kRightEdge = 105; ///< columns of a sheet
constexpr int kDescriptionColumn = 84;
constexpr int kMasterDescription = 20;
const QString kDoorDots =
    QStringLiteral(" ....................................................................");

struct ReportDoor {
    using Self = ReportDoor;
    using Whole = DoorsRow;
    RowKey key = 0;
    QString DoorLabel;
    QString DoorDescription;
    QString CutsLabel;
    int Sing2 = 0;
    bool Crosskeyed = false;

    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(DoorLabel), QUORREL_COLUMN(DoorDescription),
                          QUORREL_COLUMN(CutsLabel), QUORREL_COLUMN(Sing2),
                          QUORREL_COLUMN(Crosskeyed)};
    }
};

/// The doors of the open system by the key that they are assigned to.
class KeyedDoors {
public:
    KeyedDoors(Session& session, DoorsToList which) {
        Recordset<ReportDoor>(session.Keys(), OfSystem<ReportDoor>(session))
            .Walk([&](const ReportDoor& door) {
                if (which == DoorsToList::Unkeyed && door.Sing2 == 1)
                    return true;
                m_placesOf[Padded(door.CutsLabel, kKeyIDWidth)].push_back(m_doors.size());
                m_doors.push_back(door);
                return true;
            });
    }

    /// The doors of some Key IDs in table order; of doors with the same label the first.
    std::vector<const ReportDoor*> DoorsOf(const QSet<QString>& keyIDs) const {
        std::vector<std::size_t> places;
        for (const QString& keyID : keyIDs) {
            const std::vector<std::size_t> of = m_placesOf.value(keyID);
            places.insert(places.end(), of.begin(), of.end());
        }
        std::sort(places.begin(), places.end());
        QSet<QString> labels;
        std::vector<const ReportDoor*> doors;
        for (const std::size_t place : places) {
            const QString label = RightTrimmed(m_doors[place].DoorLabel);
            if (labels.contains(label))
                continue;
            labels.insert(label);
            doors.push_back(&m_doors[place]);
        }
        return doors;
    }

private:
    std::vector<ReportDoor> m_doors;
    QHash<QString, std::vector<std::size_t>> m_placesOf;
};

QString DottedDoorLine(const ReportDoor& door) {
    const QString label = door.Crosskeyed
                              ? Left(door.DoorLabel, 13) + QStringLiteral("  * .............*")
                              : door.DoorLabel + QStringLiteral("  ................");
    return Left(label, 16) + Left(OneLine(door.DoorDescription) + kDoorDots, 40) +
           QStringLiteral(" assigned to key ") + door.CutsLabel;
}

/// A copy of a door report in the making.
class DoorCopy {
public:
    DoorCopy(Session& session, Printer& printer, const ReportHead& head, DoorsToList which)
        : m_session(session), m_printer(printer), m_head(head), m_which(which) {
        PrintHead(Unkeyed() ? " UnKeyed Doors by Key List - " : " Door List Chart - ");
    }

    void Print(const ReportKey& key, const std::vector<const ReportDoor*>& doors) {
        m_key = &key;
        m_begun = false;
        if (m_lines >= Limit())
            BreakPage();
        Line({});
        if (IsMasterPosition(key.Position))
            PrintMaster();
        else
            PrintChangeKey();
        m_begun = true;
        for (const ReportDoor* door : doors)
            PrintDoor(*door);
    }

    void End() {
        m_printer.Print({" ", Rule(kDoorRule)});
        m_printer.EndDoc();
        m_printer.FontUnderline = false;
        m_printer.KillDoc();
    }

private:
    bool Unkeyed() const { return m_which == DoorsToList::Unkeyed; }
    int Limit() const { return Unkeyed() ? 61 : 62; }

    void PrintHead(const char* title) {
        m_printer.FontBold = true;
        m_printer.FontSize = 15;
        m_printer.Print({Zone(2), " "});
        m_printer.Print({Zone(2), " "});
        PrintTitleLines(m_printer, m_head, QLatin1String(title) + m_head.SystemNameLabel,
                        QStringLiteral(" "));
        m_lines = kLinesOfHead;
    }

    void BreakPage() {
        const PrintedStyle style{m_printer.FontSize, m_printer.FontBold, m_printer.FontItalic,
                                 m_printer.FontUnderline, m_printer.ForeColor};
        SetPlain();
        m_printer.Print({" ", Rule(kDoorRule)});
        m_printer.NewPage();
        PrintHead(Unkeyed() ? " UnKeyed Doors by Key List - " : " Doors by Key List - ");
        if (m_begun)
            PrintContinuation();
        m_printer.FontBold = style.bold;
        m_printer.FontItalic = style.italic;
        m_printer.ForeColor = style.colour;
    }

    /// Prints a line, on a new page where this one is full.
    void Line(std::initializer_list<PrintItem> items) {
        if (m_lines >= Limit())
            BreakPage();
        m_printer.Print(items);
        ++m_lines;
    }

    void SetPlain() {
        m_printer.FontBold = m_printer.FontItalic = false;
        m_printer.ForeColor = ink::kBlack;
    }

    void SetMasterStyle() {
        m_printer.FontBold = m_printer.FontItalic = true;
        m_printer.ForeColor = InkOfMaster(m_session, *m_key);
    }

    void PrintMaster() {
        SetMasterStyle();
        PrintMasterLine({});
        m_begun = true;
        if (m_printer.ForeColor == ink::kGreen)
            Line({"       is the Grand Master and will open all doors. "});
        else
            Line({"       is a Master Level Key and opens the following doors"});
        SetPlain();
    }

    /// `mark` stands at the end of the department's room.
    void PrintMasterLine(const QString& mark) {
        const auto room = static_cast<int>(50 - mark.size());
        Line({"    ", NextZone(), Left(m_key->Label, 11), NextZone(),
              Left(m_key->Department + QString(37, u' '), room) + mark, NextZone(),
              Left(ReportDescription(m_key->Description), kMasterDescription)});
    }

    void PrintChangeKey() {
        m_printer.FontBold = true;
        PrintChangeKeyLine({});
        SetPlain();
    }

    void PrintChangeKeyLine(const QString& mark) {
        const auto room = static_cast<int>(kRightEdge - kDescriptionColumn - mark.size());
        Line({Unkeyed() ? "    UnKeyed Doors - " : "    Doors for Key - ", Left(m_key->Label, 11),
              NextZone(), Left(m_key->Department + QString(37, u' '), 40), NextZone(),
              Left(ReportDescription(m_key->Description), room) + mark});
    }

    void PrintContinuation() {
        if (IsMasterPosition(m_key->Position)) {
            SetMasterStyle();
            PrintMasterLine(QStringLiteral("  Continued . . . "));
        } else {
            m_printer.FontBold = true;
            PrintChangeKeyLine(QStringLiteral(" Cont"));
        }
    }

    void PrintDoor(const ReportDoor& door) {
        m_printer.ForeColor = Unkeyed() ? ink::kBlue : ink::kBlack;
        Line({"    ", DottedDoorLine(door)});
        m_printer.ForeColor = ink::kBlack;
    }

    Session& m_session;
    Printer& m_printer;
    const ReportHead& m_head;
    const DoorsToList m_which;
    const ReportKey* m_key = nullptr; ///< whose doors are printed
    bool m_begun = false;             ///< its own line stands
    int m_lines = 0;                  ///< since the page began
};

/// The Key IDs under a master, padded; of a change key only its own.
QSet<QString> KeyIDsBelow(const Session& session, const std::vector<ReportKey>& named,
                          const ReportKey& key) {
    QSet<QString> below{Padded(key.Label, kKeyIDWidth)};
    if (key.plain.empty() || !IsMasterPosition(key.Position))
        return below;
    const MasterMask mask(key.plain, session.System.MasterKeyCuts);
    for (const ReportKey& other : named)
        if (!other.plain.empty() && mask.Covers(other.plain))
            below.insert(Padded(other.Label, kKeyIDWidth));
    return below;
}

} // namespace

QStringList PrintDoorsByKey(Session& session, Printer& printer, const ReportHead& head,
                            const std::vector<ReportEntry>& chosen, DoorsToList which) {
    const std::vector<ReportKey> named = ReadNamedKeys(session);
    const KeyedDoors doors(session, which);
    QStringList passedOver;
    DoorCopy copy(session, printer, head, which);
    for (const ReportKey* key : FindChosen(named, chosen, passedOver))
        copy.Print(*key, doors.DoorsOf(KeyIDsBelow(session, named, *key)));
    copy.End();
    return passedOver;
}

} // namespace quorrel
