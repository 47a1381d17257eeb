#pragma once

#include "doors/DoorRecords.h"
#include "widgets/Form.h"

#include <memory>

namespace Ui {
class frmDoors;
}

namespace quorrel {

/// Which of the windows that the door form leads on to the program has.
struct DoorWindows {
    bool map = false;
    bool crossKey = false;
};

/// The door that a cross-key page is wanted for, as the door form shows it.
struct CrossKeyDoor {
    QString label;
    QString id;
    QString description;
    QString location;
    bool isIC = false; ///< the system is one of interchangeable cores
};

/// Keeps the door records of the open system and ties doors to Key IDs.
class frmDoors : public Form {
    Q_OBJECT

public:
    explicit frmDoors(Session& session, const DoorWindows& offered = {});
    ~frmDoors() override;

    /// Brings up the door of a label, as typing it does.
    void AskFor(const QString& label);

signals:
    /// The map page is wanted for the session's current door; this form hides until it is shown
    /// again.
    void MapWanted();
    /// A cross-key page is wanted; this form hides until it is shown again.
    void CrossKeyWanted(const CrossKeyDoor& door);

protected:
    void Activated() override;
    QString Unsaved() const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void OfferWindows();
    void WatchRecord();
    void WatchLists();
    bool MayAssign() const { return m_session.SessionPermissions.IssueKeys; }
    DoorText TypedRecord() const;

    void LoadDoorLists();
    void ClearRecord();
    void SetKeyLines(const QStringList& lines);
    void ShowKeyedDoors();
    void LoadKeyedDoors();

    void LabelChanged();
    void TestLabel();
    void ShowRecord();
    void ShowMapCaption(bool attached);
    void ShowHardwareCount();
    void ShowKeyedTo();

    std::optional<QString> StoreRecord();
    void KeepRecord();
    void Save();
    void Delete();
    void Assign();
    void Remove();
    void OpenMapForDoor();
    void OpenCrossKeyPage();

    std::unique_ptr<Ui::frmDoors> ui;
    DoorWindows m_offered;
    DoorText m_shown;    ///< the record as it came up
    bool m_away = false; ///< hidden while another window works on the door
};

} // namespace quorrel
