#pragma once

#include "pinning/PinningChart.h"
#include "widgets/Form.h"

#include <memory>

namespace Ui {
class frmPinningChart;
}

namespace quorrel {

/// Shows how a cylinder is pinned for a key, in figures and as a drawing; for an interchangeable
/// core, as `frmPinningChartIC`, with the control and driver pins and the sizes of stacked pins.
/// Stays empty for a user who may not read cuts.
class frmPinningChart : public Form {
    Q_OBJECT

public:
    frmPinningChart(Session& session, const PinningChart& chart);
    ~frmPinningChart() override;

private:
    void ShowKey();
    void ShowPins();
    void ShowCorePins();
    void ShowTallPins();
    void AddPins(int line, const QString& heading, const char* name, const QStringList& figures);
    void Print();

    std::unique_ptr<Ui::frmPinningChart> ui;
    const PinningChart m_chart;
};

} // namespace quorrel
