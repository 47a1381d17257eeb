#include "pinning/frmPinningChart.h"

#include "engine/SystemDefinition.h"
#include "pinning/ChartPage.h"
#include "pinning/CylinderPainter.h"
#include "print/Preview.h"
#include "ui_frmPinningChart.h"
#include "widgets/HelpContexts.h"

#include <QShortcut>
#include <QTimer>

namespace quorrel {

namespace {

/// What is read at arm's length, at the bench.
void Enlarge(QLabel* label, double times) {
    QFont font = label->font();
    font.setPointSizeF(label->window()->font().pointSizeF() * times);
    font.setBold(true);
    label->setFont(font);
}

} // namespace

frmPinningChart::frmPinningChart(Session& session, const PinningChart& chart)
    : Form(session), ui(std::make_unique<Ui::frmPinningChart>()), m_chart(chart) {
    const bool core = chart.cylinder.core;
    setObjectName(core ? QStringLiteral("frmPinningChartIC") : QStringLiteral("frmPinningChart"));
    ui->setupUi(this);
    OfferHelp(help::kPinningChart, ui->cmdHelp);
    OfferFoot();
    WatchButtons();
    ui->frmTall->setVisible(core);
    ui->lblWarnings->hide();
    ui->lblNotes->hide();
    if (core)
        setWindowTitle(tr("Quorrel - Pinning Chart for IC Core 23"));
    for (QLabel* label : {ui->lblKeyID, ui->lblCuts})
        Enlarge(label, 1.3);
    ShowChart(chart);
    PlaceAt(0.5, 0.125);
}

frmPinningChart::~frmPinningChart() = default;

void frmPinningChart::WatchButtons() {
    On(ui->cmdOK, &QPushButton::clicked, [this] { Leave(); });
    On(ui->cmdPrint, &QPushButton::clicked, [this] { Print(); });
    On(ui->cmdPreview, &QPushButton::clicked, [this] { ShowAsPrinted(); });
    for (QPushButton* button : {ui->cmdPrint, ui->cmdPreview})
        button->setEnabled(m_session.SessionPermissions.RunReports);
    On(ui->cmdPrevious, &QPushButton::clicked, [this] { GoTo(Step::Previous); });
    On(ui->cmdNext, &QPushButton::clicked, [this] { GoTo(Step::Next); });
    connect(new QShortcut(Qt::Key_PageUp, this), &QShortcut::activated, ui->cmdPrevious,
            &QPushButton::click);
    connect(new QShortcut(Qt::Key_PageDown, this), &QShortcut::activated, ui->cmdNext,
            &QPushButton::click);
}

void frmPinningChart::Activated() {
    // Once the chart is on the screen that the warning speaks of.
    QTimer::singleShot(0, this, [this] { Guarded([this] { WarnOfControlKey(); }); });
}

void frmPinningChart::ShowChart(const PinningChart& chart) {
    m_chart = chart;
    if (!m_session.SessionPermissions.ReadPrintPinning)
        return;
    ShowKey();
    ShowPins();
    if (chart.cylinder.core)
        ShowTallPins();
    ui->picCylinder->SetCylinder(chart.cylinder);
    ShowRemarks();
    Guarded([this] { OfferOtherKeys(); });
}

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

/// The label at a place of the table, made when there is none yet.
QLabel* frmPinningChart::LabelAt(int line, int column) {
    if (const QLayoutItem* item = ui->grdPins->itemAtPosition(line, column))
        return static_cast<QLabel*>(item->widget());
    auto* label = new QLabel(this);
    ui->grdPins->addWidget(label, line, column);
    return label;
}

/// Fills the table, whose labels are hidden where the cylinder has no chamber.
void frmPinningChart::ShowPins() {
    int row = 0;
    QString pins;
    for (const ChartLine& line : ChartLines(m_chart)) {
        LabelAt(row, 0)->setText(line.sizes ? QStringLiteral("    ") + line.heading : line.heading);
        pins = line.sizes ? pins + u' ' + line.heading : line.heading;
        for (int chamber = 0; chamber < kPinCountLimits.highest; ++chamber) {
            QLabel* figure = LabelAt(row, chamber + 1);
            figure->setObjectName(QStringLiteral("%1_%2").arg(line.name).arg(chamber));
            figure->setAlignment(Qt::AlignCenter);
            if (!line.sizes)
                Enlarge(figure, 1.6);
            figure->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("0.0000")));
            figure->setAccessibleName(tr("%1, chamber %2").arg(pins).arg(chamber + 1));
            figure->setText(line.figures.value(chamber));
            figure->setVisible(chamber < line.figures.size());
        }
        ++row;
    }
}

