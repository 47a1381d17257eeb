#pragma once

#include "store/Session.h"

namespace quorrel {

/// Characters of the key policy that each of its four fields holds.
inline constexpr int kPolicyPart = 250;

/// The key policy as one text.
QString JoinedPolicy(const CompanyInfoRow& row);

/// Splits the key policy over its four fields; what is beyond 1000 characters is dropped.
void SplitPolicy(const QString& policy, CompanyInfoRow& row);

/// Takes a company into the session and makes the program's title of its name.
void KeepCompany(Session& session, const CompanyInfoRow& row);

/// Stores the company: a new row while `CompanyInfoEmpty` is set, else the first row.
/// `CompanyInfoEmpty` stays set after an add.
void SaveCompanyInfo(Session& session, CompanyInfoRow row);

/// True for a path that readers take for a logo: longer than six characters, and a file is there.
bool IsLogo(const QString& path);

} // namespace quorrel
