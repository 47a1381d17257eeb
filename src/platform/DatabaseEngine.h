#pragma once

#include "platform/Database.h"

#include <soci/soci.h>
#include <soci/sqlite3/soci-sqlite3.h>

/// \file
/// The engine behind `Database`, for the sources of that class alone.

namespace quorrel {

struct Database::Engine {
    soci::session session;

    sqlite_api::sqlite3* Handle() {
        return static_cast<soci::sqlite3_session_backend*>(session.get_backend())->conn_;
    }
};

template <class Action>
auto Database::Guarded(DatabaseError::Attempt attempt, Action&& action) const {
    try {
        return action();
    } catch (const soci::sqlite3_soci_error& error) {
        throw Failure(error.result(), QString::fromStdString(error.get_error_message()), attempt);
    } catch (const soci::soci_error& error) {
        throw Failure(SQLITE_ERROR, QString::fromStdString(error.get_error_message()), attempt);
    }
}

} // namespace quorrel
