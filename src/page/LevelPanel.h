#pragma once

#include "page/KeySelection.h"

#include <QScrollArea>

#include <array>
#include <memory>

class QLabel;

namespace Ui {
class LevelPanel;
}

namespace quorrel {

/// The masters of the selected key, level by level, and the legend of the cells under them. Both
/// scroll where there is no room for them.
class LevelPanel : public QScrollArea {
    Q_OBJECT

public:
    explicit LevelPanel(QWidget* parent = nullptr);
    ~LevelPanel() override;

    /// Shows only the level rows that exist for a number of pins.
    void ApplyLevelCaptions(int pins);

    void ShowLevels(const KeySelection& selection);
    void ToggleLegend();

private:
    struct LevelLabels {
        QLabel *caption, *id, *description;
    };

    std::array<LevelLabels, kLevels> Levels() const;

    std::unique_ptr<Ui::LevelPanel> ui;
};

} // namespace quorrel
