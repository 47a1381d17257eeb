#include "platform/Text.h"

#include <gtest/gtest.h>

#include <limits>

namespace quorrel::test {
namespace {

TEST(Text, PartsByPlace) {
    EXPECT_EQ(Left("abcdef", 2), "ab");
    EXPECT_EQ(Left("ab", 5), "ab");
    EXPECT_EQ(Left("ab", -1), "");
    EXPECT_EQ(Right("abcdef", 2), "ef");
    EXPECT_EQ(Right("ab", -3), "");
    EXPECT_EQ(Mid("abcdef", 3), "cdef");
    EXPECT_EQ(Mid("abcdef", 1, 2), "ab");
    EXPECT_EQ(Mid("abc", 9, 2), "");
}

TEST(Text, ValTakesTheLeadingNumber) {
    EXPECT_EQ(Val("12 pins"), 12);
    EXPECT_EQ(Val("  -3.5x"), -3.5);
    EXPECT_EQ(Val("1 2 3"), 123);
    EXPECT_EQ(Val(".015"), 0.015);
    EXPECT_EQ(Val("2e3"), 2000);
    EXPECT_EQ(Val("2e"), 2);
    EXPECT_EQ(Val("2E+x"), 2);
    EXPECT_EQ(Val("25E-1"), 2.5);
    EXPECT_EQ(Val("+5."), 5);
    EXPECT_EQ(Val("1.5.2"), 1.5);
    for (const char* junk : {"", "x12", ".e5", "+-1", "-", ".", "inf", "nan", "1e999"})
        EXPECT_EQ(Val(junk), 0) << junk;
    EXPECT_EQ(IntVal("7.9"), 7);
    EXPECT_EQ(IntVal("-0.5"), -1);
    EXPECT_EQ(IntVal("99999999999"), std::numeric_limits<int>::max());
}

TEST(Text, BlanksOnTheRight) {
    EXPECT_EQ(Padded("ab", 4), "ab  ");
    EXPECT_EQ(Padded("abcdef", 4), "abcd");
    EXPECT_EQ(RightTrimmed("  ab \t  "), "  ab \t");
    EXPECT_EQ(RightTrimmed("    "), "");
    EXPECT_TRUE(IsNoValue(""));
    EXPECT_TRUE(IsNoValue("  hidden"));
    EXPECT_FALSE(IsNoValue(" shown"));
    EXPECT_FALSE(IsNoValue(" "));
}

} // namespace
} // namespace quorrel::test
