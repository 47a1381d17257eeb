#include "platform/DatabaseEngine.h"

#include <QFileInfo>

namespace quorrel {

Transaction::Transaction(Database& database)
    : m_database(database), m_depth(database.m_transactions) {
    // A plain BEGIN that reads and then writes would fail at once, without waiting, when another
    // workstation holds the lock.
    database.Execute(m_depth == 0 ? "BEGIN IMMEDIATE" : "SAVEPOINT " + Savepoint());
    ++database.m_transactions;
}

Transaction::~Transaction() {
    m_database.m_transactions = m_depth;
    if (!m_open)
        return;
    // The engine may have rolled back by itself, as it does when the disk is full.
    if (sqlite_api::sqlite3_get_autocommit(m_database.m_engine->Handle()) != 0)
        return;
    try {
        m_database.Execute(m_depth == 0 ? "ROLLBACK" : "ROLLBACK TO " + Savepoint());
        if (m_depth > 0)
            m_database.Execute("RELEASE " + Savepoint());
    } catch (const std::exception& error) {
        m_database.Note("Undoing a transaction", error);
    }
}

void Transaction::Commit() {
    if (m_database.m_transactions != m_depth + 1)
        throw ProgrammingError("A transaction is committed while one within it is open");
    m_database.Execute(m_depth == 0 ? "COMMIT" : "RELEASE " + Savepoint());
    m_open = false;
}

Attachment::Attachment(Database& database, Database& other) : m_database(database) {
    if (database.m_transactions > 0 || other.m_transactions > 0)
        throw ProgrammingError("A file is attached within a transaction");
    if (!QFileInfo(other.Path()).isFile()) // Attaching would make an empty file.
        throw DatabaseError(DatabaseError::Kind::Missing, other.Path());
    database.Execute("ATTACH DATABASE :path AS attached", {other.Path()});
    try {
        if (database.Number("PRAGMA attached.application_id") !=
            other.Number("PRAGMA application_id"))
            throw DatabaseError(DatabaseError::Kind::NotOurs, other.Path());
        database.Execute("PRAGMA attached.synchronous = FULL");
    } catch (...) {
        Detach();
        throw;
    }
}

Attachment::~Attachment() {
    Detach();
}

void Attachment::Detach() {
    try {
        m_database.Execute("DETACH DATABASE attached");
    } catch (const std::exception& error) {
        m_database.Note("Detaching a file", error);
    }
}

} // namespace quorrel
