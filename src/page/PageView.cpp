#include "page/PageView.h"

#include "access/Departments.h"
#include "engine/CellStates.h"
#include "engine/SystemDefinition.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/OfSystem.h"
#include "store/Scramble.h"

#include <algorithm>
#include <map>

namespace quorrel {

namespace {

/// Rows of a page from here on lie in another column than its first key.
constexpr int kSecondColumn = 20;

PageCell EmptyCell() {
    PageCell empty;
    empty.tag = kEmptyCellTag;
    return empty;
}

} // namespace

bool PageCell::IsBlank() const {
    return tag == kEmptyCellTag;
}

PageView::PageView(Session& session) : m_session(session) {
    ClearPageCells();
}

void PageView::ClearPageCells() {
    m_cells.fill(EmptyCell());
}

int PageView::CountUnreadable() const {
    return static_cast<int>(std::count_if(m_cells.begin(), m_cells.end(),
                                          [](const PageCell& cell) { return cell.isUnreadable; }));
}

std::string PageView::PlainCuts(const QString& stored) const {
    return quorrel::PlainCuts(stored, m_session.System.PinCount);
}

std::array<std::string, 5> PageView::ReadLevelTexts(int page) const {
    // Where the row of the first key cannot be read, the others of its column have the same cuts as
    // far as the levels go.
    std::optional<std::string> cuts;
    bool hasFirst = false;
    Recordset<PatternsRow>(m_session.Keys(), OfSystem<PatternsRow>(m_session)
                                                 .Where(&PatternsRow::PageNumber, page)
                                                 .WhereAtLeast(&PatternsRow::Position, 0)
                                                 .WhereBelow(&PatternsRow::Position, kSecondColumn)
                                                 .OrderBy(&PatternsRow::Position)
                                                 .OrderBy(&PatternsRow::Serial))
        .Walk([&](const PatternsRow& row) {
            hasFirst = hasFirst || row.Position == 0;
            if (hasFirst)
                cuts = CutsOf(row.Cuts, m_session.System.PinCount);
            return hasFirst && !cuts;
        });
    return cuts ? LevelTexts(m_session.System.PinCount, *cuts, m_session.System.MasterKeyCuts)
                : std::array<std::string, 5>{};
}

void PageView::Fill(PageCell& cell, const PatternsRow& row) const {
    const auto cuts = CutsOf(row.Cuts, m_session.System.PinCount);
    if (!cuts) {
        cell = EmptyCell();
        cell.isUnreadable = true;
        cell.toolTip = QStringLiteral("This key cannot be read.");
        return;
    }
    cell.serial = row.Serial;
    cell.isMaster = row.Master;
    cell.isUnreadable = false;
    cell.tag = *cuts;
    cell.date.clear();
    KeyTextsRow texts;
    texts.key = row.key;
    texts.SystemNumber = row.SystemNumber;
    texts.Cuts = row.Cuts;
    texts.Label = row.Label;
    texts.KeyWay = row.KeyWay;
    texts.Department = row.Department;
    texts.Description = row.Description;
    SetTexts(cell, texts);
}

void PageView::SetTexts(PageCell& cell, const KeyTextsRow& stored) const {
    cell.stored = stored;
    cell.keyLabel = RightTrimmed(stored.Label).left(20);
    cell.keyway = Padded(stored.KeyWay, 8);
    cell.description = RightTrimmed(stored.Description.left(250));
    cell.department = stored.Department.left(kDepartmentWidth);
    const QString cuts = m_session.SessionPermissions.ReadPrintPinning
                             ? QString::fromStdString(cell.tag) + u' '
                             : QString();
    cell.toolTip = cell.keyLabel + u' ' + cuts + cell.description;
}

void PageView::SetRecord(int index, const KeyTextsRow& stored, const QString& date) {
    PageCell& cell = m_cells.at(static_cast<std::size_t>(index));
    SetTexts(cell, stored);
    cell.date = date;
}

/// A level key counts whatever its page: it is known by its cuts.
void PageView::LoadLevels(Cells& cells, int page) const {
    const auto levels = ReadLevelTexts(page);
    QStringList forms;
    for (const std::string& level : levels)
        if (!level.empty())
            forms += StoredForms(level);
    if (forms.isEmpty())
        return;
    Recordset<PatternsRow>(m_session.Keys(),
                           OfSystem<PatternsRow>(m_session)
                               .WhereAny(&PatternsRow::Cuts, forms)
                               .WhereBelow(&PatternsRow::Position, kFirstSpecialPosition)
                               .OrderBy(&PatternsRow::Serial))
        .Walk([&](const PatternsRow& row) {
            const auto level =
                std::find(levels.begin(), levels.end(), PlainCuts(row.Cuts)) - levels.begin();
            if (level < static_cast<std::ptrdiff_t>(levels.size()))
                Fill(cells[kFirstLevelCell + static_cast<std::size_t>(level)], row);
            return true;
        });
}

void PageView::LoadKeys(Cells& cells, int page) const {
    Recordset<PatternsRow>(m_session.Keys(), OfSystem<PatternsRow>(m_session)
                                                 .Where(&PatternsRow::PageNumber, page)
                                                 .WhereAtLeast(&PatternsRow::Position, 0)
                                                 .WhereBelow(&PatternsRow::Position, kAllCells)
                                                 .OrderBy(&PatternsRow::Serial))
        .Walk([&](const PatternsRow& row) {
            Fill(cells[static_cast<std::size_t>(row.Position)], row);
            return true;
        });
}

/// The date of a label stands with the place where the key got it. A key that shows in further
/// cells or on further pages, as a level does, has the same date there.
void PageView::LoadDates(Cells& cells, int page) const {
    std::map<std::string, QString> dateOfCuts;
    const auto walk = [&](const Query<AllKeysRow>& query, auto&& visit) {
        Recordset<AllKeysRow>(m_session.Keys(), query).Walk([&](const AllKeysRow& row) {
            dateOfCuts[PlainCuts(row.Cuts)] = row.CustomCuts;
            visit(row);
            return true;
        });
    };
    walk(OfSystem<AllKeysRow>(m_session).Where(&AllKeysRow::PageNumber, page),
         [&](const AllKeysRow& row) {
             if (row.Position >= 0 && row.Position < kFirstLevelCell)
                 cells[static_cast<std::size_t>(row.Position)].date = row.CustomCuts;
         });
    QStringList levels;
    for (std::size_t cell = kFirstLevelCell; cell < cells.size(); ++cell)
        if (cells[cell].HasLabel())
            levels += StoredForms(PlainCuts(cells[cell].stored.Cuts));
    if (!levels.isEmpty())
        walk(OfSystem<AllKeysRow>(m_session).WhereAny(&AllKeysRow::Cuts, levels),
             [](const AllKeysRow&) {});
    for (PageCell& cell : cells)
        if (cell.HasLabel() && cell.date.isEmpty())
            cell.date = dateOfCuts[PlainCuts(cell.stored.Cuts)];
}

void PageView::LoadPageView() {
    Cells cells = m_cells;
    LoadLevels(cells, m_session.CurrentPage);
    const int page = std::max(1, m_session.CurrentPage);
    LoadKeys(cells, page);
    LoadDates(cells, page);
    m_cells = std::move(cells);
    m_session.CurrentPage = m_loadedPage = page;
    LoadingPage = true;
}

QStringList PageView::ListDepartments() const {
    return quorrel::ListDepartments(m_session);
}

} // namespace quorrel
