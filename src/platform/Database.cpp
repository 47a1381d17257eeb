#include "platform/DatabaseEngine.h"

#include "platform/LogFile.h"

#include <QFileInfo>

namespace quorrel {

namespace {

DatabaseError::Kind KindOf(int result) {
    switch (result & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return DatabaseError::Kind::Busy;
    case SQLITE_CORRUPT:
        return DatabaseError::Kind::Damaged;
    case SQLITE_NOTADB:
        return DatabaseError::Kind::NotOurs;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_CANTOPEN:
        return DatabaseError::Kind::ReadOnly;
    case SQLITE_IOERR:
        return DatabaseError::Kind::Unreachable;
    case SQLITE_FULL:
        return DatabaseError::Kind::Full;
    default:
        return DatabaseError::Kind::Other;
    }
}

/// The engine's own words, without the name of the routine that met the failure.
QString EngineWords(const QString& message) {
    const qsizetype routine = message.indexOf(QLatin1String("::"));
    const qsizetype words = message.indexOf(QLatin1String(": "), routine);
    return routine < 0 || words < 0 ? message : message.mid(words + 2);
}

/// Called after each thousand steps of the engine: whether to stop.
int CountDown(void* thousandsLeft) {
    return --*static_cast<qint64*>(thousandsLeft) < 0;
}

/// The engine's connection text. Its values end at a blank unless quoted.
std::string ConnectionText(const QString& path, int busyTimeout, bool readOnly) {
    const int seconds = (busyTimeout + 999) / 1000;
    return std::string(readOnly ? "readonly=1 " : "") + "timeout=" + std::to_string(seconds) +
           " dbname=\"" + path.toStdString() + '"';
}

/// A connection is used by one thread alone, so the engine needs no lock for each value that it
/// hands out. Takes effect before the first connection of the process.
void LeaveConnectionsUnlocked() {
    static const int result = sqlite_api::sqlite3_config(SQLITE_CONFIG_MULTITHREAD);
    static_cast<void>(result); // Another library may have begun with the engine: it locks, then.
}

} // namespace

DatabaseError Database::Failure(int result, const QString& message, Attempt attempt) const {
    auto kind = KindOf(result);
    int moved = 0;
    if ((kind == DatabaseError::Kind::ReadOnly || kind == DatabaseError::Kind::Unreachable) &&
        sqlite_api::sqlite3_file_control(m_engine->Handle(), "main", SQLITE_FCNTL_HAS_MOVED,
                                         &moved) == SQLITE_OK &&
        moved != 0)
        kind = DatabaseError::Kind::Moved;
    QString detail;
    if (result == SQLITE_INTERRUPT)
        detail = QStringLiteral("It has no end, or holds too much: the reading was given up.");
    else if (kind == DatabaseError::Kind::Other)
        detail = EngineWords(message);
    return {kind, m_path, detail, attempt};
}

Database::Database(const QString& path, int busyTimeout, Access access)
    : m_path(path), m_engine(std::make_unique<Engine>()), m_patience(busyTimeout) {
    // The connection text has no way to write one: the engine would open, and make, another file.
    if (path.contains(u'"'))
        throw DatabaseError(DatabaseError::Kind::Other, path,
                            QStringLiteral("Its path has a quotation mark."));
    LeaveConnectionsUnlocked();
    Guarded(Attempt::Reading, [&] {
        m_engine->session.open(soci::sqlite3,
                               ConnectionText(path, busyTimeout, access == Access::ReadOnly));
        SetPatience(busyTimeout);
        m_engine->session << "PRAGMA synchronous = FULL";
        // Room for a whole large system, so that readers are shut out at the commit alone.
        m_engine->session << "PRAGMA cache_size = -32000";
        m_engine->session << "PRAGMA trusted_schema = OFF";
        // A misspelt column would else be taken for a text, and find nothing.
        for (const int quirk : {SQLITE_DBCONFIG_DQS_DML, SQLITE_DBCONFIG_DQS_DDL})
            sqlite_api::sqlite3_db_config(m_engine->Handle(), quirk, 0, static_cast<int*>(nullptr));
    });
}

Database::~Database() = default;

void Database::SetPatience(int busyTimeout) {
    m_patience = busyTimeout;
    sqlite_api::sqlite3_busy_timeout(m_engine->Handle(), busyTimeout);
}

ShortPatience::ShortPatience(Database& database)
    : m_database(database), m_before(database.Patience()) {
    constexpr int moment = 200;
    m_database.SetPatience(moment);
}

std::unique_ptr<Database> Database::Open(const QString& path, const FileKind& kind,
                                         int busyTimeout) {
    const QFileInfo info(path);
    if (!info.isFile()) // Opening would make an empty file.
        throw DatabaseError(DatabaseError::Kind::Missing, path);
    std::unique_ptr<Database> database(new Database(path, busyTimeout));
    database->Check(kind);
    database->BringUpToDate(kind);
    database->RequireTables(kind);
    return database;
}

std::unique_ptr<Database> Database::OpenForeign(const QString& path, qint64 mostSteps) {
    if (!QFileInfo(path).isFile())
        throw DatabaseError(DatabaseError::Kind::Missing, path);
    std::unique_ptr<Database> database(new Database(path, kBusyTimeout, Access::ReadOnly));
    constexpr int thousand = 1000;
    constexpr int longestText = 10'000'000;
    database->m_stepsLeft = mostSteps / thousand;
    sqlite_api::sqlite3_progress_handler(database->m_engine->Handle(), thousand, CountDown,
                                         &database->m_stepsLeft);
    sqlite_api::sqlite3_limit(database->m_engine->Handle(), SQLITE_LIMIT_LENGTH, longestText);
    return database;
}

void Database::Check(const FileKind& kind) {
    if (Number("PRAGMA application_id") != kind.applicationId)
        throw DatabaseError(DatabaseError::Kind::NotOurs, m_path);
    if (Number("PRAGMA user_version") > kind.Revision())
        throw DatabaseError(DatabaseError::Kind::TooNew, m_path);
    if (Number("PRAGMA page_count") * Number("PRAGMA page_size") > QFileInfo(m_path).size())
        throw DatabaseError(DatabaseError::Kind::Damaged, m_path);
    if (sqlite_api::sqlite3_db_readonly(m_engine->Handle(), "main") != 0)
        throw DatabaseError(DatabaseError::Kind::ReadOnly, m_path, {}, Attempt::Writing);
}

void Database::RequireTables(const FileKind& kind) {
    for (const char* table : kind.tables)
        if (Number("SELECT COUNT(*) FROM sqlite_master WHERE type = 'table' AND name = '" +
                   std::string(table) + "'") == 0)
            throw DatabaseError(DatabaseError::Kind::Damaged, m_path);
}

std::unique_ptr<Database> Database::Create(const QString& path, const FileKind& kind,
                                           const QString& schema) {
    if (QFileInfo::exists(path))
        throw DatabaseError(DatabaseError::Kind::Other, path, QStringLiteral("It exists already."));
    std::unique_ptr<Database> database(new Database(path, kBusyTimeout));
    database->Execute("PRAGMA application_id = " + std::to_string(kind.applicationId));
    Transaction transaction(*database);
    database->RunAll(schema);
    database->Execute("PRAGMA user_version = " + std::to_string(kind.Revision()));
    transaction.Commit();
    return database;
}

void Database::RunAll(const QString& statements) {
    for (const QString& statement : statements.split(u';', Qt::SkipEmptyParts))
        if (!statement.trimmed().isEmpty())
            Execute(statement.toStdString());
}

void Database::Note(const char* what, const std::exception& error) const {
    if (m_log)
        m_log->Note(what, error);
}

} // namespace quorrel
