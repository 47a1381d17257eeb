#pragma once

#include "start/NetworkSettings.h"
#include "widgets/Form.h"

#include <memory>

class QLineEdit;

namespace Ui {
class frmNetwork;
}

namespace quorrel {

/// Edits where the key systems, the maps and the personnel file lie.
class frmNetwork : public Form {
    Q_OBJECT

public:
    explicit frmNetwork(Session& session);
    ~frmNetwork() override;

    void SetMapFolder(const QString& folder);
    QString MapFolder() const;

signals:
    /// The folder picker is wanted; this form hides until it is done.
    void MapFolderWanted();

protected:
    QString Unsaved() const override;

private:
    NetworkSettings Typed() const;
    void ShowSettings(const NetworkSettings& settings);
    void ShowNoSettings();
    void ApplyOptions();
    void Browse(QLineEdit* field, const QString& title, const QString& filter);
    void Save();

    std::unique_ptr<Ui::frmNetwork> ui;
    NetworkSettings m_saved; ///< as the boxes show what is stored
};

} // namespace quorrel
