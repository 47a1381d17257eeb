#pragma once

#include "access/ProgramUsers.h"
#include "widgets/Form.h"

#include <array>
#include <memory>
#include <vector>

class QCheckBox;

namespace Ui {
class frmPermissions;
}

namespace quorrel {

/// Adds, changes and deletes program users, and switches the automatic log-off.
class frmPermissions : public Form {
    Q_OBJECT

public:
    explicit frmPermissions(Session& session);
    ~frmPermissions() override;

protected:
    QString Unsaved() const override;

private:
    struct Right {
        QCheckBox* box;
        bool Permissions::*held;
    };

    std::array<Right, 7> Rights() const;
    bool MayEdit() const { return m_session.SessionPermissions.AddEditProgramUsers; }
    void FillUsers();
    void Show(const ProgramUser& user);
    void ShowFields(const ProgramUser& user);
    void ShowNewUser();
    void ShowAccount(const ProgramUsersRow& account);
    ProgramUser Typed(const QString& name) const;
    bool MayDropUser(const ProgramUser& typed);
    QString NameOf(const ProgramUser& typed) const;
    void ChooseUser(int entry);
    void Add();
    void Save();
    void Delete();
    void Take(const UserOutcome& outcome);
    void Tell(const QString& text);
    void TellChange(const UserOutcome& outcome);
    void ToggleAutoLogoff();
    void ShowAutoLogoff();

    std::unique_ptr<Ui::frmPermissions> ui;
    std::optional<ProgramUsersRow> m_opened; ///< the account brought up; none for a new user
    ProgramUser m_shown;                     ///< as it was brought up, before anything was typed
    std::vector<RowKey> m_listed; ///< the accounts of the list, which ends with a new user
    QString m_name;               ///< the name as typed, for when the list takes its place
};

} // namespace quorrel
