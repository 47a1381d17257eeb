#pragma once

#include "holders/KeyHolders.h"
#include "holders/KeyUnits.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/Conflict.h"
#include "store/OfSystem.h"
#include "store/SystemTables.h"

#include <QMap>
#include <QSet>

#include <random>
#include <stdexcept>

namespace quorrel::test {

/// The key of a Key ID as the list shows it; the next unnamed key gets it where none has.
inline ListedKey KeyNamed(Session& session, const QString& keyID) {
    for (const ListedKey& key : ListKeys(session, keyID))
        if (key.keyID == keyID)
            return key;
    for (PatternsRow row :
         Recordset<PatternsRow>(session.Keys(), OfSystem<PatternsRow>(session)).Rows()) {
        if (!row.Label.trimmed().isEmpty())
            continue;
        row.Label = keyID;
        Recordset<PatternsRow>::Update(session.Keys(), row);
        return KeyNamed(session, keyID);
    }
    throw std::runtime_error("All keys are named");
}

/// The holder of a number as the list shows him by user ID.
inline ListedHolder HolderNumbered(Session& session, const QString& number) {
    for (const ListedHolder& holder : ListHolders(session, HolderColumn::UserID, number))
        if (holder.number == number)
            return holder;
    throw std::runtime_error("Nobody has this number");
}

inline QStringList OfficeKeys() {
    return {QStringLiteral("A1"), QStringLiteral("O'HARE 100%")};
}

/// Holds key units as a busy office does: issues, assigns, takes back and deletes at random.
class BusyOffice {
public:
    BusyOffice(Session& session, unsigned seed) : m_session(session), m_random(seed) {}

    /// How often each action was done.
    struct Tally {
        int issued = 0, assigned = 0, returned = 0, lost = 0, deleted = 0;
    };
    const Tally& Done() const { return m_done; }

    /// Does one of the actions. One for which the file was in use for too long is left undone, and
    /// one on what another workstation has changed since it was listed.
    void Act() {
        try {
            ActOnce();
        } catch (const ChangedElsewhere&) {
        } catch (const DatabaseError& error) {
            if (error.kind() != DatabaseError::Kind::Busy)
                throw;
        }
    }

private:
    void ActOnce() {
        const ListedKey key = KeyNamed(m_session, Pick(OfficeKeys()));
        switch (Below(8)) {
        case 0:
            Issue(key);
            break;
        case 1:
            Delete(key);
            break;
        case 2:
        case 3:
            TakeBack(key);
            break;
        default:
            Assign(key);
        }
    }

    int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    QString Pick(const QStringList& texts) {
        return texts.isEmpty() ? QString() : texts[Below(static_cast<int>(texts.size()))];
    }

    void Issue(const ListedKey& key) {
        const int first = 1 + Below(25);
        const QString last = Below(2) ? QString::number(first + Below(6)) : QString();
        m_done.issued += IssueUnits(m_session, key, QString::number(first), last).count;
    }

    void Assign(const ListedKey& key) {
        const QString unit = Pick(ListFreeUnits(m_session, key.keyID).units);
        const ListedHolder holder = HolderNumbered(m_session, Pick({"1", "12", "123"}));
        if (!unit.isEmpty() &&
            AssignUnit(m_session, key, unit, holder).outcome == Assigned::Outcome::Done)
            ++m_done.assigned;
    }

    void TakeBack(const ListedKey& key) {
        const QString line = Pick(ListHeldUnits(m_session, key.keyID).lines);
        if (line.isEmpty())
            return;
        const bool lost = Below(4) == 0;
        const auto holders = HoldersOfLine(m_session, key, line);
        if (holders.size() != 1)
            throw std::runtime_error("Holders of " + line.toStdString());
        TakeBackUnit(m_session, key, line, holders[0], "note", lost);
        ++(lost ? m_done.lost : m_done.returned);
    }

    void Delete(const ListedKey& key) {
        const QString unit = Pick(ListFreeUnits(m_session, key.keyID).units);
        if (!unit.isEmpty() && DeleteUnit(m_session, key, unit))
            ++m_done.deleted;
    }

    Session& m_session;
    std::mt19937 m_random;
    Tally m_done;
};

/// Adds the keys and the holders that the office deals with.
inline void OpenOffice(Session& session) {
    for (const QString& keyID : OfficeKeys())
        KeyNamed(session, keyID);
    for (const char* number : {"1", "12", "123"}) {
        KeyUsersRow holder;
        holder.UserIDNumber = QLatin1String(number);
        holder.Lastname = QStringLiteral("O'Brien");
        holder.Firstname = QString::fromUtf8("Zo\u00eb");
        SaveHolder(session, {}, holder);
    }
}

/// What is wrong with the books: each unit must be in exactly one state and each held one exist.
inline QStringList FlawsOfBooks(Session& session) {
    QStringList flaws;
    QMap<QString, int> units; // "key/unit" to how often it is free and how often held
    QSet<qint64> numbers;
    for (const KeyUnitRow& row : Recordset<KeyUnitRow>(session.Keys()).Rows()) {
        QString plain = row.UnitID;
        plain.remove(kReturned).remove(kLost);
        const QString name = row.KeyID + u'/' + plain;
        if (units.contains(name))
            flaws += "twice there: " + name;
        units[name] = plain == row.UnitID ? 0 : 1;
        if (numbers.contains(row.UnitIDNumber))
            flaws += "number twice: " + QString::number(row.UnitIDNumber);
        numbers.insert(row.UnitIDNumber);
    }
    for (const UsertoUnitRow& row : Recordset<UsertoUnitRow>(session.Keys()).Rows()) {
        const QString name = row.KeyID + u'/' + row.UnitID;
        if (!units.contains(name))
            flaws += "held but not there: " + name;
        else if (++units[name] > 1)
            flaws += "held and in another state: " + name;
    }
    return flaws;
}

} // namespace quorrel::test
