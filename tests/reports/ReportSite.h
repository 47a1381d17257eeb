#pragma once

#include "doors/DoorSite.h"
#include "engine/PageGeometry.h"
#include "platform/Text.h"
#include "reports/ReportEntry.h"
#include "reports/ReportHead.h"
#include "store/HolderTables.h"

#include <QFile>

namespace quorrel::test {

/// A program with a system, of which reports are printed into plain text.
class ReportSite : public DoorSite {
public:
    ReportHead head{QStringLiteral("Quorrel for Acme"),
                    QStringLiteral("Pier"),
                    QDate(2026, 3, 15),
                    {QStringLiteral("logo.png"), 100, 50}};

    explicit ReportSite(const NewSystem& made = StandardSystem("Pier", "395172")) : DoorSite(made) {
        session.SessionPermissions.ReadPrintPinning = true;
        session.SessionPermissions.RunReports = true;
    }

    /// Gives the theoretical master its Key ID.
    void NameMaster(const QString& label, const QString& description = {}) {
        for (PatternsRow row :
             Recordset<PatternsRow>(
                 session.Keys(),
                 Query<PatternsRow>()
                     .Where(&PatternsRow::SystemNumber, system.SystemID)
                     .Where(&PatternsRow::Position, MasterCell(session.System.PinCount)))
                 .Rows()) {
            row.Label = label;
            row.Description = description;
            Recordset<PatternsRow>::Update(session.Keys(), row);
        }
    }

    void AddDoor(const QString& label, const QString& description, const QString& location,
                 const QString& hardware) {
        DoorsRow door = NewDoor(label, description);
        door.DoorLocation = location;
        door.Text1 = hardware;
        Recordset<DoorsRow>::Add(session.Keys(), door);
    }

    /// A door that is assigned to a key.
    void AddKeyedDoor(const QString& label, const QString& keyID, const QString& description = {},
                      bool crossKeyed = false, bool done = false) {
        DoorsRow door = NewDoor(label, description);
        door.CutsLabel = Padded(keyID, 12);
        door.Crosskeyed = crossKeyed;
        door.Sing2 = done;
        Recordset<DoorsRow>::Add(session.Keys(), door);
    }

    void AddHolder(const QString& number, const QString& last, const QString& first,
                   const QString& department = {}) {
        KeyUsersRow holder;
        holder.SystemNumber = system.SystemID;
        holder.UserIDNumber = number;
        holder.Lastname = last;
        holder.Firstname = first;
        holder.Department = department;
        Recordset<KeyUsersRow>::Add(session.Keys(), holder);
    }

    /// Issues a unit, and gives it to the holder of a number unless that is empty.
    void AddUnit(const QString& keyID, const QString& unit, const QString& number = {},
                 int day = 20260314) {
        KeyUnitRow issued;
        issued.SystemNumber = system.SystemID;
        issued.KeyID = Padded(keyID, 12);
        issued.UnitID = unit;
        issued.UnitIDNumber = ++m_units;
        Recordset<KeyUnitRow>::Add(session.Keys(), issued);
        if (number.isEmpty())
            return;
        UsertoUnitRow held;
        held.SystemNumber = system.SystemID;
        held.KeyID = issued.KeyID;
        held.UnitID = unit;
        held.UserID = number;
        held.KeyUsersID = day;
        Recordset<UsertoUnitRow>::Add(session.Keys(), held);
    }

    /// The entries of these names, in their order.
    static std::vector<ReportEntry> Choose(const std::vector<ReportEntry>& all,
                                           const QStringList& names) {
        std::vector<ReportEntry> chosen;
        for (const QString& name : names)
            for (const ReportEntry& entry : all)
                if (entry.name == name)
                    chosen.push_back(entry);
        return chosen;
    }

    /// The sheets that a report prints, as one text.
    QString Printed(const std::function<void(Printer&)>& report, const Paper& paper = kA4,
                    const SheetNeeds& needs = {}) {
        PageCollector kept;
        Printer printer("Report", LayOutSheets(paper, needs), kept);
        report(printer);
        QString text;
        for (const PrintedPages& pages : kept.documents)
            text += PlainText(pages);
        return text;
    }

private:
    DoorsRow NewDoor(const QString& label, const QString& description) {
        DoorsRow door;
        door.SystemNumber = system.SystemID;
        door.DoorID = system.SystemID * 10000 + ++m_doors;
        door.DoorLabel = label;
        door.DoorDescription = description;
        return door;
    }

    int m_doors = 0, m_units = 0;
};

/// Compares a text with the golden one of a name, which it becomes where QUORREL_GOLDEN is set: it
/// is then to be read before it is kept.
inline void ExpectGolden(const char* name, const QString& text) {
    QFile file(QStringLiteral(QUORREL_SOURCES "/tests/reports/golden/%1.txt").arg(name));
    if (qEnvironmentVariableIsSet("QUORREL_GOLDEN")) {
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
        return;
    }
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(text.toStdString(), file.readAll().toStdString());
}

} // namespace quorrel::test
