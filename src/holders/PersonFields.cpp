#include "holders/PersonFields.h"

#include "holders/Personnel.h"
#include "platform/Text.h"
#include "store/Conflict.h"
#include "store/SystemTables.h"
#include "ui_frmKeyUsers.h"

#include <utility>

namespace quorrel {

namespace {

/// Text fields and the columns that they show; the box of the department is of another kind.
constexpr std::pair<QLineEdit * Ui::frmKeyUsers::*, QString KeyUsersRow::*> kFields[] = {
    {&Ui::frmKeyUsers::txtUserNumber, &KeyUsersRow::UserIDNumber},
    {&Ui::frmKeyUsers::txtLastName, &KeyUsersRow::Lastname},
    {&Ui::frmKeyUsers::txtFirstName, &KeyUsersRow::Firstname},
    {&Ui::frmKeyUsers::txtTitle, &KeyUsersRow::Title},
    {&Ui::frmKeyUsers::txtStatus, &KeyUsersRow::Status},
    {&Ui::frmKeyUsers::txtWorkPhone, &KeyUsersRow::WorkPhone},
    {&Ui::frmKeyUsers::txtWorkExtention, &KeyUsersRow::Extention},
    {&Ui::frmKeyUsers::txtHomePhone, &KeyUsersRow::HomePhone}};

} // namespace

void PersonFields::Fill(const KeyUsersRow& holder) {
    for (const auto& [field, column] : kFields)
        (m_ui.*field)->setText(holder.*column);
    m_ui.txtUserID->setText(holder.key == 0 ? QString() : QString::number(holder.UserID));
    m_ui.cmbDepartment->setCurrentText(holder.Department);
    m_ui.ckEmployee->setChecked(holder.Employee);
}

KeyUsersRow PersonFields::OnScreen() const {
    KeyUsersRow person;
    for (const auto& [field, column] : kFields)
        person.*column = (m_ui.*field)->text();
    person.UserIDDouble = Val(m_ui.txtUserID->text());
    person.Department = m_ui.cmbDepartment->currentText();
    person.Employee = m_ui.ckEmployee->isChecked();
    return person;
}

void PersonFields::Show(const KeyUsersRow& holder) {
    Fill(holder);
    m_shown = holder;
    m_filled = OnScreen();
}

void PersonFields::Clear() {
    KeyUsersRow nobody;
    nobody.Employee = m_ui.ckEmployee->isChecked(); // The tick is for several in a row.
    Show(nobody);
}

void PersonFields::BeginNew() {
    const KeyUsersRow left = m_filled;
    KeyUsersRow next = OnScreen();
    next.Firstname = next.Lastname = next.Title = next.Status = next.Department = QString();
    Show(next);
    // What stays is not yet anybody's.
    m_filled.UserIDNumber = left.UserIDNumber;
    m_filled.WorkPhone = left.WorkPhone;
    m_filled.Extention = left.Extention;
    m_filled.HomePhone = left.HomePhone;
}

void PersonFields::FillFrom(const PersonnelRecord& record) {
    m_ui.txtLastName->setText(record.LastName);
    m_ui.txtFirstName->setText(record.FirstName);
    m_ui.cmbDepartment->setCurrentText(record.Department);
    m_ui.txtTitle->setText(record.Title);
    m_ui.txtStatus->setText(record.Status);
    m_ui.ckEmployee->setChecked(true);
}

KeyUsersRow PersonFields::Typed() const {
    const KeyUsersRow now = OnScreen();
    if (m_shown.key == 0)
        return now;
    KeyUsersRow typed = m_shown;
    for (const auto column :
         {&KeyUsersRow::UserIDNumber, &KeyUsersRow::Lastname, &KeyUsersRow::Firstname,
          &KeyUsersRow::Department, &KeyUsersRow::Title, &KeyUsersRow::Status,
          &KeyUsersRow::WorkPhone, &KeyUsersRow::Extention, &KeyUsersRow::HomePhone})
        if (now.*column != m_filled.*column)
            typed.*column = now.*column;
    typed.Employee = now.Employee;
    typed.UserIDDouble = now.UserIDDouble;
    return typed;
}

bool PersonFields::Differs() const {
    // Leaving the department raises it to capitals, which is no edit.
    const auto plain = [](KeyUsersRow person) {
        person.Department = person.Department.toUpper().left(kDepartmentWidth);
        return person;
    };
    return !SameFields(plain(OnScreen()), plain(m_filled));
}

QStringList PersonFields::Refresh(const std::optional<KeyUsersRow>& stored) {
    if (!stored) {
        m_shown = {};
        return {};
    }
    const auto merge = MergeOf(m_shown, Typed(), *stored);
    Show(*stored);
    Fill(merge.row);
    return merge.unsaved;
}

} // namespace quorrel
