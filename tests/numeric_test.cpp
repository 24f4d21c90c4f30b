// The number rules every formula of the game relies on.
#include "core/Numeric.h"

#include <gtest/gtest.h>

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
