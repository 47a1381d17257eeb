#pragma once

#include "store/Session.h"

#include <optional>

namespace quorrel {

/// Characters of the key policy that each of its four fields holds.
inline constexpr qsizetype kPolicyPart = 250;

/// The key policy as one text.
QString JoinedPolicy(const CompanyInfoRow& row);

/// Splits the key policy over its four fields; what is beyond 1000 characters is dropped.
void SplitPolicy(const QString& policy, CompanyInfoRow& row);

/// Takes a company into the session and makes the program's title of its name.
void KeepCompany(Session& session, const CompanyInfoRow& row);

/// Stores the company's one row as it was typed, with the full path of the logo. `shown` is the row
/// as it was read from the file; none when there was none. Changes that another workstation has
/// made since then are kept; throws `ChangedElsewhere` where both have changed the same.
/// `CompanyInfoEmpty` stays set after an add.
void SaveCompanyInfo(Session& session, CompanyInfoRow typed,
                     const std::optional<CompanyInfoRow>& shown = std::nullopt);

/// True for a path that readers take for a logo: longer than six characters, and a file is there.
bool IsLogo(const QString& path);

} // namespace quorrel
