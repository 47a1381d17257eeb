// A second workstation for the tests: works on a program folder as a process of its own.
//
//   workstation FOLDER create NAME MASTER   creates a key system; prints "created ID"
//   workstation FOLDER delete NAME          deletes a key system; prints "deleted"
//   workstation FOLDER list                 prints "NAME: PATTERNS" for each key system
//   workstation FOLDER hold MILLISECONDS    holds the write lock; prints "holding" when it has it
//   workstation FOLDER hold-maps MILLISECONDS   as hold, of the map file
//   workstation FOLDER lock MILLISECONDS    shuts everybody out of the key system file; prints
//                                           "locked" when it has
//   workstation FOLDER both MOMENT COUNT    writes a door and a map for the first system in one
//                                           transaction and dies within it, as `DyingEngine` says;
//                                           prints "survived" when it has stored them before that
//   workstation FOLDER office SEED COUNT    acts COUNT times on key units at random; prints what
//                                           was done so far after each
//   workstation FOLDER open-as-nobody       opens the files as a user without the right to write
//
// Fails with exit code 1 and a message on standard error.

#include "platform/Recordset.h"
#include "start/Startup.h"
#include "store/DoorTables.h"
#include "store/MapTransaction.h"
#include "support/DyingEngine.h"
#include "support/KeyBooks.h"
#include "systems/KeySystems.h"
#include "systems/NewSystem.h"

#include <QString>
#include <QThread>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

#include <exception>
#include <iostream>
#include <stdexcept>

using namespace quorrel;

namespace {

/// Nobody sits before this workstation.
class NoBoxes : public Boxes {
public:
    std::unique_ptr<Progress> BeginProgress(const QString&, const QString&, int) override {
        throw std::runtime_error("Nobody watches");
    }

private:
    QString ShowOpenFile(const QString&, const QString&) override { return {}; }
    QString ShowSaveFile(const QString&, const QString&, const QString&) override { return {}; }
    std::optional<QString> ShowInput(const QString&, const QString&, const QString&) override {
        return std::nullopt;
    }
    std::optional<PrinterChoice> ShowPrinters(const PrinterChoice&) override {
        return std::nullopt;
    }
    BoxAnswer ShowMessage(const QString& text, const QString&, BoxButtons, BoxIcon) override {
        throw std::runtime_error(text.toStdString());
    }
};

void Create(Session& session, const QString& name, const std::string& master) {
    NewSystem system;
    system.name = name;
    system.definition.master = master;
    system.definition.pins = static_cast<int>(master.size());
    if (const auto refusal = CheckNewSystem(session, system))
        throw std::runtime_error(refusal->text.toStdString());
    std::cout << "created " << CreateKeySystem(session, system).SystemID << std::endl;
}

void Delete(Session& session, const QString& name) {
    for (const KeySystemRow& system : ListKeySystems(session))
        if (system.SystemName == name)
            DeleteKeySystem(session, system);
    std::cout << "deleted" << std::endl;
}

void List(Session& session) {
    for (const KeySystemRow& system : ListKeySystems(session))
        std::cout << system.SystemName.toStdString() << ": "
                  << ContentsOf(session, system.SystemID).keys << std::endl;
}

void Hold(Session& session, unsigned long milliseconds) {
    const Transaction transaction(session.Keys());
    std::cout << "holding" << std::endl;
    QThread::msleep(milliseconds);
}

void HoldMaps(Session& session, unsigned long milliseconds) {
    const auto maps = OpenMaps(session, {});
    const Transaction transaction(*maps);
    std::cout << "holding" << std::endl;
    QThread::msleep(milliseconds);
}

void Lock(Session& session, unsigned long milliseconds) {
    session.Keys().Execute("BEGIN EXCLUSIVE");
    std::cout << "locked" << std::endl;
    QThread::msleep(milliseconds);
}

void WriteBoth(Session& session, const std::string& moment, int count) {
    OpenKeySystem(session, ListKeySystems(session).at(0));
    DoorsRow door;
    door.SystemNumber = session.ActiveSystemNumber;
    MapRow map;
    map.SystemNumber = session.ActiveSystemNumber;
    map.MapID = 1 + static_cast<int>(Recordset<MapRow>(*session.MapDatabase).Count());
    test::DyingEngine::Arm(moment, count);
    MapTransaction transaction(session);
    Recordset<DoorsRow>::Add(session.Keys(), door);
    Recordset<MapRow>::Add(session.Keys(), map);
    transaction.Commit();
    std::cout << "survived" << std::endl;
}

/// Deals with key units of the first system at random, telling after each action how often each
/// kind was done.
void Office(Session& session, unsigned seed, int actions) {
    OpenKeySystem(session, ListKeySystems(session).at(0));
    session.SessionPermissions.AddEditKeyUsers = true;
    test::BusyOffice office(session, seed);
    while (actions-- > 0) {
        office.Act();
        const auto& done = office.Done();
        std::cout << done.issued << ' ' << done.assigned << ' ' << done.returned << ' ' << done.lost
                  << ' ' << done.deleted << std::endl;
    }
}

void BecomeNobody() {
#ifdef Q_OS_UNIX
    constexpr uid_t nobody = 65534;
    if (geteuid() == 0 && setuid(nobody) != 0)
        throw std::runtime_error("cannot become nobody");
#endif
}

void Run(const QString& folder, const QString& verb, int argc, char** argv) {
    if (verb == QLatin1String("open-as-nobody"))
        BecomeNobody();
    test::DyingEngine::Install();
    NoBoxes boxes;
    Session session(folder, boxes, SystemClock(), Random([] { return 1U; }));
    session.BusyTimeout = 60000; // However busy the machine is, it gets its turn.
    QString failure;
    if (!LoadStartupFiles(session, failure))
        throw std::runtime_error(failure.toStdString());
    if (verb == QLatin1String("create") && argc == 5)
        Create(session, QString::fromUtf8(argv[3]), argv[4]);
    else if (verb == QLatin1String("delete") && argc == 4)
        Delete(session, QString::fromUtf8(argv[3]));
    else if (verb == QLatin1String("list"))
        List(session);
    else if (verb == QLatin1String("hold") && argc == 4)
        Hold(session, std::stoul(argv[3]));
    else if (verb == QLatin1String("hold-maps") && argc == 4)
        HoldMaps(session, std::stoul(argv[3]));
    else if (verb == QLatin1String("lock") && argc == 4)
        Lock(session, std::stoul(argv[3]));
    else if (verb == QLatin1String("both") && argc == 5)
        WriteBoth(session, argv[3], std::stoi(argv[4]));
    else if (verb == QLatin1String("office") && argc == 5)
        Office(session, static_cast<unsigned>(std::stoul(argv[3])), std::stoi(argv[4]));
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3)
        return 2;
    try {
        Run(QString::fromUtf8(argv[1]), QString::fromLatin1(argv[2]), argc, argv);
    } catch (const std::exception& error) {
        std::cerr << error.what() << std::endl;
        return 1;
    }
    return 0;
}
