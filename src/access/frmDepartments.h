#pragma once

#include "widgets/Form.h"

#include <memory>

namespace Ui {
class frmDepartments;
}

namespace quorrel {

/// Renames and deletes the departments of the open system.
class frmDepartments : public Form {
    Q_OBJECT

public:
    explicit frmDepartments(Session& session);
    ~frmDepartments() override;

    /// Escape gives a renaming up, after a question, before it closes the form.
    void reject() override;

protected:
    QString Unsaved() const override;
    void Reload() override;

private:
    void LoadDepartmentList(int row);
    void ShowRenaming(bool renaming);
    void ApplySelection();
    void BeginRenaming();
    void Save();
    void Delete();

    std::unique_ptr<Ui::frmDepartments> ui;
    bool m_renaming = false;
};

} // namespace quorrel
