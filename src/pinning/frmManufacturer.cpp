#include "pinning/frmManufacturer.h"

#include "platform/Text.h"
#include "ui_frmManufacturer.h"
#include "widgets/HelpContexts.h"
#include "widgets/Manners.h"

#include <QKeyEvent>

namespace quorrel {

frmManufacturer::frmManufacturer(Session& session, const QString& brand)
    : Form(session), ui(std::make_unique<Ui::frmManufacturer>()) {
    ui->setupUi(this);
    OfferHelp(help::kPinSizes, ui->cmdHelp);
    for (int box = 0; box < 20; ++box)
        m_sizes[static_cast<std::size_t>(box)] =
            findChild<QLineEdit*>(QStringLiteral("%1_%2")
                                      .arg(QLatin1String(box < 10 ? "txtBottom" : "txtTop"))
                                      .arg(box % 10));
    OfferFoot();
    Guarded([&] {
        FillBrands(brand);
        ShowBrand(FindLockBrand(m_session, brand));
    });
    WatchSizes();
    OnLeaving(ui->cmbLockBrand, [this] { return BrandLeft(); });
    On(ui->cmbLockBrand, &QComboBox::activated, [this] { BrandLeft(); });
    On(ui->cmdRecord, &QPushButton::clicked, [this] { Save(); });
    On(ui->Command1, &QPushButton::clicked, [this] { DeleteBrand(); });
    On(ui->cmdExit, &QPushButton::clicked, [this] { close(); });
}

frmManufacturer::~frmManufacturer() = default;

void frmManufacturer::WatchSizes() {
    for (int box = 0; box < 20; ++box) {
        QLineEdit* field = m_sizes[static_cast<std::size_t>(box)];
        On(field, &QLineEdit::textChanged, [this, box] { PointTyped(box); });
        field->installEventFilter(this);
    }
}

bool frmManufacturer::eventFilter(QObject* watched, QEvent* event) {
    const auto box = std::find(m_sizes.begin(), m_sizes.end(), watched);
    if (box != m_sizes.end() && event->type() == QEvent::KeyPress &&
        IsEnter(*static_cast<QKeyEvent*>(event))) {
        if (const auto next = std::next(box); next != m_sizes.end())
            (*next)->setFocus();
        return true;
    }
    return Form::eventFilter(watched, event);
}

/// A point that closes a size goes on to the next box; from the last bottom pin it has always
/// gone to the master pin of one step.
void frmManufacturer::PointTyped(int box) {
    QLineEdit* field = m_sizes[static_cast<std::size_t>(box)];
    const QString text = field->text();
    if (text.size() < 3 || !text.endsWith(u'.'))
        return;
    field->setText(text.chopped(1));
    const auto next = static_cast<std::size_t>(box == 9 ? 11 : box + 1);
    if (next < m_sizes.size())
        m_sizes[next]->setFocus();
}

void frmManufacturer::FillBrands(const QString& shown) {
    ui->cmbLockBrand->SetTexts(ListLockBrands(m_session), shown);
}

void frmManufacturer::ShowSizes(const PinSizes& sizes) {
    for (std::size_t cut = 0; cut < 10; ++cut) {
        m_sizes[cut]->setText(sizes.bottom[cut].trimmed());
        m_sizes[10 + cut]->setText(sizes.top[cut].trimmed());
    }
    m_shownSizes = TypedSizes();
}

PinSizes frmManufacturer::TypedSizes() const {
    PinSizes sizes;
    const auto kept = [](const QString& text) {
        return text.isEmpty() ? QStringLiteral(" ") : text;
    };
    for (std::size_t cut = 0; cut < 10; ++cut) {
        sizes.bottom[cut] = kept(m_sizes[cut]->text());
        sizes.top[cut] = kept(m_sizes[10 + cut]->text());
    }
    return sizes;
}

/// Brings up the sizes of a brand; none for no brand.
void frmManufacturer::ShowBrand(const std::optional<ManufacturerRow>& brand) {
    m_shown = brand;
    ShowSizes(brand ? SizesOf(*brand) : PinSizes());
}

/// Brings up the brand whose name stands in its box, a new one included. False when the user
/// stays with the brand that is shown, for what was typed for it.
bool frmManufacturer::BrandLeft() {
    const QString name = RightTrimmed(ui->cmbLockBrand->currentText());
    if (name.isEmpty())
        return true;
    const auto known = FindLockBrand(m_session, name);
    if (known && m_shown && known->key == m_shown->key)
        return true; // What was typed for it stays.
    // Sizes that were typed before their brand are the new brand's.
    const bool keep = !known && !m_shown;
    if (!keep && !MayDrop()) {
        FillBrands(m_shown ? m_shown->Name : QString());
        return false;
    }
    m_shown = known ? *known : FindOrAddLockBrand(m_session, name);
    if (!keep)
        ShowSizes(SizesOf(*m_shown));
    FillBrands(m_shown->Name);
    return true;
}

void frmManufacturer::Reload() {
    const QString name = m_shown ? m_shown->Name : QString();
    const auto brand = FindLockBrand(m_session, name);
    FillBrands(brand ? brand->Name : QString());
    ShowBrand(brand);
}

void frmManufacturer::Save() {
    if (!m_session.SessionPermissions.CreateSystem)
        return;
    if (!m_shown || RightTrimmed(ui->cmbLockBrand->currentText()).isEmpty()) {
        m_session.boxes.Message(tr("Type the name of the lock brand that these sizes are of, or "
                                   "choose one from the list."),
                                m_session.ProgramTitle);
        ui->cmbLockBrand->setFocus();
        return;
    }
    SavePinSizes(m_session, *m_shown, TypedSizes());
    TellDone(tr("The pin sizes of %1 are saved").arg(m_shown->Name), [this] { Reload(); });
}

void frmManufacturer::DeleteBrand() {
    if (!m_session.SessionPermissions.CreateSystem || !m_shown)
        return;
    const QString name = m_shown->Name;
    if (!m_session.boxes.ConfirmsLoss(tr("Are you sure you want to delete %1?").arg(name),
                                      m_session.ProgramTitle))
        return;
    DeleteLockBrand(m_session, *m_shown);
    ShowBrand({});
    TellDone(tr("%1 is deleted").arg(name), [this] {
        const QString next = ListLockBrands(m_session).value(0);
        FillBrands(next);
        ShowBrand(FindLockBrand(m_session, next));
    });
}

QString frmManufacturer::Unsaved() const {
    if (TypedSizes() == m_shownSizes || !m_session.SessionPermissions.CreateSystem)
        return {};
    return m_shown ? tr("What you have typed for %1").arg(m_shown->Name)
                   : tr("What you have typed for a lock brand without a name");
}

} // namespace quorrel
