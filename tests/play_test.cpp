// A whole match played on the virtual clock with a fixed seed and scripted throws.
#include <QLabel>

#include "MatchDriver.h"
#include "TestSupport.h"
#include "modmain/modMain.h"

using namespace testing_support;
using namespace modMain;

TEST_F(GameTest, OneVersusOneToTheFragLimit) {
    intWindExtremity = 0;  // no wind, so the scripted throws fly the same every time
    blnWindGusts = false;
    intFragLimit = 3;
    frmGrumbo& f = StartMatch(2, 5);
    // A hit puts the enemy in the path of a straight-up throw; a miss flies fast up and back out
    // of the field over the thrower's own side. The board then shows left, right and round.
    const struct {
        bool hit;
        const char *left, *right, *round;
    } script[] = {{true, "1", "0", "2"}, {false, "1", "0", "2"}, {true, "2", "0", "3"},
                  {true, "2", "1", "4"}, {false, "2", "1", "4"}, {false, "2", "1", "4"},
                  {true, "3", "1", "4"}};
    for (int n = 0; const auto& s : script) {
        const int thrower = n++ % 2;
        SCOPED_TRACE(testing::Message() << "throw " << n);
        ASSERT_TRUE(InputOpen(f));
        ASSERT_EQ(f.intCurrentPlayer, thrower);
        if (s.hit) PutInThePathOfAnUpwardThrow(f, 1 - thrower);
        ASSERT_TRUE(s.hit ? PlayThrow(clock, f, 90, 50) : PlayThrow(clock, f, 135, 999));
        EXPECT_EQ(f.lblLeft->text(), QLatin1String(s.left));
        EXPECT_EQ(f.lblRight->text(), QLatin1String(s.right));
        EXPECT_EQ(f.lblcRound->text(), QLatin1String(s.round));
        if (!MatchOver(f)) {
            EXPECT_EQ(f.Caption(), QStringLiteral("Player %1 - %2 pts")
                                       .arg(f.intCurrentPlayer + 1)
                                       .arg(f.lngPoints[f.intCurrentPlayer]));
        }
    }
    ASSERT_TRUE(MatchOver(f));
    EXPECT_EQ(f.intFrags[0], 3);
    EXPECT_EQ(f.intFrags[1], 1);
    EXPECT_EQ(f.intMisses[0], 1);
    EXPECT_EQ(f.intMisses[1], 2);
    EXPECT_EQ(f.lngPoints[0], 75000);
    EXPECT_EQ(f.lngPoints[1], 25000);
    EXPECT_EQ(f.lbl2->text(), QStringLiteral("3"));
    EXPECT_EQ(f.lbl4->text(), QStringLiteral("1"));
    EXPECT_EQ(f.lblAccuracy[0]->text(), QStringLiteral("75 %"));
    EXPECT_EQ(f.lblAccuracy[1]->text(), QStringLiteral("33 %"));
    EXPECT_EQ(f.lblName[1]->text(), QStringLiteral("Player 2"));
    EXPECT_TRUE(f.lblName[2]->isHidden());
    // A hit without a miss before it always earns a special projectile.
    EXPECT_GE(f.intSpecials[0][1] + f.intSpecials[0][2] + f.intSpecials[0][3], 1);
}
