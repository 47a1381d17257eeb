#pragma once

#include "store/Session.h"

namespace quorrel {

/// Finds and opens the program's files and fills the session's paths and flags. False when
/// `Sysinfo.qvx` or `KeySystem.qv2` cannot be used; `failure` then says why in plain words. A
/// failing personnel file is no failure.
bool LoadStartupFiles(Session& session, QString& failure);

/// As `LoadStartupFiles`; while another workstation merely uses a file, the user is asked whether
/// to try again. `failure` is empty when the answer was No.
bool LoadStartupFilesWhenFree(Session& session, QString& failure);

/// Reads the company into the session and sets `FirstRun` and `CompanyInfoEmpty` when none is
/// recorded.
void LoadCompany(Session& session);

/// As `LoadCompany`, with the question of `LoadStartupFilesWhenFree`; false when it was not read.
bool LoadCompanyWhenFree(Session& session, QString& failure);

/// Closes all databases of the session.
void CloseDatabases(Session& session);

} // namespace quorrel
