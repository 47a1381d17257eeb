#include "access/CompanyInfo.h"

#include "platform/Files.h"
#include "platform/Recordset.h"
#include "store/Conflict.h"
#include "store/StoredPath.h"

namespace quorrel {

namespace {

constexpr int kTitleLength = 255; // of a company's name that goes into the titles of windows

} // namespace

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
    session.Company.CompanyLogo = FullPath(session.Keys(), row.CompanyLogo);
    session.ProgramTitle = QStringLiteral("Quorrel for ") + row.CompanyName.left(kTitleLength);
}

void SaveCompanyInfo(Session& session, CompanyInfoRow typed,
                     const std::optional<CompanyInfoRow>& shown) {
    Database& keys = session.Keys();
    Transaction transaction(keys);
    auto stored = Recordset<CompanyInfoRow>(keys).First();
    CompanyInfoRow before = shown.value_or(CompanyInfoRow{});
    typed.key = 0;
    for (CompanyInfoRow* row : {&typed, &before, stored ? &*stored : &before})
        row->CompanyLogo = StoredPath(session, keys, FullPath(keys, row->CompanyLogo));
    if (stored) {
        typed =
            MergedChanges(before, typed, *stored, QStringLiteral("The information on the company"));
        Recordset<CompanyInfoRow>::Update(keys, typed);
    } else {
        Recordset<CompanyInfoRow>::Add(keys, typed);
    }
    transaction.Commit();
    KeepCompany(session, typed);
    if (stored)
        session.CompanyInfoEmpty = false;
}

bool IsLogo(const QString& path) {
    return path.size() > 6 && !FileNameAt(path).isEmpty();
}

} // namespace quorrel
