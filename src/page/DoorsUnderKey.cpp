#include "page/DoorsUnderKey.h"

#include "engine/MasterMask.h"
#include "engine/PageGeometry.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/OfSystem.h"
#include "store/Scramble.h"
#include "store/SystemTables.h"

#include <QHash>

namespace quorrel {

namespace {

/// Doors are those of the system under whose number the maps are filed.
Query<DoorsRow> DoorsOfSystem(const Session& session) {
    return Query<DoorsRow>().Where(&DoorsRow::SystemNumber, session.MapFilingNumber);
}

} // namespace

QStringList KeyIDsUnder(Session& session, const std::string& cuts) {
    const MasterMask mask(cuts, session.System.MasterKeyCuts);
    QStringList keyIDs;
    Recordset<NamedCutsRow>(session.Keys(), OfSystem<NamedCutsRow>(session))
        .Walk([&](const NamedCutsRow& key) {
            const auto named = CutsOf(key.Cuts, session.System.PinCount);
            if (named && !IsNoValue(key.KeyID) && mask.Covers(*named))
                keyIDs.append(Padded(key.KeyID, kKeyIDWidth));
            return true;
        });
    keyIDs.removeDuplicates();
    return keyIDs;
}

std::vector<KeyedDoorRow> DoorsUnderKey(Session& session, int position, const QString& keyID,
                                        const std::string& cuts) {
    if (!IsMasterPosition(position))
        return Recordset<KeyedDoorRow>(
                   session.Keys(),
                   DoorsOfSystem(session).WhereTrimmed(&DoorsRow::CutsLabel, RightTrimmed(keyID)))
            .Rows();
    QHash<QString, std::size_t> placeOf;
    for (const QString& under : KeyIDsUnder(session, cuts))
        placeOf.insert(under, static_cast<std::size_t>(placeOf.size()));
    std::vector<std::vector<KeyedDoorRow>> ofKey(static_cast<std::size_t>(placeOf.size()));
    Recordset<KeyedDoorRow>(session.Keys(), DoorsOfSystem(session))
        .Walk([&](const KeyedDoorRow& door) {
            if (const auto place = placeOf.constFind(Padded(door.CutsLabel, kKeyIDWidth));
                place != placeOf.constEnd())
                ofKey[*place].push_back(door);
            return true;
        });
    std::vector<KeyedDoorRow> doors;
    for (auto& found : ofKey)
        std::move(found.begin(), found.end(), std::back_inserter(doors));
    return doors;
}

} // namespace quorrel
