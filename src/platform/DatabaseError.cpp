#include "platform/DatabaseError.h"

#include <QDir>

namespace quorrel {

namespace {

using Kind = DatabaseError::Kind;

/// What has happened to the file %1.
QString Fact(Kind kind, bool writing) {
    switch (kind) {
    case Kind::Missing:
        return QStringLiteral("The file %1 cannot be found.");
    case Kind::NotOurs:
        return QStringLiteral("The file %1 is not a Quorrel file of the kind that belongs here. "
                              "It was left as it is.");
    case Kind::TooNew:
        return QStringLiteral("The file %1 was made by a newer Quorrel than this one. Use the "
                              "newer program to open it. It was left as it is.");
    case Kind::Damaged:
        return QStringLiteral("The file %1 is damaged. It was left as it is: bring back its last "
                              "good backup.");
    case Kind::ReadOnly:
        return writing ? QStringLiteral("The file %1 cannot be written to. Ask for the right to "
                                        "change it and its folder.")
                       : QStringLiteral("The file %1 cannot be opened. Ask for the right to read "
                                        "and to change it and its folder.");
    case Kind::Moved:
        return QStringLiteral("The file %1 is no longer the one that was opened: it has been "
                              "moved, renamed or deleted, or another file has been put in its "
                              "place. Close Quorrel, see to the file, and start again.");
    case Kind::Busy:
        return QStringLiteral("The file %1 is in use by another workstation. Please try again in "
                              "a moment.");
    case Kind::Full:
        return QStringLiteral("There is no room left on the disk for the file %1.");
    case Kind::Unreachable:
        return QStringLiteral("The file %1 cannot be reached: its disk or the network does not "
                              "answer.");
    case Kind::Other:
        break;
    }
    return writing ? QStringLiteral("The file %1 could not be used.")
                   : QStringLiteral("The file %1 could not be read.");
}

std::string Compose(Kind kind, const QString& path, const QString& detail, bool writing) {
    QString text = Fact(kind, writing).arg(QDir::toNativeSeparators(path));
    if (writing)
        text += QStringLiteral(" Nothing was changed.");
    if (!detail.isEmpty())
        text += QStringLiteral("\n\n(%1)").arg(detail);
    return text.toStdString();
}

} // namespace

DatabaseError::DatabaseError(Kind kind, const QString& path, const QString& detail, Attempt attempt)
    : std::runtime_error(Compose(kind, path, detail, attempt == Attempt::Writing)), m_kind(kind) {}

} // namespace quorrel
