#include "systems/SystemNumbers.h"

#include "platform/Recordset.h"
#include "store/RowsOfSystems.h"
#include "systems/KeySystems.h"

#include <algorithm>
#include <stdexcept>

namespace quorrel {

namespace {

/// The highest number of a column, what cannot be a system's number left out.
template <class Row>
int HighestIn(Database& database, int Row::*number) {
    const Recordset<Row> rows(database, Query<Row>().WhereBelow(number, kHighestSystemNumber + 1));
    return static_cast<int>(std::max<qint64>(rows.Largest(number), 0));
}

int HighestInKeySystemFile(Database& keys) {
    int highest = HighestIn(keys, &NumbersGivenRow::Highest);
    for (const auto number : {&KeySystemRow::SystemID, &KeySystemRow::MapFileID})
        highest = std::max(highest, HighestIn(keys, number));
    ForTablesOfSystems([&](const auto& row) {
        using Row = std::decay_t<decltype(row)>;
        highest = std::max(highest, HighestIn(keys, &Row::SystemNumber));
    });
    return highest;
}

} // namespace

int HighestNumberOfMaps(Session& session) {
    std::vector<KeySystemRow> systems = ListKeySystems(session);
    systems.emplace_back(); // the one without a map file of its own
    QStringList files;
    int highest = 0;
    for (const KeySystemRow& system : systems) {
        if (files.contains(system.MapFile))
            continue;
        files.append(system.MapFile);
        try {
            if (const auto maps = OpenMaps(session, system))
                highest = std::max(highest, HighestIn(*maps, &MapRow::SystemNumber));
        } catch (const DatabaseError& error) {
            session.log.Note("Reading the numbers of maps", error);
        }
    }
    return highest;
}

int TakeSystemNumber(Session& session, int highestOfMaps) {
    const int number = std::max(HighestInKeySystemFile(session.Keys()), highestOfMaps) + 1;
    if (number > kHighestSystemNumber)
        throw std::runtime_error("This key system file has used up its numbers for key systems. "
                                 "Make new systems in another key system file.");
    RetireSystemNumber(session, number);
    return number;
}

void RetireSystemNumber(Session& session, int number) {
    Database& keys = session.Keys();
    auto given = Recordset<NumbersGivenRow>(keys).First().value_or(NumbersGivenRow{});
    given.Highest = std::max(given.Highest, number);
    if (given.key == 0)
        Recordset<NumbersGivenRow>::Add(keys, given);
    else
        Recordset<NumbersGivenRow>::Update(keys, given);
}

} // namespace quorrel
