#pragma once

#include "store/SystemTables.h"
#include "widgets/Form.h"

#include <memory>

namespace Ui {
class frmOpenFile;
}

namespace quorrel {

/// Lists the key systems of the file: open one, define a new one, delete one.
class frmOpenFile : public Form {
    Q_OBJECT

public:
    explicit frmOpenFile(Session& session);
    ~frmOpenFile() override;

signals:
    /// A system is open in the session.
    void SystemOpened();
    /// A new system is wanted, or the file holds none (any more).
    void NewSystemWanted();

protected:
    void Activated() override;
    void Reload() override { FillList(); }
    void changeEvent(QEvent* event) override;

private:
    void FillList();
    void RefreshList();
    void OpenSelected();
    void DeleteSelected();

    std::unique_ptr<Ui::frmOpenFile> ui;
    std::vector<KeySystemRow> m_systems;
    qint64 m_dataVersion = 0; ///< of the file when the list was filled
};

} // namespace quorrel
