#pragma once

#include "engine/SystemDefinition.h"
#include "start/Startup.h"
#include "store/ProgramFolder.h"
#include "store/Session.h"
#include "support/ScriptedBoxes.h"
#include "systems/KeySystems.h"
#include "systems/NewSystem.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>

namespace quorrel::test {

/// A definition with the values that most tests do not care about.
inline SystemDefinition Definition(const std::string& master, int minPin = 0, int maxPin = 9,
                                   int increment = 2, int safetyFactor = 9) {
    return {master, static_cast<int>(master.size()), minPin, maxPin, increment, safetyFactor};
}

inline NewSystem StandardSystem(const QString& name, const std::string& master) {
    NewSystem system;
    system.name = name;
    system.definition = Definition(master);
    return system;
}

/// A program folder with freshly laid-out files, and a session on it with all rights, started up
/// but not logged on. Its clock stands at noon of 15 March 2026, its random numbers are fixed.
class TestProgram {
public:
    TestProgram()
        : session(
              folder.path(), boxes, [] { return QDateTime(QDate(2026, 3, 15), QTime(12, 0)); },
              Random([] { return 20260315U; })) {
        LayOutProgramFolder(QStringLiteral(QUORREL_DELIVERED), folder.path());
        QString failure;
        EXPECT_TRUE(LoadStartupFiles(session, failure)) << failure.toStdString();
        LoadCompany(session);
        session.SessionPermissions = {true, true, true, true, true, true, true};
        session.ProgramTitle = QStringLiteral("Quorrel for Test");
    }

    /// Creates a system and makes it the session's open one.
    KeySystemRow CreateAndOpen(const NewSystem& system) {
        KeySystemRow row = CreateKeySystem(session, system);
        OpenKeySystem(session, row);
        return row;
    }

    QString PathOf(const char* name) const { return folder.filePath(QLatin1String(name)); }

    QTemporaryDir folder;
    ScriptedBoxes boxes;
    Session session;
};

} // namespace quorrel::test
