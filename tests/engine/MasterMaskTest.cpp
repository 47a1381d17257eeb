#include "engine/MasterMask.h"

#include <gtest/gtest.h>

namespace quorrel::test {
namespace {

TEST(MasterMask, CoversTheKeysThatAMasterOpensFor) {
    const MasterMask block("131172", "395172"); // has the master's last cuts
    EXPECT_TRUE(block.Covers("131370 "));
    EXPECT_TRUE(block.Covers("131172 "));
    EXPECT_FALSE(block.Covers("133370 "));
    EXPECT_FALSE(block.Covers("13117")) << "too short to be told";
    EXPECT_TRUE(MasterMask("395172", "395172").Covers("000000*")) << "the theoretical master";
    const MasterMask change("131370 ", "395172");
    EXPECT_TRUE(change.Covers("131370*")) << "under either mark";
    EXPECT_FALSE(change.Covers("131372 "));
}

} // namespace
} // namespace quorrel::test
