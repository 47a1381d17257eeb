#include "access/frmDepartments.h"

#include "access/Departments.h"
#include "platform/Text.h"
#include "store/SystemTables.h"
#include "ui_frmDepartments.h"
#include "widgets/HelpContexts.h"

#include <algorithm>

namespace quorrel {

frmDepartments::frmDepartments(Session& session)
    : Form(session), ui(std::make_unique<Ui::frmDepartments>()) {
    ui->setupUi(this);
    PlaceAt(0.25, 0.25);
    OfferHelp(help::kDepartments, ui->cmdHelp);
    OfferFoot();
    ui->lstDepartment->setFont(font()); // Names are in no columns.
    ui->txtRename->setMaxLength(kDepartmentWidth);
    On(ui->lstDepartment, &TextList::Clicked, [this] { ApplySelection(); });
    On(ui->lstDepartment, &TextList::DoubleClicked, [this] { BeginRenaming(); });
    On(ui->lstDepartment, &TextList::EnterPressed, [this] { BeginRenaming(); });
    On(ui->cmdRename, &QPushButton::clicked, [this] { BeginRenaming(); });
    On(ui->cmdSave, &QPushButton::clicked, [this] { Save(); });
    On(ui->cmdDelete, &QPushButton::clicked, [this] { Delete(); });
    On(ui->cmdExit, &QPushButton::clicked, [this] { Leave(); });
    Guarded([this] { LoadDepartmentList(-1); });
}

frmDepartments::~frmDepartments() = default;

/// Reads the list and highlights a line of it.
void frmDepartments::LoadDepartmentList(int row) {
    ui->lstDepartment->SetLines(ListDepartments(m_session));
    ui->lstDepartment->SetCurrentRow(std::min(row, ui->lstDepartment->Count() - 1));
    ApplySelection();
}

void frmDepartments::ApplySelection() {
    const bool selected = ui->lstDepartment->CurrentRow() >= 0;
    ui->cmdRename->setEnabled(selected);
    ui->cmdDelete->setEnabled(selected && !m_renaming);
}

void frmDepartments::ShowRenaming(bool renaming) {
    m_renaming = renaming;
    ui->lstDepartment->setEnabled(!renaming);
    ui->txtRename->setEnabled(renaming);
    ui->cmdRename->setVisible(!renaming);
    ui->cmdSave->setVisible(renaming);
    (renaming ? ui->cmdSave : ui->cmdRename)->setDefault(true);
    ApplySelection();
    if (renaming) {
        ui->txtRename->setFocus();
        ui->txtRename->selectAll();
    } else {
        ui->txtRename->clear();
        ui->lstDepartment->setFocus();
    }
}

void frmDepartments::BeginRenaming() {
    const QString name = ui->lstDepartment->CurrentText();
    if (!m_session.SessionPermissions.AlterKeyInformation || name.isEmpty())
        return;
    ui->txtRename->setText(name.toUpper());
    ShowRenaming(true);
}

void frmDepartments::Save() {
    if (!m_session.SessionPermissions.AlterKeyInformation || !m_renaming)
        return;
    const BusyPointer busy;
    const QString before = ui->lstDepartment->CurrentText();
    const QString name = ui->txtRename->text().toUpper();
    RenameDepartment(m_session, before, name);
    ShowRenaming(false);
    const QString done = name == before   ? QString()
                         : name.isEmpty() ? tr("The name of department %1 taken away").arg(before)
                                          : tr("Department %1 renamed to %2").arg(before, name);
    TellDone(done, [&] {
        LoadDepartmentList(-1);
        const auto renamed = ui->lstDepartment->Lines().indexOf(RightTrimmed(name));
        ui->lstDepartment->SetCurrentRow(static_cast<int>(renamed));
        ApplySelection();
    });
}

void frmDepartments::Delete() {
    const QString name = ui->lstDepartment->CurrentText();
    if (!m_session.SessionPermissions.AlterKeyInformation || name.isEmpty())
        return;
    if (!m_session.boxes.ConfirmsLoss(tr("Are you sure you want to delete %1?").arg(name),
                                      m_session.ProgramTitle))
        return;
    const BusyPointer busy;
    const int row = ui->lstDepartment->CurrentRow();
    DeleteDepartment(m_session, name);
    TellDone(tr("Department %1 deleted").arg(name), [&] { LoadDepartmentList(row); });
}

QString frmDepartments::Unsaved() const {
    const QString name = ui->lstDepartment->CurrentText();
    return m_renaming && ui->txtRename->text().toUpper() != name.toUpper()
               ? tr("The new name of department %1").arg(name)
               : QString();
}

void frmDepartments::Reload() {
    if (m_renaming && !Unsaved().isEmpty())
        Tell(tr("You had typed: ") + ui->txtRename->text());
    ShowRenaming(false);
    LoadDepartmentList(-1);
}

void frmDepartments::reject() {
    if (!m_renaming)
        Form::reject();
    else if (MayDrop())
        ShowRenaming(false);
}

} // namespace quorrel
