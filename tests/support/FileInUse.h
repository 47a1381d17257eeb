#pragma once

#include "store/DatabaseFiles.h"
#include "support/TestProgram.h"

namespace quorrel::test {

/// Another workstation that nobody can read or write beside, until it lets go. The program does not
/// wait long for it.
class FileInUse {
public:
    explicit FileInUse(TestProgram& program)
        : m_other(Database::Open(program.PathOf(kKeySystemFile), kKeySystemKind)) {
        program.session.Keys().SetPatience(20);
        m_other->Execute("BEGIN EXCLUSIVE");
    }
    ~FileInUse() { m_other->Execute("ROLLBACK"); }

private:
    std::unique_ptr<Database> m_other;
};

} // namespace quorrel::test
