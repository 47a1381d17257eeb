#include "page/KeySelection.h"

#include "engine/CellStates.h"
#include "engine/SystemDefinition.h"
#include "platform/Text.h"

namespace quorrel {

namespace {

const QString kNotApplicable = QStringLiteral("N/A");

LevelLine LineOf(const PageView& page, int idCell, int descriptionCell) {
    return {RightTrimmed(page.Cell(idCell).keyLabel),
            RightTrimmed(page.Cell(descriptionCell).description)};
}

LevelLine LineOf(const PageView& page, const std::optional<int>& cell) {
    return cell ? LineOf(page, *cell, *cell) : LevelLine{kNotApplicable, kNotApplicable};
}

LevelLine& At(KeySelection& selection, Level level) {
    return selection.levels[static_cast<std::size_t>(level)];
}

void FillPageMasters(KeySelection& selection, const PageView& page) {
    if (selection.cell >= kFirstLevelCell) {
        for (const Level level : {Level::Block, Level::Area, Level::Line, Level::Column})
            At(selection, level) = {QStringLiteral("All for this Page"), kNotApplicable};
        return;
    }
    const PageMasters masters = PageMastersOf(selection.cell);
    At(selection, Level::Block) = LineOf(page, masters.block);
    At(selection, Level::Area) = LineOf(page, masters.area);
    At(selection, Level::Line) = LineOf(page, masters.line);
    At(selection, Level::Column) = LineOf(page, masters.column);
    // Block master 64 has always named the area of the next group but described its own.
    if (selection.cell == 64)
        At(selection, Level::Area) = LineOf(page, 89, 84);
}

std::optional<Level> HighlightOf(CellKind kind) {
    switch (kind) {
    case CellKind::ChangeKey:
        return std::nullopt;
    case CellKind::BlockMaster:
        return Level::Block;
    case CellKind::LineMaster:
        return Level::Line;
    case CellKind::AreaMaster:
        return Level::Area;
    case CellKind::ColumnMaster:
        return Level::Column;
    case CellKind::PageMaster:
        return Level::Page;
    case CellKind::BaseMaster:
        return Level::Base;
    case CellKind::GroupMaster:
        return Level::Group;
    case CellKind::SystemMaster:
        return Level::System;
    case CellKind::GrandMaster:
        return Level::Grand;
    }
    return std::nullopt;
}

void FillRecord(KeySelection& selection, const PageView& page, bool mayReadCuts) {
    const PageCell& cell = page.Cell(selection.cell);
    selection.serial = QString::number(cell.serial);
    selection.dateText = QStringLiteral("Date Created: ") + cell.date;
    selection.cuts = mayReadCuts ? QString::fromStdString(cell.tag) : QStringLiteral("********");
    const auto pins = static_cast<std::size_t>(page.System().PinCount);
    selection.notRecommended =
        cell.tag.size() > pins && cell.tag[pins] == '*' && IsNoValue(RightTrimmed(cell.keyLabel));
    selection.isControlKey = HasControlKeysCuts(page, selection.cell);
}

QString StateInWords(int state) {
    switch (state % 10) {
    case cellstate::kActive:
        return QStringLiteral("selected");
    case cellstate::kSub:
        return QStringLiteral("under the selected master");
    case cellstate::kPreMaster:
        return QStringLiteral("master above the selected key");
    case cellstate::kSubMaster:
        return QStringLiteral("master under the selected one");
    default:
        return QStringLiteral("not selected");
    }
}

} // namespace

bool HasControlKeysCuts(const PageView& page, int cell) {
    const OpenSystem& system = page.System();
    return system.SystemIsIC && !page.Cell(cell).IsBlank() &&
           IsControlKeysCuts(page.Cell(cell).tag, system.SpecialCuts);
}

KeySelection SelectKey(const PageView& page, int cell, bool mayReadCuts) {
    KeySelection selection;
    selection.cell = cell;
    FillRecord(selection, page, mayReadCuts);
    At(selection, Level::Grand) = LineOf(page, 108);
    At(selection, Level::System) = LineOf(page, 107);
    At(selection, Level::Group) = LineOf(page, 106);
    At(selection, Level::Base) = LineOf(page, 105);
    At(selection, Level::Page) = LineOf(page, 104);
    FillPageMasters(selection, page);
    selection.highlight = HighlightOf(KindOfCell(cell));
    const auto relations = RelationsOf(cell);
    for (int index = 0; index < kAllCells; ++index) {
        const auto at = static_cast<std::size_t>(index);
        const PageCell& other = page.Cell(index);
        selection.states[at] = CellStateOf(index, relations[at], other.tag, other.HasLabel(),
                                           page.System().PinCount, page.System().safetyFactor);
    }
    return selection;
}

QString KindInWords(const PageView& page, int cell) {
    const int pins = page.System().PinCount;
    // With five and six pins the level that holds the theoretical master is called the grand one.
    const bool grand = (pins == 5 || pins == 6) && cell == MasterCell(pins);
    const auto name = NameOfKind(grand ? CellKind::GrandMaster : KindOfCell(cell));
    return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

QString PlaceInWords(const PageView& page, int cell) {
    const QString kind = KindInWords(page, cell);
    return cell > kFirstLevelCell ? kind
                                  : kind + QStringLiteral(", page %1").arg(page.LoadedPage());
}

QString DescribeCell(const PageView& page, int cell, int state) {
    const QString kind = KindInWords(page, cell) + QStringLiteral(" %1").arg(cell);
    const PageCell& content = page.Cell(cell);
    if (content.isUnreadable)
        return kind + QStringLiteral(", cannot be read");
    if (content.IsBlank())
        return kind + QStringLiteral(", no key");
    QStringList parts = {kind};
    parts += content.HasLabel() ? QStringLiteral("Key ID ") + RightTrimmed(content.keyLabel)
                                : QStringLiteral("no Key ID");
    parts += StateInWords(state);
    if (state >= cellstate::kNotRecommended)
        parts += QStringLiteral("not recommended");
    return parts.join(QStringLiteral(", "));
}

} // namespace quorrel
