#include "page/Legend.h"

#include "engine/CellStates.h"
#include "widgets/KeyPainter.h"

#include <QGridLayout>
#include <QLabel>
#include <QPainter>

namespace quorrel {

Legend::Legend(QWidget* parent) : QGroupBox(parent) {
    static constexpr const char* texts[5][2] = {
        {"Unselected Key  No ID", "Unselected Key with ID"},
        {"Selected Key  No ID", "Selected Key with ID"},
        {"Active Sub Key  No ID", "Active Sub Key with ID "},
        {"Active Pre-Master  No ID", "Active Pre-Master with ID"},
        {"Active Sub-Master  No ID", "Active Sub-Master with ID"}};
    auto* grid = new QGridLayout(this);
    grid->setVerticalSpacing(3);
    const auto add = [&](int row, int column, const KeyLook& look, const char* text) {
        auto* picture = new QLabel;
        const double ratio = devicePixelRatioF();
        QPixmap pixmap(QSize(32, 16) * ratio);
        pixmap.setDevicePixelRatio(ratio);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        PaintKey(painter, QRectF(1, 0, 30, 16), look);
        picture->setPixmap(pixmap);
        grid->addWidget(picture, row, column);
        grid->addWidget(new QLabel(tr(text)), row, column + 1);
    };
    for (int state = 0; state < 5; ++state)
        for (int labelled = 0; labelled < 2; ++labelled)
            add(state, 2 * labelled,
                LookOfState(state + labelled * cellstate::kLabelled, IsDark(palette())),
                texts[state][labelled]);
    add(5, 0, LookOfState(cellstate::kNotRecommended, IsDark(palette())),
        "Blue Line-Not Recomended");
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
}

} // namespace quorrel
