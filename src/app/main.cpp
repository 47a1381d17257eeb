#include "app/Program.h"
#include "store/ProgramFolder.h"
#include "widgets/KeyArt.h"
#include "widgets/ScreenBoxes.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QStandardPaths>
#include <QTimer>

#include <exception>

using namespace quorrel;

namespace {

/// Where the delivered files of an installed copy are.
QString DeliveredFolder() {
    const QDir executable(QCoreApplication::applicationDirPath());
    for (const char* folder : {"delivered", "../share/quorrel"})
        if (executable.exists(QLatin1String(folder)))
            return executable.filePath(QLatin1String(folder));
    return {};
}

/// The program folder, laid out first when it is a user's own.
QString PrepareProgramFolder() {
    const QString executable = QCoreApplication::applicationDirPath();
    const QString delivered = DeliveredFolder();
    const QString folder = ChooseProgramFolder(
        executable, QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation),
        delivered);
    if (folder != executable && !delivered.isEmpty())
        LayOutProgramFolder(delivered, folder);
    return folder;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quorrel"));
    QApplication::setApplicationVersion(QStringLiteral(QUORREL_VERSION));
    QApplication::setQuitOnLastWindowClosed(false);
    QIcon icon;
    for (const int size : {16, 32, 64, 256})
        icon.addPixmap(KeyEmblem(size));
    QApplication::setWindowIcon(icon);

    ScreenBoxes boxes;
    QString folder;
    try {
        folder = PrepareProgramFolder();
    } catch (const std::exception& error) {
        boxes.Message(QString::fromUtf8(error.what()), QStringLiteral("Quorrel"), BoxButtons::Ok,
                      BoxIcon::Warning);
        return 1;
    }
    const auto seed = [] { return static_cast<quint32>(QDateTime::currentMSecsSinceEpoch()); };
    Session session(folder, boxes, SystemClock(), Random(seed));
    Program program(session);
    QObject::connect(&program, &Program::Ended, &application, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    QTimer::singleShot(0, &program, [&] { program.Start(true); });
    return QApplication::exec();
}
