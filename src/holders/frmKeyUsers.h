#pragma once

#include "holders/KeyHolders.h"
#include "holders/KeyUnits.h"
#include "holders/PersonFields.h"
#include "holders/Receipt.h"
#include "widgets/Form.h"

#include <memory>

namespace Ui {
class frmKeyUsers;
}

namespace quorrel {

/// The key holders of the open system and the key units in their hands: who they are on the left,
/// what was issued, assigned, returned and lost on the right.
class frmKeyUsers : public Form {
    Q_OBJECT

public:
    explicit frmKeyUsers(Session& session);
    ~frmKeyUsers() override;

    /// Brings up the holder of a number.
    void ShowHolder(const QString& number);

    /// Narrows the list of keys to a Key ID. When the form comes up next, the first of them is
    /// taken in hand. `told` says more of what was searched.
    void SearchKey(const QString& keyID, const QString& told);

protected:
    void Activated() override;
    QString Unsaved() const override;
    void Reload() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ApplyPermissions();
    void WatchPeople();
    void WatchKeys();
    void KeepRoomOfUserList();
    bool EnterPressed(QObject* watched);

    void LoadKeyHolders();
    void SearchHolders(const QString& text);
    void LoadDepartments();
    std::optional<ListedHolder> HighlightedHolder() const;
    void HighlightHolder(RowKey key);
    void LoadUser();
    void BringUp(const ListedHolder& listed);
    void HideUserList();
    void LoadUserKeys();
    void StepSearch();
    void NewUser();
    bool FillFromPersonnel(const std::optional<PersonnelRecord>& record);
    void LookUpPerson();
    void SaveUserWithLookup();
    void SaveUser();
    void TellNumberIsRequired();
    bool MayReplace(const KeyUsersRow& other);
    void DeleteUser();

    void LoadKeyIDs();
    void SelectKey();
    void TakeInHand(const ListedKey& key);
    void LoadUnitList();
    void LoadUnitHolders();
    void ShowUnits();
    void ShowKeyOfUserList();
    void OrderUnits();
    ReceiptSubject SubjectOfReceipt();
    void PrintReceipt();
    QString WhatWasIssued(const Issued& issued);
    bool HolderIsOnForm(const ListedHolder& holder);
    void Assign();
    void TakeBack(bool lost);
    QString AskForNote(const QString& line, std::size_t times);
    void TellTakenAlong(const std::vector<TakenUnit>& taken);
    void DeleteSelectedUnit();

    std::unique_ptr<Ui::frmKeyUsers> ui;
    PersonFields m_person;
    QString m_toldOfSearch; ///< when the form comes up for a key that was searched
    HolderColumn m_column = HolderColumn::UserID;
    std::vector<ListedHolder> m_holders;        ///< of the lines of their list
    std::vector<ListedKey> m_keys;              ///< of the lines of theirs
    ListedKey m_keyInHand;                      ///< whose units are shown
    std::pair<RowKey, QString> m_lastIssued;    ///< the key and its unit that was issued last
    std::pair<QString, QString> m_unstoredNote; ///< the unit's line, and its note
};

} // namespace quorrel
