#pragma once

#include "pinning/PinningChart.h"

#include <QWidget>

namespace quorrel {

/// The drawing of a cylinder, which also tells in words what it shows.
class CylinderDrawing : public QWidget {
    Q_OBJECT

public:
    explicit CylinderDrawing(QWidget* parent = nullptr);

    void SetChart(const PinningChart& chart);

    QSize sizeHint() const override { return {600, 400}; }
    QSize minimumSizeHint() const override { return {420, 280}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    PinningChart m_chart;
};

} // namespace quorrel
