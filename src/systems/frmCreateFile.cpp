#include "systems/frmCreateFile.h"

#include "engine/Preview.h"
#include "engine/RandomMaster.h"
#include "pinning/PinSizes.h"
#include "platform/Text.h"
#include "systems/KeySystems.h"
#include "ui_frmCreateFile.h"
#include "widgets/HelpContexts.h"

#include <QButtonGroup>
#include <QSignalBlocker>
#include <QTimer>

namespace quorrel {

namespace {

constexpr const char* kPreCreationError = "There has been an error in Pre-Creation Process";

} // namespace

frmCreateFile::frmCreateFile(Session& session)
    : Form(session), ui(std::make_unique<Ui::frmCreateFile>()) {
    ui->setupUi(this);
    ui->txtLockBrand->lineEdit()->setMaxLength(255);
    OfferHelp(help::kCreateSystem, ui->cmdHelp);
    ui->cmdCreate->setEnabled(session.SessionPermissions.CreateSystem);
    const SystemDefinition usual;
    ui->txtMinimumPin->setText(QString::number(usual.minPin));
    ui->txtMaximumPin->setText(QString::number(usual.maxPin));
    ui->txtNumberofPins->setText(QString::number(usual.pins));
    ui->txtIncrement->setText(QString::number(usual.increment));
    ui->txtSafetyFactor->setText(QString::number(usual.safetyFactor));
    Guarded([this] { FillBrands(); });
    ShowType(0);
    OfferFoot();
    WatchFields();
    ui->txtSystemName->setFocus();
    m_asOpened = Describe();
}

frmCreateFile::~frmCreateFile() = default;

void frmCreateFile::WatchFields() {
    auto* types = new QButtonGroup(this);
    types->addButton(ui->opType_0, 0);
    types->addButton(ui->opType_1, 1);
    types->addButton(ui->opType_2, 2);
    On(types, &QButtonGroup::idClicked, [this](int type) { ShowType(type); });
    const std::pair<QLineEdit*, NumberLimits> numeric[] = {
        {ui->txtMinimumPin, kMinPinLimits},
        {ui->txtMaximumPin, kMaxPinLimits},
        {ui->txtNumberofPins, kPinCountLimits},
        {ui->txtIncrement, kIncrementLimits},
        {ui->txtSafetyFactor, kSafetyFactorLimits}};
    for (const auto& [field, limits] : numeric)
        On(field, &QLineEdit::textChanged,
           [this, field = field, limits = limits] { Clamp(field, limits); });
    for (QLineEdit* field :
         {ui->txtIncrement, ui->txtMasterKey, ui->txtMinimumPin, ui->txtMaximumPin,
          ui->txtNumberofPins, ui->txtSafetyFactor, ui->txtSystemAddress, ui->txtSystemName})
        field->installEventFilter(this);
    OnLeaving(ui->txtLockBrand, [this] { return CheckBrand(); });
    On(ui->txtMasterKey, &QLineEdit::textChanged, [this] { MasterChanged(); });
    On(ui->cmdRandomMaster, &QPushButton::clicked, [this] { DrawMaster(); });
    On(ui->cmdCreate, &QPushButton::clicked, [this] { Create(); });
    // Whoever gives up does not want to be asked for the pin sizes of a brand.
    ui->cmdCancel->setFocusPolicy(Qt::TabFocus);
    connect(ui->cmdCancel, &QPushButton::clicked, this, [this] { Leave(); });
}

bool frmCreateFile::eventFilter(QObject* watched, QEvent* event) {
    auto* field = qobject_cast<QLineEdit*>(watched);
    if (field && event->type() == QEvent::FocusIn) {
        if (field == ui->txtMinimumPin)
            Guarded([this] { FillBrands(); });
        // After the field's own handling of the click that brought the focus.
        QTimer::singleShot(0, field, [field] {
            if (field->hasFocus())
                field->selectAll();
        });
    }
    return Form::eventFilter(watched, event);
}

void frmCreateFile::Clamp(QLineEdit* field, const NumberLimits& limits) {
    if (Val(field->text()) > limits.highest)
        field->setText(QString::number(limits.highest));
    // An empty field and a word are 0 too: where 0 is allowed, it is what they become.
    const QString lowest = QString::number(limits.lowest);
    if (Val(field->text()) < std::max(limits.lowest, 1) && field->text() != lowest)
        field->setText(lowest);
    field->selectAll();
    RefreshPreview();
}

void frmCreateFile::ShowType(int type) {
    ui->lblAngle->setVisible(type == 1);
    ui->txtAngle->setVisible(type == 1);
    ui->lblControlKey->setVisible(type == 2);
    ui->txtControlKey->setVisible(type == 2);
}

void frmCreateFile::FillBrands() {
    ui->txtLockBrand->Refill(ListLockBrands(m_session));
}

/// False when the brand is new: its pin sizes come first, and then the command that was given.
bool frmCreateFile::CheckBrand() {
    const QString brand = RightTrimmed(ui->txtLockBrand->currentText());
    if (!LearnLockBrand(m_session, brand))
        return true;
    Tell(tr("The lock brand %1 is new. Enter its pin sizes, then go on here.").arg(brand));
    emit PinSizesWanted(brand);
    return false;
}

SystemDefinition frmCreateFile::Definition() const {
    SystemDefinition definition;
    definition.master = ui->txtMasterKey->text().toStdString();
    definition.pins = IntVal(ui->txtNumberofPins->text());
    definition.minPin = IntVal(ui->txtMinimumPin->text());
    definition.maxPin = IntVal(ui->txtMaximumPin->text());
    definition.increment = IntVal(ui->txtIncrement->text());
    definition.safetyFactor = IntVal(ui->txtSafetyFactor->text());
    return definition;
}

NewSystem frmCreateFile::Describe() const {
    NewSystem system;
    system.name = ui->txtSystemName->text();
    system.address = ui->txtSystemAddress->text();
    system.lockBrand = RightTrimmed(ui->txtLockBrand->currentText());
    system.notes = ui->txtNotes->text();
    system.definition = Definition();
    if (ui->opType_1->isChecked()) {
        system.type = SystemType::AngledCut;
        system.special = ui->txtAngle->text();
    }
    if (ui->opType_2->isChecked()) {
        system.type = SystemType::ICCore23;
        system.special = ui->txtControlKey->text();
    }
    return system;
}

QString frmCreateFile::Unsaved() const {
    return Describe() == m_asOpened ? QString() : tr("The new key system");
}

void frmCreateFile::MasterChanged() {
    if (ui->txtMasterKey->text().size() == IntVal(ui->txtNumberofPins->text()))
        PreviewUsableKeys();
}

/// Keeps the figures true when another value than the master changes; it stays silent, since the
/// values may be on their way to a set that fits together.
void frmCreateFile::RefreshPreview() {
    const SystemDefinition definition = Definition();
    if (ui->txtMasterKey->text().size() != definition.pins) {
        ui->List1->SetLines({});
        ui->lblTotalChanges->setText(tr("Total Usable Change Keys ="));
        ui->lblWithinSafety->setText(tr("Of these within the Safety Factor ="));
        return;
    }
    if (!definition.ExceedsPinVariance() && definition.PageCount() <= kMaxPages)
        ShowUsableKeys(definition);
}

bool frmCreateFile::RefusesVariance(const SystemDefinition& definition) {
    if (!definition.ExceedsPinVariance())
        return false;
    m_session.boxes.Message(tr("Quorrel is limited to a pin variance of 5 when creating a Single "
                               "Increment System"),
                            tr("Pin Variance Error"));
    ui->txtMinimumPin->setFocus();
    return true;
}

void frmCreateFile::PreviewUsableKeys() {
    const SystemDefinition definition = Definition();
    if (RefusesVariance(definition))
        return;
    if (ui->txtMasterKey->text().size() != definition.pins) {
        m_session.boxes.Message(tr("You need %1 Cuts for Master Key").arg(definition.pins),
                                m_session.ProgramTitle);
        ui->txtMasterKey->setFocus();
    }
    ShowUsableKeys(definition);
}

void frmCreateFile::ShowUsableKeys(const SystemDefinition& definition) {
    const UsableKeys usable = CountUsableKeys(definition);
    QStringList lines;
    for (std::size_t page = 0; page < usable.perPage.size(); ++page)
        lines.append(
            QString::fromStdString(PreviewLine(static_cast<int>(page) + 1, usable.perPage[page])));
    ui->List1->SetLines(lines);
    ui->lblTotalChanges->setText(tr("Total Usable Change Keys = %1").arg(usable.Total()));
    ui->lblWithinSafety->setText(
        tr("Of these within the Safety Factor = %1").arg(usable.withinSafetyFactor));
}

void frmCreateFile::DrawMaster() {
    std::optional<std::string> master;
    {
        const BusyPointer busy;
        m_session.random.Seed();
        master = DrawRandomMaster(Definition(), [this] { return m_session.random.Next(); });
    }
    if (!master) {
        m_session.boxes.Message(tr("No master key keeps to these values. Raise the Safety Factor "
                                   "or bring the smallest and largest pin closer together."),
                                m_session.ProgramTitle);
        ui->txtSafetyFactor->setFocus();
        return;
    }
    {
        // The preview runs once, below.
        const QSignalBlocker blocker(ui->txtMasterKey);
        ui->txtMasterKey->setText(QString::fromStdString(*master));
    }
    PreviewUsableKeys();
}

QWidget* frmCreateFile::FieldOf(Refusal::Field field) const {
    switch (field) {
    case Refusal::Field::Name:
        return ui->txtSystemName;
    case Refusal::Field::Pins:
        return ui->txtNumberofPins;
    case Refusal::Field::MinimumPin:
        return ui->txtMinimumPin;
    case Refusal::Field::MaximumPin:
        return ui->txtMaximumPin;
    case Refusal::Field::Increment:
        return ui->txtIncrement;
    case Refusal::Field::SafetyFactor:
        return ui->txtSafetyFactor;
    case Refusal::Field::Master:
        return ui->txtMasterKey;
    case Refusal::Field::Angle:
        return ui->txtAngle;
    case Refusal::Field::Control:
        return ui->txtControlKey;
    }
    return nullptr;
}

void frmCreateFile::Create() {
    if (!m_session.SessionPermissions.CreateSystem)
        return;
    const NewSystem system = Describe();
    if (RefusesVariance(system.definition))
        return;
    if (const auto refusal = CheckNewSystem(m_session, system)) {
        m_session.boxes.Message(QLatin1String(kPreCreationError) + QStringLiteral("\n\n") +
                                    refusal->text,
                                m_session.ProgramTitle);
        FieldOf(refusal->field)->setFocus();
        return;
    }
    const BusyPointer busy;
    OpenKeySystem(m_session, CreateKeySystem(m_session, system));
    emit SystemCreated();
}

} // namespace quorrel
