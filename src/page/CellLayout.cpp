#include "page/CellLayout.h"

#include "engine/PageGeometry.h"

#include <array>

namespace quorrel {

namespace {

/// The figures of a layout, in twips.
struct Figures {
    QSizeF frame, cell;
    double columnTop; ///< where the running top of each column starts
    double keyStep;
    double masterOffset, masterStep; ///< the fifth row: its top past the running one, and the step
    double leftFactor, leftOffset;   ///< left = (first index of the column + 1) x factor + offset
    std::array<double, 4> areaTop;
    double areaLeft;
    double columnMasterTop;
    std::array<double, 4> columnMasterLeft;
    std::array<double, 5> levelTop; ///< cells 104 to 108
    double levelLeft;
};

const Figures& FiguresOf(PageLayout layout) {
    static const Figures compact = {{2175, 3255},
                                    {220, 100},
                                    680,
                                    100,
                                    120,
                                    200,
                                    18,
                                    340,
                                    {840, 1440, 2040, 2640},
                                    60,
                                    650,
                                    {360, 720, 1080, 1440},
                                    {660, 550, 440, 330, 220},
                                    100};
    static const Figures large = {{4350, 6510},
                                  {450, 210},
                                  1280,
                                  200,
                                  260,
                                  400,
                                  36,
                                  550,
                                  {1600, 2800, 4000, 5200},
                                  60,
                                  1100,
                                  {580, 1300, 2000, 2750},
                                  {1100, 880, 660, 440, 220},
                                  100};
    return layout == PageLayout::Compact ? compact : large;
}

QPointF CornerOf(const Figures& figures, int cell) {
    if (cell >= kFirstLevelCell)
        return {figures.levelLeft,
                figures.levelTop[static_cast<std::size_t>(cell - kFirstLevelCell)]};
    if (cell >= 100)
        return {figures.columnMasterLeft[static_cast<std::size_t>(cell - 100)],
                figures.columnMasterTop};
    const int first = cell - cell % 20;
    const int group = cell % 20 / 5;
    const int row = cell % 5;
    if (KindOfCell(cell) == CellKind::AreaMaster)
        return {figures.areaLeft, figures.areaTop[static_cast<std::size_t>(group)]};
    const double groupTop = figures.columnTop + group * (4 * figures.keyStep + figures.masterStep);
    const double top = row < 4 ? groupTop + (row + 1) * figures.keyStep
                               : groupTop + 4 * figures.keyStep + figures.masterOffset;
    return {(first + 1) * figures.leftFactor + figures.leftOffset, top};
}

} // namespace

QSizeF PageFrameSize(PageLayout layout) {
    return FiguresOf(layout).frame;
}

QRectF CellPlace(PageLayout layout, int cell) {
    const Figures& figures = FiguresOf(layout);
    return {CornerOf(figures, cell), figures.cell};
}

} // namespace quorrel
