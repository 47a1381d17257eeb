// Walks through the program's windows like a user and keeps a picture of every step.
//
//   quorrel_tour [--scale FACTOR] [--dark] DELIVERED-FOLDER [PICTURE-FOLDER]
//
// Fails with exit code 1, naming the step, when a window does not show what it should.

#include "Tour.h"

#include "app/Program.h"
#include "store/ProgramFolder.h"
#include "widgets/KeyArt.h"
#include "widgets/ScreenBoxes.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <QStyleFactory>
#include <QTemporaryDir>

#include <exception>
#include <iostream>

using namespace quorrel;
using namespace quorrel::tour;

namespace {

struct Options {
    QString delivered;
    QString pictures = QStringLiteral("tour-pictures");
    QString scale;
    bool dark = false;
};

Options ReadOptions(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    QCommandLineParser parser;
    const QCommandLineOption scale(QStringLiteral("scale"), {}, QStringLiteral("factor"));
    const QCommandLineOption dark(QStringLiteral("dark"));
    parser.addOptions({scale, dark});
    if (!parser.parse(arguments))
        throw WalkFailed(parser.errorText());
    const QStringList folders = parser.positionalArguments();
    if (folders.isEmpty() || folders.size() > 2)
        throw WalkFailed(QStringLiteral(
            "quorrel_tour [--scale FACTOR] [--dark] DELIVERED-FOLDER [PICTURE-FOLDER]"));
    Options options;
    options.delivered = folders[0];
    if (folders.size() > 1)
        options.pictures = folders[1];
    options.scale = parser.value(scale);
    options.dark = parser.isSet(dark);
    return options;
}

/// Passes on what the toolkit has to say, but for what a screen that is none cannot do.
void Tell(QtMsgType, const QMessageLogContext&, const QString& message) {
    if (!message.startsWith(QStringLiteral("This plugin does not support")))
        std::cerr << message.toStdString() << std::endl;
}

void Darken() {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QPalette palette;
    const QColor window(0x2b, 0x2d, 0x31);
    const QColor base(0x1e, 0x1f, 0x22);
    const QColor text(0xe4, 0xe6, 0xea);
    const QColor dimmed(0x84, 0x88, 0x90);
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::Button, QColor(0x3a, 0x3d, 0x43));
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::ToolTipBase, base);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::ToolTipText, QPalette::BrightText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, dimmed);
    }
    palette.setColor(QPalette::PlaceholderText, dimmed);
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0x7e, 0xc9));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x6c, 0xb2, 0xff));
    QApplication::setPalette(palette);
}

/// Where no display is wanted, one without glass, as large as a usual screen.
void UseNoDisplay(const QTemporaryDir& folder) {
    QFile screens(folder.filePath(QStringLiteral("screens.json")));
    if (!screens.open(QFile::WriteOnly))
        throw WalkFailed(screens.errorString());
    screens.write(R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": 1440, "height": 900,
                      "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens.fileName().toLocal8Bit());
}

void Walk(const Options& options) {
    QTemporaryDir folder;
    LayOutProgramFolder(options.delivered, folder.path());
    ScreenBoxes boxes;
    // Drawn numbers are the same on every tour, so that its pictures can be compared.
    Session session(folder.path(), boxes, SystemClock(), Random([] { return 20260315U; }));
    Program program(session);
    bool ended = false;
    QObject::connect(&program, &Program::Ended, [&] { ended = true; });
    Walker walker(program, options.pictures);
    Tour tour{walker, session};
    program.Start(true);
    WalkStart(tour);
    WalkFirstSystem(tour);
    WalkPages(tour);
    WalkPinning(tour);
    WalkLists(tour);
    WalkHolders(tour);
    WalkDoors(tour);
    WalkFind(tour);
    WalkBooks(tour);
    WalkReports(tour);
    WalkSecondSystem(tour);
    WalkAside(tour);
    WalkCore(tour);
    WalkListAndExit(tour);
    walker.Check(ended, QStringLiteral("The program has not ended"));
    walker.Check(!session.KeySystemDatabase, QStringLiteral("The key file is still open"));
}

} // namespace

int main(int argc, char** argv) {
    try {
        const Options options = ReadOptions(argc, argv);
        const QTemporaryDir folder;
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
            UseNoDisplay(folder);
        qInstallMessageHandler(Tell);
        if (!options.scale.isEmpty())
            qputenv("QT_SCALE_FACTOR", options.scale.toLatin1());
        QApplication application(argc, argv);
        QApplication::setApplicationName(QStringLiteral("Quorrel"));
        QApplication::setApplicationVersion(QStringLiteral(QUORREL_VERSION));
        QApplication::setQuitOnLastWindowClosed(false);
        QApplication::setWindowIcon(KeyEmblem(64));
        if (options.dark)
            Darken();
        Walk(options);
    } catch (const std::exception& error) {
        std::cerr << "The tour has failed. " << error.what() << std::endl;
        return 1;
    }
    std::cout << "The tour is complete." << std::endl;
    return 0;
}
