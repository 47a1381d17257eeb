#pragma once

#include "store/Session.h"

namespace quorrel {

/// Failed attempts after which the program ends.
inline constexpr int kLogonAttempts = 3;

/// Admits a program user: the name matches without regard to case and to blanks around it, the
/// password exactly. On success the session takes the user's name and rights, and a user who may
/// read cuts is asked about the automatic log-off. A file without any program user admits
/// everybody, without rights.
bool LogOn(Session& session, const QString& userName, const QString& password);

} // namespace quorrel
