#include "BareFile.h"
#include "Benches.h"
#include "LargestSystem.h"
#include "PaintWatch.h"
#include "holders/frmDBLostKeys.h"
#include "platform/Recordset.h"
#include "store/DatabaseFiles.h"
#include "store/HolderTables.h"
#include "widgets/RecordGrid.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>

#include <memory>
#include <stdexcept>

namespace quorrel::bench {

namespace {

constexpr int kLogRows = 500000;

/// Years of returned keys, day by day, of ten thousand keys and twenty thousand holders.
void FillLog(Database& keys, int systemNumber) {
    ReturnKeyRow row;
    row.SystemNumber = systemNumber;
    row.LoggedUser = QStringLiteral("Administrator");
    Transaction transaction(keys);
    Appender<ReturnKeyRow> append(keys, row);
    const QDate first(2000, 1, 1);
    for (int number = 0; number < kLogRows; ++number) {
        // Steps without common divisor, so that no column but the day is in order.
        const int mixed = static_cast<int>(number * 7919LL % kLogRows);
        row.ReturnID = number + 1;
        row.Date = first.addDays(number / 60).toString(Qt::ISODate);
        row.Time = QTime(8, 0).addSecs(mixed % 36000).toString(Qt::ISODate);
        row.KeyID = QStringLiteral("K%1").arg(mixed % 10000, 5, 10, QChar(u'0')).leftJustified(12);
        row.UnitID = QString::number(mixed % 40);
        row.UserName = QStringLiteral("Lastname %1, Firstname").arg(mixed % 20000);
        row.UserDepartment = QStringLiteral("DEPARTMENT %1").arg(mixed % 40);
        row.Report = QStringLiteral("Note %1").arg(mixed);
        append.Add();
    }
    transaction.Commit();
}

/// A folder whose file holds a long log. Made once; what uses it does not change it.
const FreshFolder& LogFolder() {
    static const FreshFolder folder;
    static const bool filled = [] {
        QuietSession program(folder.Path());
        NewSystem system;
        system.name = QStringLiteral("Long log");
        system.definition.master = "2715";
        system.definition.pins = 4;
        FillLog(program.session.Keys(), CreateKeySystem(program.session, system).SystemID);
        return true;
    }();
    static_cast<void>(filled);
    return folder;
}

/// The log on the screen.
class LogForm {
public:
    LogForm() : m_program(LogFolder().Path()) { m_program.OpenFirstSystem(); }

    void Open() {
        m_form = std::make_unique<frmDBLostKeys>(m_program.session, KeyLog::Returned);
        m_watch.UntilPainted([this] { m_form->show(); });
        m_grid = m_form->findChild<RecordGrid*>();
        if (m_grid->model()->rowCount() != kLogRows)
            throw std::runtime_error("The log is not as long as it should be.");
    }

    void Close() { m_form.reset(); }

    void Sort(int column) {
        m_watch.UntilPainted([&] { emit m_grid->horizontalHeader()->sectionClicked(column); });
    }

    void PageDown() {
        if (m_grid->currentIndex().row() == kLogRows - 1)
            throw std::runtime_error("The end of the log is reached.");
        QKeyEvent press(QEvent::KeyPress, Qt::Key_PageDown, Qt::NoModifier);
        m_watch.UntilPainted([&] { QApplication::sendEvent(m_grid, &press); });
    }

private:
    QuietSession m_program;
    PaintWatch m_watch;
    std::unique_ptr<frmDBLostKeys> m_form;
    RecordGrid* m_grid = nullptr;
};

void OpenLog(benchmark::State& state) {
    LogForm form;
    form.Open();
    while (state.KeepRunning()) {
        form.Close();
        Time(state, [&] { form.Open(); });
    }
}

void SortLog(benchmark::State& state, int column) {
    LogForm form;
    form.Open();
    while (state.KeepRunning())
        form.Sort(column);
}

void PageThroughLog(benchmark::State& state) {
    LogForm form;
    form.Open();
    form.Sort(4);
    while (state.KeepRunning())
        form.PageDown();
}

void WalkLog(benchmark::State& state) {
    BareFile file(LogFolder().PathOf(kKeySystemFile));
    while (state.KeepRunning())
        if (file.Rows(file.Prepare("SELECT * FROM \"ReturnKey\" WHERE \"SystemNumber\" = 1").get())
                .size() != kLogRows)
            throw std::runtime_error("The log is not as long as it should be.");
}

} // namespace

void AddLogs(std::vector<Comparison>& comparisons) {
    const Bound walk{Bound::Kind::TimesLimit, 1};
    const Bound frame{Bound::Kind::Seconds, 0.016};
    RegisterSelfTimed("open a log of 500,000, painted", OpenLog);
    Register("sort it by day, painted", [](auto& state) { SortLog(state, 0); });
    Register("sort it by user name, painted", [](auto& state) { SortLog(state, 4); });
    Register("sort it by note, painted", [](auto& state) { SortLog(state, 6); });
    Register("page down in it, painted", PageThroughLog);
    Register("walk of the log, bare", WalkLog);
    for (const char* name : {"open a log of 500,000, painted", "sort it by day, painted",
                             "sort it by user name, painted", "sort it by note, painted"})
        comparisons.push_back({name, "walk of the log, bare", walk});
    comparisons.push_back({"page down in it, painted", "walk of the log, bare", frame});
}

} // namespace quorrel::bench
