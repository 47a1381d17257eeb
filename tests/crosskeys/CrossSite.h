#pragma once

#include "doors/CrossKeys.h"
#include "doors/DoorSite.h"
#include "platform/Text.h"
#include "store/Scramble.h"

namespace quorrel::test {

/// A system of a given number of pins, small enough to try every key, with named keys and a door.
class CrossSite : public DoorSite {
public:
    explicit CrossSite(const QString& master = QStringLiteral("395172"),
                       SystemType type = SystemType::Standard) {
        NewSystem small = StandardSystem(QStringLiteral("Jetty"), master.toStdString());
        small.type = type;
        if (type == SystemType::ICCore23)
            small.special = QString(master.size(), u'4');
        system = CreateAndOpen(small);
        Save(QStringLiteral("North"));
    }

    std::string MasterCuts() const { return session.System.MasterKeyCuts; }

    PatternsRow Key(int page, int position) {
        return Recordset<PatternsRow>(session.Keys(),
                                      Query<PatternsRow>()
                                          .Where(&PatternsRow::SystemNumber, system.SystemID)
                                          .Where(&PatternsRow::PageNumber, page)
                                          .Where(&PatternsRow::Position, position))
            .First()
            .value_or(PatternsRow());
    }

    /// Names a key, and lists it among the named ones.
    std::string Name(int page, int position, const QString& keyID,
                     const QString& description = {}) {
        PatternsRow row = Key(page, position);
        row.Label = Padded(keyID, kKeyIDWidth);
        row.Description = description;
        Recordset<PatternsRow>::Update(session.Keys(), row);
        AllKeysRow named;
        named.SystemNumber = row.SystemNumber;
        named.KeyID = row.Label;
        named.Cuts = row.Cuts;
        named.PageNumber = row.PageNumber;
        named.Position = row.Position;
        Recordset<AllKeysRow>::Add(session.Keys(), named);
        return PlainCuts(row.Cuts, session.System.PinCount);
    }

    static CrossKeyIDs Keys(std::initializer_list<const char*> keyIDs) {
        CrossKeyIDs boxes;
        std::size_t box = 0;
        for (const char* keyID : keyIDs)
            boxes[box++] = CrossKeyText(QLatin1String(keyID));
        return boxes;
    }
};

} // namespace quorrel::test
