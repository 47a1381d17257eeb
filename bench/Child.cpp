#include "Child.h"

#include "LargestSystem.h"
#include "PaintWatch.h"
#include "app/Program.h"
#include "page/frmMain.h"
#include "widgets/KeyArt.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QIcon>
#include <QPixmap>
#include <QProcess>
#include <QWidget>

#include <array>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string_view>

namespace quorrel::bench {

namespace {

/// In the order of `Task`.
constexpr std::array<const char*, 4> kTaskNames = {"", "--show-logon", "--show-empty-window",
                                                   "--open-largest"};

/// A line of the process's own status, in megabytes.
std::optional<double> StatusFigure(const char* name) {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return std::nullopt;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith(name))
            return line.simplified().split(' ').value(1).toDouble() / 1024;
    return std::nullopt;
}

void TellDone() {
    const double resident = StatusFigure("VmRSS:").value_or(0);
    const double anonymous = StatusFigure("RssAnon:").value_or(0);
    std::printf("%f %f\n", resident, anonymous);
    std::fflush(stdout);
}

void ShowLogon(const QString& folder) {
    QIcon icon;
    for (const int size : {16, 32, 64, 256})
        icon.addPixmap(KeyEmblem(size));
    QApplication::setWindowIcon(icon);
    QuietBoxes boxes;
    Session session(folder, boxes, SystemClock(), Random([] { return 1U; }));
    Program program(session);
    PaintWatch watch;
    watch.UntilPainted([&] { program.Start(false); });
    const QWidget* logon = program.LoadedForm(QStringLiteral("frmLogon"));
    if (!logon || !logon->isVisible())
        throw std::runtime_error("The logon is not on the screen.");
    TellDone();
}

void ShowEmptyWindow() {
    QWidget window;
    PaintWatch watch;
    watch.UntilPainted([&] { window.show(); });
    TellDone();
}

void OpenLargest(const QString& folder) {
    QuietSession program(folder);
    program.OpenFirstSystem();
    const auto form = std::make_unique<frmMain>(program.session);
    PaintWatch watch;
    watch.UntilPainted([&] { form->show(); });
    TellDone();
}

Outcome Parse(double seconds, const QByteArray& told) {
    const auto figures = told.simplified().split(' ');
    if (figures.size() != 2)
        throw std::runtime_error("A process of its own did not do its task.");
    const Memory memory{figures[0].toDouble(), figures[1].toDouble()};
    if (memory.resident <= 0)
        return {seconds, std::nullopt};
    return {seconds, memory};
}

} // namespace

Task TaskOf(int argc, char** argv) {
    for (std::size_t task = 1; task < kTaskNames.size(); ++task)
        if (argc == 3 && std::string_view(argv[1]) == kTaskNames[task])
            return static_cast<Task>(task);
    return Task::None;
}

int RunTask(Task task, const QString& folder) {
    if (task == Task::ShowLogon)
        ShowLogon(folder);
    if (task == Task::ShowEmptyWindow)
        ShowEmptyWindow();
    if (task == Task::OpenLargest)
        OpenLargest(folder);
    return 0;
}

Outcome RunInChild(Task task, const QString& folder) {
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QElapsedTimer timer;
    timer.start();
    child.start(QCoreApplication::applicationFilePath(),
                {QLatin1String(kTaskNames.at(static_cast<std::size_t>(task))), folder});
    child.waitForReadyRead();
    const double seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    child.waitForFinished();
    return Parse(seconds, child.readAllStandardOutput());
}

} // namespace quorrel::bench
