#pragma once

#include "holders/KeyHolders.h"
#include "search/KeySearch.h"
#include "search/SearchLists.h"
#include "widgets/Form.h"

#include <memory>
#include <vector>

class QLineEdit;

namespace Ui {
class frmFindKey;
}

namespace quorrel {

class TextList;

/// Finds keys by their cuts, Key ID, serial number, description or unit, doors and holders, and
/// leads on to them.
class frmFindKey : public Form {
    Q_OBJECT

public:
    explicit frmFindKey(Session& session);
    ~frmFindKey() override;

signals:
    /// A key was found; the main form is to show it. `told` says more of it.
    void KeyFound(const KeyHit& hit, const QString& told);
    /// The units of a Key ID are wanted. `told` says more of what was searched.
    void UnitsWanted(const QString& keyID, const QString& told);
    /// A door is wanted, by its label.
    void DoorWanted(const QString& label);

protected:
    void Activated() override;
    void Reload() override;
    void reject() override;

private:
    void WatchKeys();
    void WatchDoors();
    void WatchHolders();
    void LoadLists();
    void RefineDescriptions();
    void RefineDoors();
    void ShowDoors(DoorColumn column);
    void RefineUsers();
    void ShowHolders(HolderColumn column, const QString& search);

    void BeginSearch();
    using Finder = std::optional<KeyHit> (KeySearch::*)(const QString&) const;
    void Find(QLineEdit* box, Finder finder, const QString& miss);
    void FindByDescription();
    void Report(const KeyHit& hit, const QString& description);
    void FindByUnit();
    void OpenUnitsOfKey(const QString& keyID, const QString& told = {});
    void ShowUserKeys();
    void ShowDepartmentKeys();
    void ShowUnits(const QString& whose, std::vector<UnitLine> units);
    void StepDoors();
    void StepHolders();
    const DoorSearchLine* PickDoor();
    void OpenDoor();

    std::unique_ptr<Ui::frmFindKey> ui;
    KeySearch m_search;
    HolderColumn m_holderColumn = HolderColumn::UserID;
    DoorColumn m_doorColumn = DoorColumn::DoorID;
    std::vector<ListedHolder> m_holders; ///< of the lines of their list
    std::vector<DoorSearchLine> m_doors; ///< of the lines of the list that is seen
    std::vector<UnitLine> m_units;
    const TextList* m_whose = nullptr; ///< the list in which the user chose whose units are shown
    QStringList m_keysOfUnit;
};

} // namespace quorrel
