#pragma once

#include "pinning/NamedKeys.h"
#include "pinning/PinningChart.h"
#include "print/PrintRun.h"
#include "widgets/Form.h"

#include <memory>

class QLabel;

namespace Ui {
class frmPinningChart;
}

namespace quorrel {

/// Shows how a cylinder is pinned for a key, in figures and as a drawing; for an interchangeable
/// core, as `frmPinningChartIC`, with the control and driver pins and the sizes of stacked pins.
/// Goes on to the next and the previous named key. Stays empty for a user who may not read cuts.
class frmPinningChart : public Form {
    Q_OBJECT

public:
    frmPinningChart(Session& session, const PinningChart& chart);
    ~frmPinningChart() override;

    /// Shows another chart of the same system in place of the one before.
    void ShowChart(const PinningChart& chart);

protected:
    void Activated() override;

private:
    void WatchButtons();
    void ShowKey();
    void ShowPins();
    void ShowTallPins();
    void ShowRemarks();
    void OfferOtherKeys();
    void GoTo(Step step);
    void WarnOfControlKey();
    QLabel* LabelAt(int line, int column);
    void Print();
    void ShowAsPrinted();
    PaintedJob Page() const;

    std::unique_ptr<Ui::frmPinningChart> ui;
    PinningChart m_chart;
};

} // namespace quorrel
