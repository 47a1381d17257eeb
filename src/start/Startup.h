#pragma once

#include "store/Session.h"

namespace quorrel {

/// Finds and opens the program's files and fills the session's paths and flags. False when
/// `Sysinfo.qvx` or `KeySystem.qv2` cannot be used; `failure` then says why in plain words. A
/// failing personnel file is no failure.
bool LoadStartupFiles(Session& session, QString& failure);

/// Reads the company into the session and sets `FirstRun` and `CompanyInfoEmpty` when none is
/// recorded.
void LoadCompany(Session& session);

/// Closes all databases of the session.
void CloseDatabases(Session& session);

} // namespace quorrel
