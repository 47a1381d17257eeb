#pragma once

#include "doors/DoorSite.h"
#include "reports/ReportHead.h"

#include <QFile>

namespace quorrel::test {

/// A program with a system, of which reports are printed into plain text.
class ReportSite : public DoorSite {
public:
    ReportHead head{QStringLiteral("Quorrel for Acme"),
                    QStringLiteral("Pier"),
                    QDate(2026, 3, 15),
                    {QStringLiteral("logo.png"), 100, 50}};

    void AddDoor(const QString& label, const QString& description, const QString& location,
                 const QString& hardware) {
        DoorsRow door;
        door.SystemNumber = system.SystemID;
        door.DoorID = system.SystemID * 10000 + ++m_doors;
        door.DoorLabel = label;
        door.DoorDescription = description;
        door.DoorLocation = location;
        door.Text1 = hardware;
        Recordset<DoorsRow>::Add(session.Keys(), door);
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
    int m_doors = 0;
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