void frmPinningChart::ShowTallPins() {
    // The same for each key of the system.
    if (ui->grdTall->count() > 0)
        return;
    constexpr int inARow = 5;
    for (int pin = 0; pin < 10; ++pin) {
        auto* step = new QLabel(QString::number(pin + 10));
        auto* size = new QLabel(m_chart.tallPins[static_cast<std::size_t>(pin)]);
        size->setObjectName(QStringLiteral("lblTall_%1").arg(pin));
        size->setAccessibleName(tr("Pin of %1 steps").arg(pin + 10));
        Enlarge(step, 1.0);
        for (QLabel* label : {step, size})
            label->setAlignment(Qt::AlignCenter);
        const int row = pin / inARow * 2;
        ui->grdTall->addWidget(step, row, pin % inARow);
        ui->grdTall->addWidget(size, row + 1, pin % inARow);
    }
    auto* letters = new QLabel(QLatin1String(kPinLetters));
    letters->setWordWrap(true);
    letters->setAlignment(Qt::AlignCenter);
    ui->grdTall->addWidget(letters, 4, 0, 1, inARow);
}

void frmPinningChart::ShowRemarks() {
    const auto show = [](QLabel* label, const QStringList& lines) {
        label->setText(lines.join(u'\n'));
        label->setVisible(!lines.isEmpty());
    };
    show(ui->lblWarnings, ChartWarnings(m_chart));
    show(ui->lblNotes, ChartNotes(m_chart));
    QPalette flagged = palette();
    flagged.setColor(QPalette::WindowText, LookOn(palette()).shear);
    ui->lblWarnings->setPalette(flagged);
}

void frmPinningChart::OfferOtherKeys() {
    for (const auto& [button, step] :
         {std::pair(ui->cmdPrevious, Step::Previous), std::pair(ui->cmdNext, Step::Next)})
        button->setEnabled(FindNamedKey(m_session, m_chart.request, step).has_value());
}

void frmPinningChart::GoTo(Step step) {
    if (const auto request = FindNamedKey(m_session, m_chart.request, step)) {
        ShowChart(MakePinningChart(m_session, *request));
        Tell({});
        WarnOfControlKey();
    } else {
        OfferOtherKeys();
    }
}

void frmPinningChart::WarnOfControlKey() {
    if (m_session.SessionPermissions.ReadPrintPinning &&
        IsControlKeysCuts(m_chart.request.key, m_chart.request.control))
        m_session.boxes.Message(ControlKeyWarning(), m_session.ProgramTitle, BoxButtons::Ok,
                                BoxIcon::Warning);
}

void frmPinningChart::Print() {
    if (!m_session.SessionPermissions.RunReports)
        return;
    Tell(PrintPainted(m_session, Page()));
}

void frmPinningChart::ShowAsPrinted() {
    if (!m_session.SessionPermissions.RunReports)
        return;
    Tell(ShowPreview(m_session, this, Page()));
}

PaintedJob frmPinningChart::Page() const {
    return {tr("Pinning %1").arg(m_chart.request.keyID.trimmed()), QPageLayout::Portrait,
            [this](QPagedPaintDevice& device) {
                PrintChartPage(device, m_chart, m_session.ProgramTitle, m_session.clock().date());
            }};
}

} // namespace quorrel
