#include "LargestSystem.h"

#include "start/Startup.h"
#include "store/ProgramFolder.h"
#include "systems/KeySystems.h"

#include <stdexcept>

namespace quorrel::bench {

SystemDefinition LargestDefinition() {
    SystemDefinition definition;
    definition.master = "3951728";
    definition.pins = 7;
    definition.minPin = 0;
    definition.maxPin = 9;
    definition.increment = 2;
    return definition;
}

NewSystem LargestSystem() {
    NewSystem system;
    system.name = QStringLiteral("Largest");
    system.definition = LargestDefinition();
    return system;
}

FreshFolder::FreshFolder() {
    LayOutProgramFolder(QStringLiteral(QUORREL_DELIVERED), m_folder.path());
}

QuietSession::QuietSession(const QString& folder)
    : session(folder, m_boxes, SystemClock(), Random([] { return 1U; })) {
    QString failure;
    if (!LoadStartupFiles(session, failure))
        throw std::runtime_error(failure.toStdString());
    LoadCompany(session);
    session.SessionPermissions = {true, true, true, true, true, true, true};
}

void QuietSession::OpenFirstSystem() {
    OpenKeySystem(session, ListKeySystems(session).at(0));
}

const FreshFolder& LargestFolder() {
    static const FreshFolder folder;
    static const bool filled = [] {
        QuietSession program(folder.Path());
        CreateKeySystem(program.session, LargestSystem());
        return true;
    }();
    static_cast<void>(filled);
    return folder;
}

} // namespace quorrel::bench
