#pragma once

#include "store/HolderTables.h"

#include <QStringList>

#include <optional>

namespace Ui {
class frmKeyUsers;
}

namespace quorrel {

struct PersonnelRecord;

/// The fields of one person on the form of key users: what code has filled in, and what the user
/// has typed since.
class PersonFields {
public:
    explicit PersonFields(Ui::frmKeyUsers& ui) : m_ui(ui) {}

    /// Brings a holder up.
    void Show(const KeyUsersRow& holder);

    /// Empties the fields; nobody is brought up then.
    void Clear();

    /// As `Clear`, but leaves number, telephones and the tick as they are.
    void BeginNew();

    /// Fills in what the personnel file knows of a person.
    void FillFrom(const PersonnelRecord& record);

    /// The holder who was brought up, as he was stored then; key 0 when nobody was.
    const KeyUsersRow& Shown() const { return m_shown; }

    /// The holder as the fields have him now. What was not edited is as it was stored, also where
    /// a field shows less of it.
    KeyUsersRow Typed() const;

    /// Whether something was typed since the fields were filled.
    bool Differs() const;

    /// Takes over what is stored now of the one brought up, but for what was typed here and has not
    /// been changed elsewhere. Gives the texts that had to give way. When nothing is stored any
    /// more, all stays, to be added anew.
    QStringList Refresh(const std::optional<KeyUsersRow>& stored);

private:
    KeyUsersRow OnScreen() const;
    void Fill(const KeyUsersRow& holder);

    Ui::frmKeyUsers& m_ui;
    KeyUsersRow m_shown;
    KeyUsersRow m_filled; ///< the fields as code has filled them
};

} // namespace quorrel
