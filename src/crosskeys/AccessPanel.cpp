#include "crosskeys/AccessPanel.h"

#include "ui_AccessPanel.h"

#include <QStyle>

namespace quorrel {

namespace {

/// Fills a list with keys. Those that are no keys to hand out are marked.
void ShowKeys(TextList& list, const std::vector<KeyWithAccess>& keys, const std::string& doorCuts,
              bool mayReadCuts) {
    QStringList lines;
    std::vector<Aside> asides;
    for (const KeyWithAccess& key : keys) {
        lines += key.Text(mayReadCuts);
        const QString chambers = mayReadCuts ? DifferingChambers(key.cuts, doorCuts) : QString();
        asides.push_back(chambers.isEmpty()
                             ? Aside()
                             : Aside{AccessPanel::tr("\u2260 %1").arg(chambers),
                                     AccessPanel::tr("Differs from the door's key in chambers %1.")
                                         .arg(chambers)});
    }
    list.SetLines(lines);
    list.SetAsides(0, std::move(asides));
    const QIcon warning = list.style()->standardIcon(QStyle::SP_MessageBoxWarning);
    for (std::size_t row = 0; row < keys.size(); ++row)
        if (const QString text = keys[row].Warning(); !text.isEmpty())
            list.SetMark(static_cast<int>(row), warning, text);
}

QStringList TextsOf(const std::vector<std::string>& cuts, bool mayReadCuts) {
    QStringList texts;
    texts.reserve(static_cast<qsizetype>(cuts.size()));
    const QString hidden(8, u'*');
    for (const std::string& text : cuts)
        texts += mayReadCuts ? QString::fromStdString(text) : hidden;
    return texts;
}

/// What the told figure leaves out, and what else is worth a warning.
QString ResultText(const KeysWithAccess& access) {
    QStringList lines = {AccessPanel::tr("%1 cuts turn this cylinder, %2 of them phantom keys.")
                             .arg(access.combinations)
                             .arg(access.trulyPhantom)};
    if (access.controlKey)
        lines += AccessPanel::tr("The control key turns it: that key also pulls the core.");
    return lines.join(u'\n');
}

} // namespace

AccessPanel::AccessPanel(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::AccessPanel>()) {
    ui->setupUi(this);
}

AccessPanel::~AccessPanel() = default;

void AccessPanel::OfferCuts(bool mayReadCuts) {
    m_mayReadCuts = mayReadCuts;
    ui->lstAllCuts->setEnabled(mayReadCuts);
}

void AccessPanel::ShowAccess(const KeysWithAccess& access, const std::string& doorCuts) {
    ShowKeys(*ui->lstChanges, access.changes, doorCuts, m_mayReadCuts);
    ShowKeys(*ui->lstMasterSort, access.masters, doorCuts, m_mayReadCuts);
    ui->lstAllCuts->SetLines(TextsOf(access.phantoms, m_mayReadCuts));
    ui->Label7->setText(tr("%1 Phantom Keys").arg(access.phantoms.size()));
    ui->lblAccess->setText(ResultText(access));
}

void AccessPanel::Clear(const QString& why) {
    for (TextList* list : {ui->lstChanges, ui->lstMasterSort, ui->lstAllCuts})
        list->SetLines({});
    ui->Label7->clear();
    ui->lblAccess->setText(why);
}

void AccessPanel::Work() {
    if (ui->Picture1->isHidden())
        ui->Picture1->Begin();
    else
        ui->Picture1->Advance();
}

void AccessPanel::Rest() {
    ui->Picture1->hide();
}

} // namespace quorrel
