#pragma once

#include "widgets/Form.h"

#include <QFileSystemModel>

#include <memory>

namespace Ui {
class frmDrive;
}

namespace quorrel {

/// Picks the folder of the maps.
class frmDrive : public Form {
    Q_OBJECT

public:
    frmDrive(Session& session, const QString& folder);
    ~frmDrive() override;

signals:
    void FolderChosen(const QString& folder);
    void Closed();

protected:
    bool Unloading() override;

private:
    QString Folder() const;
    void GoTo(const QString& folder);
    void MakeFolder();

    std::unique_ptr<Ui::frmDrive> ui;
    QFileSystemModel m_folders;
};

} // namespace quorrel
