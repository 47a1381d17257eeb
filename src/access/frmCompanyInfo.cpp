#include "access/frmCompanyInfo.h"

#include "access/CompanyInfo.h"
#include "platform/Recordset.h"
#include "ui_frmCompanyInfo.h"
#include "widgets/HelpContexts.h"

namespace quorrel {

namespace {

constexpr int kPolicyLength = 4 * kPolicyPart;

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
    ui->txtPicPath->setText(m_session.Company.CompanyLogo);
    if (m_session.CompanyInfoEmpty)
        return;
    const auto row = Recordset<CompanyInfoRow>(m_session.Keys()).First();
    if (!row)
        return;
    ui->txtCompanyName->setText(row->CompanyName);
    ui->txtCompanyAddress->setPlainText(row->CompanyAddress);
    ui->txtCompanySlogan->setText(row->CompanySlogan);
    ui->txtCompanyMemo->setPlainText(row->CompanyMemo);
    ui->txtKeyPolicy->setPlainText(JoinedPolicy(*row));
    ui->txtPicPath->setText(row->CompanyLogo);
}

void frmCompanyInfo::ShowLogo() {
    ui->imgLogo->ShowLogo(ui->txtPicPath->text());
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

void frmCompanyInfo::Save() {
    CompanyInfoRow row;
    row.CompanyName = ui->txtCompanyName->text();
    row.CompanyAddress = ui->txtCompanyAddress->toPlainText();
    row.CompanySlogan = ui->txtCompanySlogan->text();
    row.CompanyMemo = ui->txtCompanyMemo->toPlainText();
    row.CompanyLogo = ui->txtPicPath->text();
    SplitPolicy(ui->txtKeyPolicy->toPlainText(), row);
    SaveCompanyInfo(m_session, row);
    Leave();
}

} // namespace quorrel
