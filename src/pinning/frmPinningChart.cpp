#include "pinning/frmPinningChart.h"

#include "pinning/ChartPage.h"
#include "ui_frmPinningChart.h"
#include "widgets/HelpContexts.h"

#include <QRegularExpression>

namespace quorrel {

namespace {

constexpr int kMostChambers = 7;

/// Lines of the table, in the order in which the pins stand in the cylinder.
enum PinLine { Chambers, DrivePins, ControlPins, TopPins, TopSizes, BottomPins, BottomSizes };

} // namespace

frmPinningChart::frmPinningChart(Session& session, const PinningChart& chart)
    : Form(session), ui(std::make_unique<Ui::frmPinningChart>()), m_chart(chart) {
    const bool core = chart.request.IsCore();
    setObjectName(core ? QStringLiteral("frmPinningChartIC") : QStringLiteral("frmPinningChart"));
    ui->setupUi(this);
    OfferHelp(help::kPinningChart, ui->cmdHelp);
    On(ui->cmdOK, &QPushButton::clicked, [this] { Leave(); });
    On(ui->cmdPrint, &QPushButton::clicked, [this] { Print(); });
    ui->cmdPrint->setEnabled(session.SessionPermissions.RunReports);
    ui->lblFlaws->hide();
    ui->frmTall->setVisible(core);
    if (core)
        setWindowTitle(tr("Quorrel - Pinning Chart for IC Core 23"));
    if (session.SessionPermissions.ReadPrintPinning) {
        ShowKey();
        ShowPins();
        if (core)
            ShowCorePins();
    }
    PlaceAt(0.5, 0.125);
}

frmPinningChart::~frmPinningChart() = default;

void frmPinningChart::ShowKey() {
    const PinningRequest& key = m_chart.request;
    ui->lblSystem->setText(key.system);
    ui->lblAddress->setText(key.address);
    ui->lblDepartment->setText(key.department);
    ui->lblDescription->setText(key.description);
    ui->lblCuts->setText(QString::fromStdString(key.key));
    ui->lblKeyID->setText(key.keyID);
    ui->lblKeyWay->setText(key.keyway);
}

/// Fills a line of the table, a label of this name a chamber; those without chamber are hidden.
void frmPinningChart::AddPins(int line, const QString& heading, const char* name,
                              const QStringList& figures) {
    ui->grdPins->addWidget(new QLabel(heading), line, 0);
    for (int chamber = 0; chamber < kMostChambers; ++chamber) {
        auto* figure = new QLabel(figures.value(chamber));
        figure->setObjectName(QStringLiteral("%1_%2").arg(QLatin1String(name)).arg(chamber));
        figure->setAccessibleName(tr("%1, chamber %2").arg(heading.trimmed()).arg(chamber + 1));
        figure->setAlignment(Qt::AlignCenter);
        figure->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("0.000")));
        QFont font = figure->font();
        font.setBold(line != TopSizes && line != BottomSizes);
        figure->setFont(font);
        ui->grdPins->addWidget(figure, line, chamber + 1);
        figure->setVisible(chamber < figures.size());
    }
}

void frmPinningChart::ShowPins() {
    QStringList numbers, top, topSizes, bottom, bottomSizes;
    for (const ChartChamber& chamber : m_chart.chambers) {
        numbers += QString::number(numbers.size() + 1);
        top += QString::number(chamber.pins.master);
        topSizes += chamber.masterSize;
        bottom += QString::number(chamber.pins.bottom);
        bottomSizes += chamber.bottomSize;
    }
    AddPins(Chambers, tr("Chamber"), "lblChamber", numbers);
    AddPins(TopPins, tr("Top Pins"), "lblTopPins", top);
    AddPins(TopSizes, tr("    Size"), "lblTop", topSizes);
    AddPins(BottomPins, tr("Bottom Pins"), "lblBottomPins", bottom);
    AddPins(BottomSizes, tr("    Size"), "lblBot", bottomSizes);
    ui->picCylinder->SetChart(m_chart);
    const QStringList flaws = DescribeFlaws(m_chart);
    ui->lblFlaws->setText(flaws.join(u'\n'));
    ui->lblFlaws->setVisible(!flaws.isEmpty());
}

void frmPinningChart::ShowCorePins() {
    QStringList control, driver;
    for (const ChartChamber& chamber : m_chart.chambers) {
        control += PinFigure(*chamber.pins.control);
        driver += PinFigure(*chamber.pins.driver);
    }
    AddPins(DrivePins, tr("Driver Pins"), "lblDrivePins", driver);
    AddPins(ControlPins, tr("Control Pins"), "lblControlPins", control);
    ShowTallPins();
}

void frmPinningChart::ShowTallPins() {
    for (int pin = 0; pin < 10; ++pin) {
        auto* step = new QLabel(QString::number(pin + 10));
        auto* size = new QLabel(m_chart.tallPins[static_cast<std::size_t>(pin)]);
        size->setObjectName(QStringLiteral("lblTall_%1").arg(pin));
        size->setAccessibleName(tr("Pin of %1 steps").arg(pin + 10));
        for (QLabel* label : {step, size})
            label->setAlignment(Qt::AlignCenter);
        ui->grdTall->addWidget(step, 0, pin);
        ui->grdTall->addWidget(size, 1, pin);
    }
    auto* letters = new QLabel(QLatin1String(kPinLetters));
    letters->setAlignment(Qt::AlignCenter);
    ui->grdTall->addWidget(letters, 2, 0, 1, 10);
}

void frmPinningChart::Print() {
    if (!m_session.SessionPermissions.RunReports)
        return;
    QString name = QStringLiteral("Pinning %1.pdf").arg(m_chart.request.keyID);
    name.replace(QRegularExpression(QStringLiteral(R"([\\/:*?"<>|])")), QStringLiteral("-"));
    const QString path = m_session.boxes.SaveFile(tr("Print the Pinning Chart"),
                                                  QStringLiteral("PDF Files (*.pdf)|*.pdf"), name);
    if (path.isEmpty())
        return;
    const BusyPointer busy;
    PrintChartToFile(path, m_chart, m_session.ProgramTitle, m_session.clock().date());
}

} // namespace quorrel
