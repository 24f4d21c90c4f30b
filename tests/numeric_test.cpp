// The number rules every formula of the game relies on.
#include "core/Numeric.h"

#include <gtest/gtest.h>

#include "core/Random.h"

using namespace grumbo;

TEST(Numeric, IntIsTheFloorAndConversionsAndRoundTieToEven) {
    EXPECT_EQ(Int(-3.2), -4);
    EXPECT_EQ(Int(3.99), 3);
    EXPECT_EQ(CInt(2.5), 2);
    EXPECT_EQ(CInt(3.5), 4);
    EXPECT_EQ(CInt(-2.5), -2);
    EXPECT_EQ(CInt(-819.0), -819);
    EXPECT_EQ(CLng(1e12), 2147483647);
    EXPECT_EQ(CInt(40000.0), 32767);  // saturates instead of wrapping
    // Round to two decimals: 0.125 is exact in binary, so its tie goes to the
    // even neighbour.
    EXPECT_DOUBLE_EQ(Round(0.214999, 2), 0.21);
    EXPECT_DOUBLE_EQ(Round(0.0625 * 2, 2), 0.12);
    EXPECT_DOUBLE_EQ(Round(0.375, 2), 0.38);
}

TEST(Numeric, TextToNumberAndBack) {
    EXPECT_EQ(Val(QStringLiteral("45")), 45);
    EXPECT_EQ(Val(QStringLiteral("  12abc")), 12);
    EXPECT_EQ(Val(QStringLiteral("abc")), 0);
    EXPECT_EQ(Val(QStringLiteral("-7.5x")), -7.5);
    EXPECT_EQ(Val(QString()), 0);
    EXPECT_TRUE(IsDigits(QStringLiteral("999")));
    EXPECT_FALSE(IsDigits(QStringLiteral("9a")));
    EXPECT_FALSE(IsDigits(QString()));
    EXPECT_FALSE(IsDigits(QStringLiteral("\u0663")));  // a non-ASCII digit is no digit here
    // Numbers show as plain decimals with fifteen significant digits.
    EXPECT_EQ(Str(0.21 * 100), QStringLiteral("21"));
    EXPECT_EQ(Str(0.0), QStringLiteral("0"));
    EXPECT_EQ(Str(-25000), QStringLiteral("-25000"));
    EXPECT_EQ(Str(0.58 * 100), QStringLiteral("58"));
}

TEST(Random, PinnedSeedRepeatsAndValuesStayInRange) {
    PinSeed(7);
    Reseed(0);
    double first[50];
    for (double& v : first) {
        v = Rnd();
        ASSERT_GE(v, 0.0);
        ASSERT_LT(v, 1.0);
    }
    Reseed(0);
    for (double v : first) EXPECT_EQ(Rnd(), v);
    PinSeed(std::nullopt);
}
