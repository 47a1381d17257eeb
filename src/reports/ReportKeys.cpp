#include "reports/ReportKeys.h"

#include "platform/Text.h"
#include "reports/ReportHead.h"
#include "store/OfSystem.h"
#include "store/Scramble.h"

#include <QHash>

namespace quorrel {

namespace {

constexpr int kWritingLine = 63; ///< columns

bool HasKeyID(const ReportKey& key) {
    return !key.Label.isEmpty() && key.Label[0] != u' ';
}

} // namespace

std::vector<ReportKey> ReadNamedKeys(Session& session) {
    std::vector<ReportKey> keys;
    Recordset<ReportKey>(session.Keys(), OfSystem<ReportKey>(session)
                                             .WhereNot(&PatternsRow::Label, kUnnamed)
                                             .OrderBy(&PatternsRow::Label))
        .Walk([&](const ReportKey& key) {
            if (HasKeyID(key)) {
                keys.push_back(key);
                keys.back().plain = PlainCuts(key.Cuts, session.System.PinCount);
            }
            return true;
        });
    return keys;
}

std::vector<ReportEntry> ListNamedKeys(Session& session) {
    std::vector<ReportEntry> entries;
    for (const ReportKey& key : ReadNamedKeys(session))
        entries.push_back({key.key,
                           Padded(key.Label, kKeyIDWidth) + u' ' + OneLine(key.Description),
                           RightTrimmed(key.Label)});
    return entries;
}

std::vector<const ReportKey*> FindChosen(const std::vector<ReportKey>& keys,
                                         const std::vector<ReportEntry>& chosen,
                                         QStringList& passedOver) {
    QHash<RowKey, const ReportKey*> byRow;
    for (const ReportKey& key : keys)
        byRow.insert(key.key, &key);
    std::vector<const ReportKey*> found;
    for (const ReportEntry& entry : chosen) {
        const ReportKey* key = byRow.value(entry.key);
        if (key && RightTrimmed(key->Label) == entry.name)
            found.push_back(key);
        else
            passedOver += entry.name;
    }
    return found;
}

QString ReportDescription(const QString& description) {
    const bool none = description.isEmpty() || description.startsWith(QStringLiteral("   "));
    return none ? Rule(kWritingLine) : OneLine(description);
}

int InkOfMaster(const Session& session, const ReportKey& key) {
    return key.plain == session.System.MasterKeyCuts ? ink::kGreen : ink::kCyan;
}

} // namespace quorrel
