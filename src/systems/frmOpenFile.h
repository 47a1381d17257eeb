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
    void NewSystemWanted();
    /// The file holds no system (any more).
    void NoSystems();
    /// The form was closed instead.
    void Ended();

protected:
    void Activated() override;
    void changeEvent(QEvent* event) override;
    bool Unloading() override;

private:
    void FillList();
    void RefreshList();
    void OpenSelected();
    void DeleteSelected();

    std::unique_ptr<Ui::frmOpenFile> ui;
    std::vector<KeySystemRow> m_systems;
    qint64 m_dataVersion = 0; ///< of the file when the list was filled
    bool m_keepRunning = false;
};

} // namespace quorrel
