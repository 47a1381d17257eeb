#pragma once

#include "support/TestProgram.h"

namespace quorrel::test {

/// A second workstation at work on the files of a program and on its open system, within the test.
/// A form that it should trouble belongs to the program.
class OtherSession {
public:
    explicit OtherSession(const TestProgram& program)
        : session(program.folder.path(), m_boxes, program.session.clock, program.session.random) {
        QString failure;
        EXPECT_TRUE(LoadStartupFiles(session, failure)) << failure.toStdString();
        session.SessionPermissions = {true, true, true, true, true, true, true};
        for (const KeySystemRow& system : ListKeySystems(session))
            if (system.SystemID == program.session.ActiveSystemNumber)
                OpenKeySystem(session, system);
    }

private:
    ScriptedBoxes m_boxes;

public:
    Session session;
};

} // namespace quorrel::test
