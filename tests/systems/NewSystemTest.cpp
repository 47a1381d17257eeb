#include "support/TestProgram.h"

#include "platform/Recordset.h"
#include "store/SystemTables.h"

namespace quorrel::test {
namespace {

TEST(NewSystem, WritesTheExampleSystems) {
    TestProgram program;
    const KeySystemRow row = program.CreateAndOpen(StandardSystem("Six", "395172"));
    EXPECT_EQ(ContentsOf(program.session, row.SystemID).keys, 64 * 104 + 64 + 16 + 4 + 1);
}

} // namespace
} // namespace quorrel::test
