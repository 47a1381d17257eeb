#include "page/StatusLine.h"

#include "platform/Recordset.h"
#include "store/OfSystem.h"
#include "store/SystemTables.h"
#include "ui_StatusLine.h"

#include <QDir>

namespace quorrel {

StatusLine::StatusLine(QWidget* parent) : QWidget(parent), ui(std::make_unique<Ui::StatusLine>()) {
    ui->setupUi(this);
    ui->lblKeyFile->SetElideMode(Qt::ElideMiddle);
}

StatusLine::~StatusLine() = default;

void StatusLine::Tell(const QString& text) {
    ui->lblStored->setText(text);
}

void StatusLine::ShowFacts(Session& session) {
    const auto named = Recordset<AllKeysRow>(session.Keys(), OfSystem<AllKeysRow>(session)).Count();
    ui->lblUser->setText(session.LoggedUser);
    ui->lblLogoff->setText(session.AutoLogoffActive ? tr("Auto-logoff on") : tr("Auto-logoff off"));
    ui->lblNamed->setText(named == 1 ? tr("1 key named") : tr("%1 keys named").arg(named));
    ui->lblKeyFile->setText(QDir::toNativeSeparators(session.KeySystemPath));
}

} // namespace quorrel
