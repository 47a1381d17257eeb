#include "pinning/frmManufacturer.h"

#include "ui_frmManufacturer.h"
#include "widgets/HelpContexts.h"

#include <QFocusEvent>

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
    Guarded([&] {
        FillBrands(brand);
        BrandChosen();
    });
    WatchSizes();
    ui->cmbLockBrand->installEventFilter(this);
    On(ui->cmbLockBrand, &QComboBox::activated, [this] { BrandChosen(); });
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
    if (watched == ui->cmbLockBrand && event->type() == QEvent::FocusOut) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason)
            Guarded([this] { BrandLeft(); });
        return false;
    }
    const auto box = std::find(m_sizes.begin(), m_sizes.end(), watched);
    if (box != m_sizes.end() && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            if (const auto next = std::next(box); next != m_sizes.end())
                (*next)->setFocus();
            return true;
        }
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
    ui->cmbLockBrand->clear();
    ui->cmbLockBrand->addItems(ListLockBrands(m_session));
    ui->cmbLockBrand->setCurrentText(shown);
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

/// What was typed for the brand that is shown is not dropped without a word.
void frmManufacturer::OfferToSave() {
    const PinSizes typed = TypedSizes();
    if (typed == m_shownSizes || m_shownBrand.trimmed().isEmpty() ||
        !m_session.SessionPermissions.CreateSystem)
        return;
    m_shownSizes = typed;
    if (m_session.boxes.Confirms(
            tr("The pin sizes of %1 are not saved. Save them now?").arg(m_shownBrand),
            m_session.ProgramTitle)) {
        FindOrAddPinSizes(m_session, m_shownBrand);
        SavePinSizes(m_session, m_shownBrand, typed);
    }
}

void frmManufacturer::BrandChosen() {
    OfferToSave();
    m_shownBrand = ui->cmbLockBrand->currentText();
    ShowSizes(FindPinSizes(m_session, ui->cmbLockBrand->currentText()).value_or(PinSizes()));
}

void frmManufacturer::BrandLeft() {
    const QString brand = ui->cmbLockBrand->currentText();
    if (brand.trimmed().isEmpty())
        return;
    const bool known = FindPinSizes(m_session, brand).has_value();
    if (!known) {
        FindOrAddPinSizes(m_session, brand);
        FillBrands(brand);
    }
    // What was typed for the brand that is shown stays.
    if (brand.compare(m_shownBrand, Qt::CaseInsensitive) != 0)
        BrandChosen();
}

void frmManufacturer::Save() {
    if (!m_session.SessionPermissions.CreateSystem)
        return;
    const QString brand = ui->cmbLockBrand->currentText();
    const PinSizes typed = TypedSizes();
    FindOrAddPinSizes(m_session, brand);
    SavePinSizes(m_session, brand, typed);
    m_shownSizes = typed;
    BrandChosen();
}

void frmManufacturer::DeleteBrand() {
    const QString brand = ui->cmbLockBrand->currentText();
    if (!m_session.SessionPermissions.CreateSystem || !FindPinSizes(m_session, brand))
        return;
    if (!m_session.boxes.ConfirmsLoss(tr("Are you sure you want to delete %1?").arg(brand),
                                      m_session.ProgramTitle))
        return;
    DeleteLockBrand(m_session, brand);
    m_shownSizes = TypedSizes();
    FillBrands({});
    ui->cmbLockBrand->setCurrentIndex(0);
    BrandChosen();
}

QString frmManufacturer::Unsaved() const {
    const bool differs = TypedSizes() != m_shownSizes && !m_shownBrand.trimmed().isEmpty();
    return differs && m_session.SessionPermissions.CreateSystem
               ? tr("What you have typed for %1").arg(m_shownBrand)
               : QString();
}

} // namespace quorrel
