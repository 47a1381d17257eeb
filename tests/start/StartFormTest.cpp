#include "start/frmExit.h"
#include "support/TestProgram.h"

namespace quorrel::test {
namespace {

TEST(FrmExit, CanBeMade) {
    TestProgram program;
    frmExit form(program.session);
    EXPECT_EQ(form.windowTitle(), "Quorrel - Exit");
}

} // namespace
} // namespace quorrel::test
