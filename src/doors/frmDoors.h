#pragma once

#include "doors/DoorLists.h"
#include "doors/DoorRecords.h"
#include "widgets/Form.h"

#include <memory>

namespace Ui {
class frmDoors;
}

namespace quorrel {

class TextList;

/// Which of the windows that the door form leads on to the program has.
struct DoorWindows {
    bool map = false;
    bool crossKey = false;
};

/// Keeps the door records of the open system and ties doors to Key IDs.
class frmDoors : public Form {
    Q_OBJECT

public:
    explicit frmDoors(Session& session, const DoorWindows& offered = {});
    ~frmDoors() override;

    /// Brings up the door of a label.
    void AskFor(const QString& label);

signals:
    /// The map page is wanted for the session's current door; this form hides until it is shown
    /// again.
    void MapWanted();
    /// A cross-key page is wanted; this form hides until it is shown again.
    void CrossKeyWanted(const DoorsRow& door);

protected:
    void Activated() override;
    void Reload() override;
    QString Unsaved() const override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void LeadOn();

    /// A list and the rows that its lines stand for.
    struct RowList {
        TextList* list = nullptr;
        RowLines lines;

        /// Fills it. The row that was chosen stays so where it is among the lines still.
        void Show(RowLines newLines, Session& session);
        void Choose(RowKey key);
        const RowLine* Chosen() const;
    };

    void OfferWindows();
    void WatchRecord();
    void WatchLists();
    bool MayAssign() const { return m_session.SessionPermissions.IssueKeys; }

    DoorText TypedRecord() const;
    void ShowTexts(const DoorText& text);
    void LoadDoorLists();
    void FillLists();
    void FillKeys(RowLines keys);
    void ShowKeyedDoors();
    void LoadKeyedDoors();

    void SetLabel(const QString& label);
    void LabelChanged();
    void LabelChosen();
    void BringUp(const QString& label);
    bool MayDropRecord();
    void TestLabel();
    void ShowRecord(const DoorText& atLabel);
    void ShowDoor(const DoorsRow& door);
    void ShowNoDoor();
    void ShowMapCaption(bool attached);
    void ShowHardwareCount();
    void ShowKeyedTo();
    void ReloadRecord();

    template <class Action>
    void OnRecord(Action&& action);
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
    RowList m_keys, m_doors, m_keyedDoors;
    ShownDoor m_shown;
    QString m_label;           ///< what its box held before it changed
    bool m_chosen = false;     ///< the label changed by a choice, which is told twice
    bool m_recordAged = false; ///< it is not stored as it was shown
    bool m_away = false;       ///< hidden while another window works on the door
};

} // namespace quorrel
