#include "BareFile.h"
#include "Benches.h"
#include "LargestSystem.h"
#include "PaintWatch.h"
#include "engine/CellStates.h"
#include "page/KeyCell.h"
#include "page/PageGrid.h"
#include "page/PageView.h"
#include "page/frmMain.h"
#include "store/DatabaseFiles.h"

#include <QScrollBar>

#include <memory>
#include <stdexcept>

namespace quorrel::bench {

namespace {

/// Runs over the pages in the order in which a user turns them.
class Pages {
public:
    int Next() { return m_page = m_page % kLargestPages + 1; }

private:
    int m_page = 1;
};

void LoadPages(benchmark::State& state) {
    QuietSession program(LargestFolder().Path());
    program.OpenFirstSystem();
    PageView view(program.session);
    if (view.System().MaxPage != kLargestPages)
        throw std::runtime_error("The open system is not the largest.");
    Pages pages;
    while (state.KeepRunning()) {
        program.session.CurrentPage = pages.Next();
        view.LoadPageView();
    }
}

/// The main form on the screen with the largest system.
class MainForm {
public:
    MainForm() : m_program(LargestFolder().Path()) {
        m_program.OpenFirstSystem();
        m_form = std::make_unique<frmMain>(m_program.session);
        m_bar = m_form->findChild<QScrollBar*>(QStringLiteral("scrlPage"));
        m_watch.UntilPainted([this] { m_form->show(); });
    }

    void Turn(int page) {
        m_watch.UntilPainted([&] { m_bar->setValue(page); });
    }

    void Click(int cell) {
        m_watch.UntilPainted([&] { m_form->ClickCell(cell); });
    }

    QSize GridSize() const { return m_form->findChild<PageGrid*>()->size(); }

private:
    QuietSession m_program;
    PaintWatch m_watch;
    std::unique_ptr<frmMain> m_form;
    QScrollBar* m_bar = nullptr;
};

void TurnInWindow(benchmark::State& state) {
    MainForm form;
    Pages pages;
    while (state.KeepRunning())
        form.Turn(pages.Next());
}

void QueryPages(benchmark::State& state) {
    BareFile file(LargestFolder().PathOf(kKeySystemFile));
    Pages pages;
    while (state.KeepRunning()) {
        const auto query = file.Prepare("SELECT * FROM \"Patterns\" WHERE \"SystemNumber\" = 1 AND "
                                        "\"PageNumber\" = ? AND \"Position\" < 104");
        sqlite3_bind_int(query.get(), 1, pages.Next());
        if (file.Rows(query.get()).size() != kPageCells)
            throw std::runtime_error("A page has not the rows that it should have.");
    }
}

void ClickInWindow(benchmark::State& state) {
    MainForm form;
    int cell = 0;
    while (state.KeepRunning()) {
        // A step without common divisor brings each kind of cell to its turn.
        cell = (cell + 37) % kAllCells;
        form.Click(cell);
    }
}

/// The bare grid, as large as in the main form, with the pictures of one selection.
void PaintCells(benchmark::State& state) {
    PageGrid grid;
    grid.SetLayout(PageLayout::Compact);
    grid.resize(MainForm().GridSize());
    const auto relations = RelationsOf(kLastLevelCell);
    for (int cell = 0; cell < kAllCells; ++cell)
        grid.Cell(cell).ShowState(relations[static_cast<std::size_t>(cell)]);
    PaintWatch watch;
    watch.UntilPainted([&] { grid.show(); });
    while (state.KeepRunning())
        grid.repaint();
}

} // namespace

void AddPage(std::vector<Comparison>& comparisons) {
    const Bound frame{Bound::Kind::Seconds, 0.016};
    Register("page turn, read", LoadPages);
    Register("page turn, painted", TurnInWindow);
    Register("query of a page, bare", QueryPages);
    Register("click, painted", ClickInWindow);
    Register("109 cells painted", PaintCells);
    comparisons.push_back({"page turn, read", "query of a page, bare", frame});
    comparisons.push_back({"page turn, painted", "query of a page, bare", frame});
    comparisons.push_back({"click, painted", "109 cells painted", frame});
}

} // namespace quorrel::bench
