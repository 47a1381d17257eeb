#pragma once

#include "store/Session.h"

#include <QStringList>

namespace quorrel {

/// The lock brands to choose from: named, and not hidden by two leading blanks.
QStringList ListLockBrands(Session& session);

/// Makes sure that a typed brand is known. A brand is known when, without regard to case, its
/// name begins the typed text or the typed text begins its name. Otherwise a brand without pin
/// sizes is added. True when one was added.
bool LearnLockBrand(Session& session, const QString& typed);

} // namespace quorrel
