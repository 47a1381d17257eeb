#include "platform/DatabaseEngine.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace quorrel {

namespace {

/// A file under a passing name, removed again unless it is given its own.
class PassingFile {
public:
    explicit PassingFile(const QString& path) : m_path(path + QStringLiteral(".new")) {
        QFile::remove(m_path); // left by a run that was cut short
    }
    ~PassingFile() {
        if (!m_path.isEmpty())
            QFile::remove(m_path);
    }
    PassingFile(const PassingFile&) = delete;
    PassingFile& operator=(const PassingFile&) = delete;

    const QString& Path() const { return m_path; }

    bool RenameTo(const QString& path) {
        if (!QFile::rename(m_path, path))
            return false;
        m_path = path;
        return true;
    }

    void Keep() { m_path.clear(); }

private:
    QString m_path;
};

/// The name under which a file of a revision is kept, one that nothing has yet.
QString NameOfFormer(const QString& path, qint64 revision) {
    const QFileInfo file(path);
    const QString base = QStringLiteral("%1.revision%2").arg(file.completeBaseName()).arg(revision);
    for (int attempt = 1;; ++attempt) {
        const QString number = attempt == 1 ? QString() : QStringLiteral("-%1").arg(attempt);
        const QString name = file.dir().filePath(base + number + u'.' + file.suffix());
        if (!QFileInfo::exists(name))
            return name;
    }
}

} // namespace

/// Copies what is committed, through a connection of its own, and makes sure that the copy is good.
void Database::CopyTo(const QString& path) {
    Database source(m_path, kBusyTimeout, Access::ReadOnly);
    Database copy(path, kBusyTimeout);
    auto* backup = sqlite_api::sqlite3_backup_init(copy.m_engine->Handle(), "main",
                                                   source.m_engine->Handle(), "main");
    if (backup)
        sqlite_api::sqlite3_backup_step(backup, -1);
    const int result = backup ? sqlite_api::sqlite3_backup_finish(backup)
                              : sqlite_api::sqlite3_errcode(copy.m_engine->Handle());
    if (result != SQLITE_OK)
        throw copy.Failure(result, {}, Attempt::Writing);
    if (copy.Number("SELECT COUNT(*) FROM pragma_integrity_check WHERE integrity_check <> 'ok'"))
        throw DatabaseError(DatabaseError::Kind::Damaged, m_path);
    QFile::setPermissions(path, QFile::permissions(m_path));
}

void Database::BringUpToDate(const FileKind& kind) {
    if (Number("PRAGMA user_version") == kind.Revision())
        return;
    Transaction transaction(*this);
    const qint64 revision = Number("PRAGMA user_version");
    if (revision == kind.Revision())
        return; // Another workstation was quicker.
    if (revision < 1)
        throw DatabaseError(DatabaseError::Kind::NotOurs, m_path);
    const QString former = NameOfFormer(m_path, revision);
    PassingFile copy(former);
    try {
        CopyTo(copy.Path());
    } catch (const DatabaseError& error) {
        if (error.kind() == DatabaseError::Kind::ReadOnly) // the folder, that is
            throw DatabaseError(DatabaseError::Kind::ReadOnly, m_path, {}, Attempt::Writing);
        throw;
    }
    for (qint64 step = revision; step < kind.Revision(); ++step)
        RunAll(QString::fromUtf8(kind.steps[static_cast<std::size_t>(step - 1)]));
    Execute("PRAGMA user_version = " + std::to_string(kind.Revision()));
    if (!copy.RenameTo(former))
        throw DatabaseError(DatabaseError::Kind::ReadOnly, former, {}, Attempt::Writing);
    transaction.Commit();
    copy.Keep();
}

} // namespace quorrel
