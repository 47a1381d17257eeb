#include "store/WindowPlaces.h"

#include "platform/Recordset.h"
#include "store/ProgramTables.h"

namespace quorrel {

namespace {

void Save(Database& database, const QString& form, const QString& place) {
    const Recordset<WindowPlaceRow> stored(
        database, Query<WindowPlaceRow>().Where(&WindowPlaceRow::Form, form));
    WindowPlaceRow row = stored.First().value_or(WindowPlaceRow{});
    if (row.Place == place)
        return;
    row.Form = form;
    row.Place = place;
    if (row.key == 0)
        Recordset<WindowPlaceRow>::Add(database, row);
    else
        Recordset<WindowPlaceRow>::Update(database, row);
}

} // namespace

void LoadPlaces(Session& session) {
    try {
        Recordset<WindowPlaceRow>(*session.SysinfoDatabase).Walk([&](const WindowPlaceRow& row) {
            session.Places.emplace(row.Form, row.Place);
            return true;
        });
    } catch (const DatabaseError& error) {
        session.log.Note("Reading where windows stood", error);
    }
}

void SavePlaces(Session& session) {
    if (!session.SysinfoDatabase || session.Places.empty())
        return;
    try {
        Transaction transaction(*session.SysinfoDatabase);
        for (const auto& [form, place] : session.Places)
            if (!place.isEmpty())
                Save(*session.SysinfoDatabase, form, place);
        transaction.Commit();
    } catch (const DatabaseError& error) {
        session.log.Note("Keeping where windows stand", error);
    }
}

} // namespace quorrel
