#include "page/LevelPanel.h"

#include "ui_LevelPanel.h"

#include <QTimer>

#include <algorithm>

namespace quorrel {

LevelPanel::LevelPanel(QWidget* parent)
    : QScrollArea(parent), ui(std::make_unique<Ui::LevelPanel>()) {
    ui->setupUi(this);
    // Room for the caption that stands out, so that the columns stay where they are.
    QFont bold = font();
    bold.setBold(true);
    int widest = 0;
    for (const LevelLabels& level : Levels())
        widest = std::max(widest, QFontMetrics(bold).horizontalAdvance(level.caption->text()));
    ui->grdLevels->setColumnMinimumWidth(0, widest);
}

LevelPanel::~LevelPanel() = default;

std::array<LevelPanel::LevelLabels, kLevels> LevelPanel::Levels() const {
    return {{{ui->lblGrandMaster, ui->lblGrandMasterID, ui->lblGrandMasterDesc},
             {ui->lblSystemMaster, ui->lblSystemMasterID, ui->lblSystemMasterDesc},
             {ui->lblGroupMaster, ui->lblGroupMasterID, ui->lblGroupMasterDesc},
             {ui->lblBaseMaster, ui->lblBaseMasterID, ui->lblBaseMasterDesc},
             {ui->lblPageMaster, ui->lblPageMasterID, ui->lblPageMasterDesc},
             {ui->lblBlockMaster, ui->lblBlockMasterID, ui->lblBlockMasterDesc},
             {ui->lblAreaMaster, ui->lblAreaMasterID, ui->lblAreaMasterDesc},
             {ui->lblLineMaster, ui->lblLineMasterID, ui->lblLineMasterDesc},
             {ui->lblColumnMaster, ui->lblColumnMasterID, ui->lblColumnMasterDesc}}};
}

void LevelPanel::ApplyLevelCaptions(int pins) {
    const auto levels = Levels();
    const auto show = [&](Level level, bool shown) {
        const LevelLabels& line = levels[static_cast<std::size_t>(level)];
        for (QLabel* label : {line.caption, line.id, line.description})
            label->setVisible(shown);
    };
    if (pins < 5 || pins > 7)
        return;
    show(Level::Grand, pins == 7);
    show(Level::System, pins >= 6);
    show(Level::Group, true);
    if (pins == 5)
        ui->lblGroupMaster->setText(tr("Grand Master"));
    if (pins == 6)
        ui->lblSystemMaster->setText(tr("Grand Master"));
}

void LevelPanel::ShowLevels(const KeySelection& selection) {
    const auto levels = Levels();
    for (std::size_t level = 0; level < levels.size(); ++level) {
        levels[level].id->setText(selection.levels[level].id);
        levels[level].description->setText(selection.levels[level].description);
        const bool highlight =
            selection.highlight && static_cast<std::size_t>(*selection.highlight) == level;
        QFont caption = font();
        caption.setBold(highlight);
        QPalette colours = palette();
        const bool dark = colours.color(QPalette::Window).lightness() < 128;
        if (highlight)
            colours.setColor(QPalette::WindowText,
                             dark ? QColor(255, 110, 110) : QColor(255, 0, 0));
        levels[level].caption->setFont(caption);
        levels[level].caption->setPalette(colours);
    }
}

void LevelPanel::ToggleLegend() {
    ui->frmLegend->setVisible(!ui->frmLegend->isVisible());
    ui->layLevels->activate();
    if (ui->frmLegend->isVisible())
        QTimer::singleShot(0, this, [this] { ensureWidgetVisible(ui->frmLegend); });
}

} // namespace quorrel
