#pragma once

#include "holders/KeyHolders.h"
#include "holders/KeyUnits.h"
#include "widgets/Form.h"

#include <memory>

namespace Ui {
class frmKeyUsers;
}

namespace quorrel {

struct PersonnelRecord;
class TextList;

/// The key holders of the open system and the key units in their hands: who they are on the left,
/// what was issued, assigned, returned and lost on the right.
class frmKeyUsers : public Form {
    Q_OBJECT

public:
    explicit frmKeyUsers(Session& session);
    ~frmKeyUsers() override;

    /// Brings up the holder of a number.
    void ShowHolder(const QString& number);

protected:
    void Activated() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ApplyPermissions();
    void WatchPeople();
    void WatchKeys();
    bool KeyPressed(QObject* watched, int key);

    void LoadKeyHolders();
    void LoadDepartments();
    void LoadUser();
    void FillFrom(const KeyUsersRow& holder);
    bool FillFrom(const std::optional<PersonnelRecord>& record);
    void HideUserList();
    void LoadUserKeys();
    void StepSearch();
    void NewUser();
    void ClearPerson();
    KeyUsersRow PersonOnScreen() const;
    void LookUpPerson();
    void SaveUserWithLookup();
    void SaveUser();
    void DeleteUser();

    QString KeyInHand() const;
    void LoadKeyIDs();
    void SelectKey();
    void LoadUnitList();
    void LoadUnitHolders();
    void ShowUnits();
    void ShowKeyOfUserList();
    void OrderUnits();
    void Assign();
    void TakeBack(bool lost);
    void DeleteSelectedUnit();
    void Tell(UnitDone done, const QString& unit);

    std::unique_ptr<Ui::frmKeyUsers> ui;
    HolderColumn m_column = HolderColumn::UserID;
};

} // namespace quorrel
