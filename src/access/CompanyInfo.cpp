#include "access/CompanyInfo.h"

#include "platform/Files.h"
#include "platform/Recordset.h"

namespace quorrel {

QString JoinedPolicy(const CompanyInfoRow& row) {
    return row.KeyPolicy1 + row.KeyPolicy2 + row.KeyPolicy3 + row.KeyPolicy4;
}

void SplitPolicy(const QString& policy, CompanyInfoRow& row) {
    row.KeyPolicy1 = policy.mid(0, kPolicyPart);
    row.KeyPolicy2 = policy.mid(kPolicyPart, kPolicyPart);
    row.KeyPolicy3 = policy.mid(2 * kPolicyPart, kPolicyPart);
    row.KeyPolicy4 = policy.mid(3 * kPolicyPart, kPolicyPart);
}

void KeepCompany(Session& session, const CompanyInfoRow& row) {
    session.Company = row;
    session.ProgramTitle = QStringLiteral("Quorrel for ") + row.CompanyName;
}

void SaveCompanyInfo(Session& session, CompanyInfoRow row) {
    Transaction transaction(session.Keys());
    const auto stored = Recordset<CompanyInfoRow>(session.Keys()).First();
    const bool edit = !session.CompanyInfoEmpty && stored;
    if (edit) {
        row.key = stored->key;
        Recordset<CompanyInfoRow>::Update(session.Keys(), row);
    } else {
        Recordset<CompanyInfoRow>::Add(session.Keys(), row);
    }
    transaction.Commit();
    KeepCompany(session, row);
    if (edit)
        session.CompanyInfoEmpty = false;
}

bool IsLogo(const QString& path) {
    return path.size() > 6 && !FileNameAt(path).isEmpty();
}

} // namespace quorrel
