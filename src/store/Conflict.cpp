#include "store/Conflict.h"

#include "store/SystemTables.h"

namespace quorrel {

namespace {

/// What a message says of texts that were typed and are not on the screen any more.
QString Typed(const QStringList& unsaved) {
    QString typed;
    for (const QString& lost : unsaved)
        if (!lost.trimmed().isEmpty())
            typed += QStringLiteral("\n    ") + lost;
    return typed.isEmpty() ? typed : QStringLiteral("\n\nYou had typed:") + typed;
}

} // namespace

ChangedElsewhere ChangedElsewhere::Changed(const QString& subject, const QStringList& unsaved) {
    return ChangedElsewhere(subject +
                            QStringLiteral(" has been changed at another workstation since it was "
                                           "shown here. Nothing was saved. The window now shows "
                                           "what holds.") +
                            Typed(unsaved));
}

ChangedElsewhere ChangedElsewhere::Added(const QString& subject, const QStringList& unsaved) {
    return ChangedElsewhere(subject +
                            QStringLiteral(" has been added at another workstation meanwhile. "
                                           "Nothing was saved. The window now shows what holds.") +
                            Typed(unsaved));
}

ChangedElsewhere ChangedElsewhere::Deleted(const QString& subject) {
    return ChangedElsewhere(subject +
                            QStringLiteral(" is no longer in the file: it has been deleted or "
                                           "renamed at another workstation. Nothing was saved. The "
                                           "window now shows what holds."));
}

SystemGone::SystemGone(const QString& systemName)
    : std::runtime_error(QStringLiteral("The key system \"%1\" has been deleted at another "
                                        "workstation. Nothing was saved.")
                             .arg(systemName)
                             .toStdString()) {}

void RequireSystem(Session& session) {
    const auto system = Recordset<KeySystemRow>(
                            session.Keys(), Query<KeySystemRow>().Where(&KeySystemRow::SystemID,
                                                                        session.ActiveSystemNumber))
                            .First();
    if (!system || system->SystemName != session.System.name)
        throw SystemGone(session.System.name);
}

SystemTransaction::SystemTransaction(Session& session) : Transaction(session.Keys()) {
    RequireSystem(session);
}

} // namespace quorrel
