#include "holders/Personnel.h"

#include "platform/Text.h"

#include <functional>

namespace quorrel {

namespace {

/// Where the names of a person stand.
struct NameFields {
    bool joined; ///< in one field, around a comma
    QString name, firstName, department;
};

NameFields NameFieldsOf(const ForeignTable& records, const SystemInfoRow& settings) {
    const QStringList columns = records.Columns();
    const auto has = [&](const QString& name) {
        return columns.contains(name, Qt::CaseInsensitive);
    };
    const auto name = QStringLiteral("Name");
    const auto department = QStringLiteral("Department");
    const bool apart = !has(name) && has(settings.Lastname);
    return {!apart, apart ? settings.Lastname : name, apart ? settings.Firstname : QString(),
            has(department) ? department : settings.Department};
}

PersonnelRecord RecordOf(const ForeignRow& row, bool joined) {
    PersonnelRecord record;
    record.TM = row.Text(0);
    record.LastName = row.Text(1);
    record.FirstName = row.Text(2);
    if (const auto comma = record.LastName.indexOf(u','); joined && comma >= 0) {
        record.FirstName = record.LastName.mid(comma + 1);
        record.LastName.truncate(comma);
    }
    record.Department = row.Text(3);
    record.Title = row.Text(4);
    record.Status = row.Text(5);
    record.WorkPhone = row.Text(6);
    record.Extention = row.Text(7);
    record.HomePhone = row.Text(8);
    return record;
}

std::optional<PersonnelRecord> FindLast(const Session& session,
                                        const std::function<bool(const QString& tm)>& matches) {
    if (!session.PersonnelAvailable)
        return std::nullopt;
    try {
        const ForeignTable& records = *session.PersonnelRecords;
        const NameFields names = NameFieldsOf(records, session.SystemInfo);
        std::optional<PersonnelRecord> last;
        records.Walk({QStringLiteral("TM"), names.name, names.firstName, names.department,
                      QStringLiteral("Title"), QStringLiteral("Status"),
                      QStringLiteral("WorkPhone"), QStringLiteral("Extention"),
                      QStringLiteral("HomePhone")},
                     [&](const ForeignRow& row) {
                         if (matches(row.Text(0)))
                             last = RecordOf(row, names.joined);
                         return true;
                     });
        return last;
    } catch (const DatabaseError& error) {
        session.log.Note("Looking a person up", error);
        return std::nullopt; // As without a personnel file.
    }
}

} // namespace

std::optional<PersonnelRecord> FindPersonnelByText(const Session& session, const QString& number) {
    return FindLast(session, [&](const QString& tm) { return !tm.isEmpty() && tm == number; });
}

std::optional<PersonnelRecord> FindPersonnelByValue(const Session& session, const QString& number) {
    const double value = Val(number);
    return FindLast(session, [&](const QString& tm) {
        return !tm.isEmpty() && (value == 0 ? tm == number : Val(tm) == value);
    });
}

} // namespace quorrel
