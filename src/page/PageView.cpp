#include "page/PageView.h"

#include "access/Departments.h"
#include "engine/CellStates.h"
#include "engine/SystemDefinition.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/OfSystem.h"
#include "store/Scramble.h"

namespace quorrel {

namespace {

std::string PlainCuts(const PatternsRow& row) {
    return Unscrambled(row.Cuts).toStdString();
}

} // namespace

bool PageCell::IsBlank() const {
    return tag == kEmptyCellTag;
}

PageView::PageView(Session& session) : m_session(session) {
    ClearPageCells();
}

void PageView::ClearPageCells() {
    PageCell empty;
    empty.tag = kEmptyCellTag;
    m_cells.fill(empty);
}

std::array<std::string, 5> PageView::ReadLevelTexts() const {
    const auto first =
        Recordset<PatternsRow>(m_session.Keys(),
                               OfSystem<PatternsRow>(m_session)
                                   .Where(&PatternsRow::PageNumber, m_session.CurrentPage)
                                   .Where(&PatternsRow::Position, 0)
                                   .OrderBy(&PatternsRow::Serial))
            .First();
    return first ? LevelTexts(m_session.System.PinCount, PlainCuts(*first),
                              m_session.System.MasterKeyCuts)
                 : std::array<std::string, 5>{};
}

void PageView::FillCell(int index, const PatternsRow& row, const std::string& cuts) {
    PageCell& cell = m_cells.at(static_cast<std::size_t>(index));
    cell.serial = row.Serial;
    cell.isMaster = row.Master;
    cell.tag = cuts.substr(0, static_cast<std::size_t>(m_session.System.PinCount) + 1);
    SetRecord(index, row.Label, row.KeyWay, row.Department, row.Description, {});
}

void PageView::SetRecord(int index, const QString& label, const QString& keyway,
                         const QString& department, const QString& description,
                         const QString& date) {
    PageCell& cell = m_cells.at(static_cast<std::size_t>(index));
    cell.keyLabel = RightTrimmed(label).left(20);
    cell.keyway = Padded(keyway, 8);
    cell.description = RightTrimmed(description).left(250);
    cell.department = department.left(34);
    cell.date = date;
    cell.toolTip = ToolTipOf(cell);
}

QString PageView::ToolTipOf(const PageCell& cell) const {
    const QString cuts = m_session.SessionPermissions.ReadPrintPinning
                             ? QString::fromStdString(cell.tag) + u' '
                             : QString();
    return cell.keyLabel + u' ' + cuts + cell.description;
}

void PageView::LoadDates() {
    Recordset<AllKeysRow>(m_session.Keys(), OfSystem<AllKeysRow>(m_session).Where(
                                                &AllKeysRow::PageNumber, m_session.CurrentPage))
        .Walk([&](const AllKeysRow& row) {
            if (row.Position >= 0 && row.Position < kAllCells)
                m_cells[static_cast<std::size_t>(row.Position)].date = row.CustomCuts;
            return true;
        });
}

void PageView::LoadPageView() {
    LoadingPage = true;
    const auto levels = ReadLevelTexts();
    if (m_session.CurrentPage == 0)
        m_session.CurrentPage = 1;
    m_loadedPage = m_session.CurrentPage;
    const auto pins = static_cast<std::size_t>(m_session.System.PinCount);
    const auto fillLevel = [&](const PatternsRow& row, const std::string& cuts) {
        for (std::size_t level = 0; level < levels.size(); ++level) {
            if (levels[level].empty() || cuts.compare(0, pins, levels[level]) != 0)
                continue;
            FillCell(kFirstLevelCell + static_cast<int>(level), row, cuts);
            return;
        }
    };
    // A level key counts whatever its page. Its cuts are looked up under both marks.
    QStringList levelCuts;
    for (const std::string& level : levels)
        if (!level.empty())
            for (const char mark : {' ', '*'})
                levelCuts.append(Scrambled(QString::fromStdString(level + mark)));
    Database& keys = m_session.Keys();
    if (!levelCuts.isEmpty())
        Recordset<PatternsRow>(keys, OfSystem<PatternsRow>(m_session)
                                         .WhereAny(&PatternsRow::Cuts, levelCuts)
                                         .WhereBelow(&PatternsRow::Position, kFirstSpecialPosition)
                                         .OrderBy(&PatternsRow::Serial))
            .Walk([&](const PatternsRow& row) {
                fillLevel(row, PlainCuts(row));
                return true;
            });
    Recordset<PatternsRow>(keys, OfSystem<PatternsRow>(m_session)
                                     .Where(&PatternsRow::PageNumber, m_session.CurrentPage)
                                     .WhereBelow(&PatternsRow::Position, kFirstSpecialPosition)
                                     .OrderBy(&PatternsRow::Serial))
        .Walk([&](const PatternsRow& row) {
            if (row.Position < kAllCells)
                FillCell(row.Position, row, PlainCuts(row));
            return true;
        });
    LoadDates();
}

QStringList PageView::ListDepartments() const {
    return quorrel::ListDepartments(m_session);
}

} // namespace quorrel
