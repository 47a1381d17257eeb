#include "store/Conflict.h"

#include "store/SystemTables.h"

namespace quorrel {

ChangedElsewhere ChangedElsewhere::Changed(const QString& subject, const QStringList& unsaved) {
    QString text = subject + QStringLiteral(" has been changed at another workstation since it was "
                                            "shown here. Nothing was saved. The window now shows "
                                            "what holds.");
    QString typed;
    for (const QString& lost : unsaved)
        if (!lost.trimmed().isEmpty())
            typed += QStringLiteral("\n    ") + lost;
    if (!typed.isEmpty())
        text += QStringLiteral("\n\nYou had typed:") + typed;
    return ChangedElsewhere(text);
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

SystemTransaction::SystemTransaction(Session& session) : Transaction(session.Keys()) {
    const auto system = Recordset<KeySystemRow>(
                            session.Keys(), Query<KeySystemRow>().Where(&KeySystemRow::SystemID,
                                                                        session.ActiveSystemNumber))
                            .First();
    if (!system || system->SystemName != session.System.name)
        throw SystemGone(session.System.name);
}

} // namespace quorrel
