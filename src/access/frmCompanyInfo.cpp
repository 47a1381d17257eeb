#include "access/frmCompanyInfo.h"

#include "access/CompanyInfo.h"
#include "platform/Recordset.h"
#include "store/StoredPath.h"
#include "ui_frmCompanyInfo.h"
#include "widgets/HelpContexts.h"

namespace quorrel {

namespace {

constexpr qsizetype kPolicyLength = 4 * kPolicyPart;

/// What the boxes cannot show as it is stored, such as a line end in a line, is no change: a text
/// that is as its box was filled is as it was stored.
CompanyInfoRow WithUntouched(const CompanyInfoRow& stored, const CompanyInfoRow& filled,
                             CompanyInfoRow typed) {
    const auto keep = [&](const auto& column) {
        if (typed.*column.member == filled.*column.member)
            typed.*column.member = stored.*column.member;
    };
    std::apply([&](const auto&... column) { (keep(column), ...); }, CompanyInfoRow::Columns());
    return typed;
}

} // namespace

frmCompanyInfo::frmCompanyInfo(Session& session)
    : Form(session), ui(std::make_unique<Ui::frmCompanyInfo>()) {
    ui->setupUi(this);
    PlaceAt(0.25, 0.25);
    OfferHelp(help::kCompany, ui->cmdHelp);
    LoadRow();
    ShowLogo();
    ShowPolicyLength();
    On(ui->txtKeyPolicy, &QPlainTextEdit::textChanged, [this] { ShowPolicyLength(); });
    On(ui->txtPicPath, &QLineEdit::textChanged, [this] { ShowLogo(); });
    On(ui->cmdBrowse2, &QPushButton::clicked, [this] { Browse(); });
    On(ui->cmdSave, &QPushButton::clicked, [this] { Save(); });
}

frmCompanyInfo::~frmCompanyInfo() = default;

void frmCompanyInfo::LoadRow() {
    m_shown.reset();
    if (!m_session.CompanyInfoEmpty)
        m_shown = Recordset<CompanyInfoRow>(m_session.Keys()).First();
    const CompanyInfoRow row = m_shown.value_or(CompanyInfoRow{});
    ui->txtCompanyName->setText(row.CompanyName);
    ui->txtCompanyAddress->setPlainText(row.CompanyAddress);
    ui->txtCompanySlogan->setText(row.CompanySlogan);
    ui->txtCompanyMemo->setPlainText(row.CompanyMemo);
    ui->txtKeyPolicy->setPlainText(JoinedPolicy(row));
    ui->txtPicPath->setText(m_shown ? FullPath(m_session.Keys(), row.CompanyLogo)
                                    : m_session.Company.CompanyLogo);
    m_filled = Typed();
}

void frmCompanyInfo::Reload() {
    // Whoever had none to show, has one to show now.
    m_session.CompanyInfoEmpty = Recordset<CompanyInfoRow>(m_session.Keys()).Empty();
    LoadRow();
    if (m_shown)
        KeepCompany(m_session, *m_shown);
}

QString frmCompanyInfo::Unsaved() const {
    return SameFields(Typed(), m_filled) ? QString() : tr("What you have entered for the company");
}

void frmCompanyInfo::ShowLogo() {
    if (!ui->imgLogo->ShowLogo(ui->txtPicPath->text()))
        ui->imgLogo->setText(tr("This file cannot be shown as a picture on this workstation. Save "
                                "the logo as .bmp or .jpg to have it on every one."));
}

void frmCompanyInfo::ShowPolicyLength() {
    const auto length = ui->txtKeyPolicy->toPlainText().size();
    QString text = tr("%1 of %2 characters").arg(length).arg(kPolicyLength);
    if (length > kPolicyLength)
        text += tr("\nThe last %1 will not be saved.").arg(length - kPolicyLength);
    ui->lblPolicyLength->setText(text);
}

void frmCompanyInfo::Browse() {
    const QString path = m_session.boxes.OpenFile(
        tr("Company Logo"), QStringLiteral("Images (*.bmp;*.jpg;*.gif)|*.bmp;*.jpg;*.gif"));
    if (!path.isEmpty())
        ui->txtPicPath->setText(path);
}

CompanyInfoRow frmCompanyInfo::Typed() const {
    CompanyInfoRow row;
    row.CompanyName = ui->txtCompanyName->text();
    row.CompanyAddress = ui->txtCompanyAddress->toPlainText();
    row.CompanySlogan = ui->txtCompanySlogan->text();
    row.CompanyMemo = ui->txtCompanyMemo->toPlainText();
    row.CompanyLogo = ui->txtPicPath->text();
    SplitPolicy(ui->txtKeyPolicy->toPlainText(), row);
    return row;
}

void frmCompanyInfo::Save() {
    const CompanyInfoRow shown = m_shown.value_or(CompanyInfoRow{});
    SaveCompanyInfo(m_session, WithUntouched(shown, m_filled, Typed()), m_shown);
    Leave();
}

} // namespace quorrel
