#pragma once

#include "holders/KeyHolders.h"
#include "holders/KeyUnits.h"
#include "platform/Recordset.h"
#include "platform/Text.h"

#include <QMap>
#include <QSet>

#include <random>
#include <stdexcept>

namespace quorrel::test {

/// Holds key units as a busy office does: issues, assigns, takes back and deletes at random.
class BusyOffice {
public:
    BusyOffice(Session& session, unsigned seed) : m_session(session), m_random(seed) {}

    /// How often each action was done.
    struct Tally {
        int issued = 0, assigned = 0, returned = 0, lost = 0, deleted = 0;
    };
    const Tally& Done() const { return m_done; }

    void Act() {
        const QString keyID = Pick({QStringLiteral("A1"), QStringLiteral("O'HARE 100%")});
        switch (Below(8)) {
        case 0:
            Issue(keyID);
            break;
        case 1:
            Delete(keyID);
            break;
        case 2:
        case 3:
            TakeBack(keyID);
            break;
        default:
            Assign(keyID);
        }
    }

private:
    int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    QString Pick(const QStringList& texts) {
        return texts.isEmpty() ? QString() : texts[Below(static_cast<int>(texts.size()))];
    }

    void Issue(const QString& keyID) {
        const int first = 1 + Below(25);
        const QString last = Below(2) ? QString::number(first + Below(6)) : QString();
        m_done.issued += IssueUnits(m_session, keyID, QString::number(first), last).count;
    }

    void Assign(const QString& keyID) {
        const QString unit = Pick(ListFreeUnits(m_session, keyID).units);
        const auto holder = FindHolder(m_session, Pick({"1", "12", "123"}));
        if (!unit.isEmpty() && AssignUnit(m_session, keyID, unit, *holder) == UnitDone::Done)
            ++m_done.assigned;
    }

    void TakeBack(const QString& keyID) {
        const QString line = Pick(ListHeldUnits(m_session, keyID).lines);
        if (line.isEmpty())
            return;
        const bool lost = Below(4) == 0;
        const auto holders = HoldersOfLine(m_session, line);
        if (holders.size() != 1)
            throw std::runtime_error("Holders of " + line.toStdString());
        if (TakeBackUnit(m_session, keyID, line, holders[0], "note", lost) == UnitDone::Done)
            ++(lost ? m_done.lost : m_done.returned);
    }

    void Delete(const QString& keyID) {
        const QString unit = Pick(ListFreeUnits(m_session, keyID).units);
        if (!unit.isEmpty() && DeleteUnit(m_session, keyID, unit) == UnitDone::Done)
            ++m_done.deleted;
    }

    Session& m_session;
    std::mt19937 m_random;
    Tally m_done;
};

/// Adds the holders that the office deals with.
inline void AddOfficeHolders(Session& session) {
    for (const char* number : {"1", "12", "123"}) {
        KeyUsersRow holder;
        holder.UserIDNumber = QLatin1String(number);
        holder.Lastname = QStringLiteral("O'Brien");
        holder.Firstname = QString::fromUtf8("Zo\u00eb");
        SaveHolder(session, holder);
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
