#include "platform/DatabaseError.h"

#include <QDir>

namespace quorrel {

namespace {

QString Sentence(DatabaseError::Kind kind) {
    switch (kind) {
    case DatabaseError::Kind::Missing:
        return QStringLiteral("The file %1 cannot be found.");
    case DatabaseError::Kind::NotOurs:
        return QStringLiteral("The file %1 is not a Quorrel file of the kind that belongs here. "
                              "It was left as it is.");
    case DatabaseError::Kind::TooNew:
        return QStringLiteral("The file %1 was made by a newer Quorrel than this one. Use the "
                              "newer program to open it. It was left as it is.");
    case DatabaseError::Kind::Damaged:
        return QStringLiteral("The file %1 is damaged. It was left as it is: bring back its last "
                              "good backup.");
    case DatabaseError::Kind::ReadOnly:
        return QStringLiteral("The file %1 cannot be written to. Ask for the right to change it "
                              "and its folder. Nothing was changed.");
    case DatabaseError::Kind::Busy:
        return QStringLiteral("The file %1 is in use by another workstation. Nothing was changed: "
                              "please try again in a moment.");
    case DatabaseError::Kind::Full:
        return QStringLiteral("There is no room left on the disk for the file %1. Nothing was "
                              "changed.");
    case DatabaseError::Kind::Other:
        break;
    }
    return QStringLiteral("The file %1 could not be used. Nothing was changed.");
}

std::string Compose(DatabaseError::Kind kind, const QString& path, const QString& detail) {
    QString text = Sentence(kind).arg(QDir::toNativeSeparators(path));
    if (!detail.isEmpty())
        text += QStringLiteral("\n\n(%1)").arg(detail);
    return text.toStdString();
}

} // namespace

DatabaseError::DatabaseError(Kind kind, const QString& path, const QString& detail)
    : std::runtime_error(Compose(kind, path, detail)), m_kind(kind) {}

} // namespace quorrel
