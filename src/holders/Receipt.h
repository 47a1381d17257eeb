#pragma once

#include "print/Printer.h"
#include "store/Session.h"

#include <QDate>
#include <QStringList>

#include <optional>

namespace quorrel {

/// What a key holder signs for. The numbers are those of the session's `ReceiptHistory`.
enum class ReceiptKind { AllKeysOfHolder, SelectedUnit, UnitsOfKey, IssuedUnit, Blank };

/// What the form of key holders shows of all that a receipt may be for.
struct ReceiptSubject {
    QString firstName, lastName, userID, title, department;
    QStringList userList;           ///< lines of the units in the holder's hands
    std::optional<QString> keyLine; ///< the chosen one of the list of keys
    std::optional<QString> unit;    ///< the chosen one of the key's free units
    QStringList units;              ///< its free units
    QString LastIssuedUnit;         ///< empty where none of this key was issued
};

/// What a receipt is printed for.
struct Receipt {
    ReceiptKind kind = ReceiptKind::AllKeysOfHolder;
    ReceiptSubject subject; ///< without the holder unless it is for all of the holder's keys
};

/// What all receipts name.
struct ReceiptHead {
    QString ProgramTitle, SystemNameLabel, KeyPolicyText;
    QDate date;
    Picture logo;
};

/// Remembers an action that a receipt may be wanted for.
void RecordForReceipt(Session& session, ReceiptKind kind);

/// Offers the likely receipts, that of the last action first, each once. Nothing when all are
/// declined.
std::optional<Receipt> ChooseReceipt(Session& session, const ReceiptSubject& subject);

/// Prints one copy: a page, or one for each of a key's units.
void PrintReceipts(Printer& printer, const ReceiptHead& head, const Receipt& receipt);

} // namespace quorrel
