#include "pinning/PinSizes.h"
#include "platform/Recordset.h"
#include "support/TestProgram.h"

namespace quorrel::test {
namespace {

TEST(LockBrands, ABrandIsKnownWhenOneNameBeginsTheOther) {
    TestProgram program;
    Session& session = program.session;
    Recordset<ManufacturerRow>(session.Keys()).DeleteAll();
    EXPECT_TRUE(LearnLockBrand(session, "HARBOUR"));
    for (const char* known : {"harbour", "Harb", "Harbour Light", "h", ""})
        EXPECT_FALSE(LearnLockBrand(session, known)) << known;
    EXPECT_TRUE(LearnLockBrand(session, "Quayside"));
    EXPECT_TRUE(LearnLockBrand(session, "  Hidden"));
    EXPECT_EQ(ListLockBrands(session), (QStringList{"HARBOUR", "Quayside"}));
    const auto brand = Recordset<ManufacturerRow>(session.Keys()).First();
    EXPECT_EQ(brand->Bottom0, " ");
    EXPECT_EQ(brand->Top9, " ");
}

TEST(LockBrands, AnEmptyBrandIsAddedToAnEmptyTableOnly) {
    TestProgram program;
    Session& session = program.session;
    EXPECT_FALSE(LearnLockBrand(session, ""));
    Recordset<ManufacturerRow>(session.Keys()).DeleteAll();
    EXPECT_TRUE(LearnLockBrand(session, ""));
    EXPECT_EQ(Recordset<ManufacturerRow>(session.Keys()).Count(), 1);
    EXPECT_TRUE(ListLockBrands(session).empty());
    // It is not taken for every other brand.
    EXPECT_TRUE(LearnLockBrand(session, "Harbour"));
    EXPECT_FALSE(LearnLockBrand(session, "Harbour "));
    EXPECT_TRUE(FindPinSizes(session, "HARBOUR   "));
    EXPECT_THROW(FindOrAddLockBrand(session, "  "), std::invalid_argument);
}

} // namespace
} // namespace quorrel::test
