#pragma once

#include "crosskeys/CrossPinning.h"
#include "crosskeys/PhantomCounts.h"
#include "doors/CrossKeys.h"
#include "widgets/Form.h"

#include <memory>
#include <optional>
#include <vector>

class QLabel;
class QLineEdit;

namespace Ui {
class frmCrossKeyed;
}

namespace quorrel {

/// The cross-key page of a door: the keys that open it besides the master key, the pins that its
/// cylinder needs for them, and every key and phantom key that then turns it. For a system of
/// interchangeable cores, as `frmCrossKeyedIC`, also the control and driver pins.
class frmCrossKeyed : public Form {
    Q_OBJECT

public:
    /// For a stored door. `selected` is the key that the main form shows.
    frmCrossKeyed(Session& session, const DoorsRow& door, const PinningRequest& selected);
    ~frmCrossKeyed() override;

protected:
    QString Unsaved() const override;
    void Reload() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void WatchBoxes();
    void WatchButtons();
    void ShowDoor();
    void ShowStoredKeys();
    void ShowListedUnder();
    void FillKeys();
    void CountPhantoms();

    CrossKeyIDs TypedKeys() const;
    void ShowKeys(const CrossKeyIDs& keyIDs);
    void LeaveBox(int box);
    void KeysChanged();
    QLabel* RemarkLabel(std::size_t element) const;
    void ShowRemarks();
    void ClearResults(const QString& why = {});

    void Mark(int box);
    void SelectCrossKey();
    void RemoveCrossKey();
    bool MayRead() const { return m_session.SessionPermissions.ReadPrintPinning; }
    void CalculateCrossPinning(const QString& withoutAccess = {});
    void AskForAccess();
    void Save();
    void Print();

    std::unique_ptr<Ui::frmCrossKeyed> ui;
    DoorsRow m_door;
    QString m_formerKey;                   ///< that the door was listed under at first
    std::optional<CrossKeyedRow> m_stored; ///< as it was shown
    CrossKeyIDs m_calculatedFor;           ///< what the boxes held when they last changed
    std::array<QLineEdit*, kCrossKeys> m_boxes{};
    std::array<QLabel*, kCrossKeys + 1> m_cuts{}; ///< element 0 that of the master key
    std::optional<int> m_marked;                  ///< the box that had the focus last
    std::vector<CrossKeyLine> m_keys;             ///< of the lines to pick from
    std::optional<CrossPinning> m_pinning;        ///< none when the keys were changed since
    std::string m_doorCuts;                       ///< of the key that the door is listed under
    PhantomCounts m_counts;
};

} // namespace quorrel
