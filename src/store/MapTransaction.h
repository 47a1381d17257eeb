#pragma once

#include "store/Conflict.h"

namespace quorrel {

/// A transaction that writes for the open key system in the key system file and in its map file:
/// all of it is stored, or nothing. Meanwhile `Session::Keys` reaches the table `Map` as well; what
/// is written through `Session::MapDatabase` would wait for this to end. Throws as
/// `SystemTransaction` does, and `DatabaseError` when the map file is not there.
class MapTransaction {
public:
    explicit MapTransaction(Session& session)
        : m_maps(session.Keys(), Maps(session)), m_keys(session) {}

    void Commit() { m_keys.Commit(); }

private:
    static Database& Maps(Session& session) {
        if (!session.MapDatabase)
            throw DatabaseError(DatabaseError::Kind::Missing, session.MapDatabasePath);
        return *session.MapDatabase;
    }

    Attachment m_maps;
    SystemTransaction m_keys;
};

} // namespace quorrel
