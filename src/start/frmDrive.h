#pragma once

#include "widgets/Form.h"

#include <memory>

namespace Ui {
class frmDrive;
}

namespace quorrel {

/// Picks the folder of the maps: the one whose path stands above the list of its folders.
class frmDrive : public Form {
    Q_OBJECT

public:
    frmDrive(Session& session, const QString& folder);
    ~frmDrive() override;

signals:
    void FolderChosen(const QString& folder);

private:
    /// Enters a folder and lists the folders in it.
    void GoTo(const QString& folder);
    void EnterSelected();
    void MakeFolder();

    std::unique_ptr<Ui::frmDrive> ui;
    QString m_folder; ///< the path of `Dir1`
};

} // namespace quorrel
