#include "store/Scramble.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace quorrel::test {
namespace {

TEST(Scramble, Examples) {
    EXPECT_EQ(Scrambled("AB"), "@D");
    EXPECT_EQ(Scrambled("B"), "A");
    EXPECT_EQ(Scrambled(""), "");
    // Places 1 to 7: -1 +2 -3 +4 -5 +6 -7; the blank at the end becomes the code 25.
    EXPECT_EQ(Scrambled("111110 "), QStringLiteral("03.5,6") + QChar(25));
}

TEST(Scramble, ComesBackForEveryCutsTextAndCode) {
    for (const char* text : {"3951728 ", "0000*", "9999999*", "tamarisk", "~ !\"#%&'()"})
        EXPECT_EQ(Unscrambled(Scrambled(text)), text);
    for (int code = 8; code < 248; ++code) {
        const QString text(7, QChar(code));
        EXPECT_EQ(Unscrambled(Scrambled(text)), text) << code;
    }
}

TEST(Scramble, AFaultLeavesTheTextAsItWas) {
    const QString longText(60, u' '); // the code 32 would fall below 0 at place 33
    const QString foreign = QString::fromUtf8("12\u20ac4");
    const QString low = QStringLiteral("ok") + QChar(1);
    for (const QString& text : {longText, foreign, low}) {
        QString kept = text;
        EXPECT_THROW(ScrambleText(kept), std::range_error);
        EXPECT_EQ(kept, text);
    }
    QString stored = QStringLiteral("a\u0001");
    EXPECT_THROW(UnscrambleText(stored), std::range_error);
    EXPECT_EQ(stored, QStringLiteral("a\u0001"));
}

} // namespace
} // namespace quorrel::test
