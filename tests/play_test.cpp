// Whole matches played on the virtual clock with a fixed seed and scripted throws.
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <cstdlib>

#include "MatchDriver.h"
#include "TestSupport.h"
#include "modmain/modMain.h"

using namespace testing_support;
using namespace modMain;

namespace {
// Enemy hit: the target is put in the path of a straight-up throw. Miss: a fast throw up and
// backwards that leaves the field over the thrower's own side without touching anything.
enum class Shot { Hit, Miss };
}  // namespace

class Play : public GameTest {
protected:
    void SetUp() override {
        GameTest::SetUp();
        intWindExtremity = 0;  // no wind, so the scripted throws fly the same every time
        blnWindGusts = false;
    }

    void Take(frmGrumbo& f, Shot shot, int target = -1) {
        ASSERT_TRUE(InputOpen(f));
        if (shot == Shot::Hit) {
            PutInThePathOfAnUpwardThrow(f, target);
            ASSERT_TRUE(PlayThrow(clock, f, 90, 50));
        } else {
            ASSERT_TRUE(PlayThrow(clock, f, 135, 999));
        }
    }
};

TEST_F(Play, OneVersusOneToTheFragLimit) {
    intFragLimit = 3;
    frmGrumbo& f = StartMatch(2, 5);
    // Left hits, right misses, left hits, right hits, left misses, right misses, left hits.
    struct Step {
        int thrower;
        Shot shot;
        const char* left;
        const char* right;
        const char* round;
    } script[] = {{0, Shot::Hit, "1", "0", "2"},  {1, Shot::Miss, "1", "0", "2"},
                  {0, Shot::Hit, "2", "0", "3"},  {1, Shot::Hit, "2", "1", "4"},
                  {0, Shot::Miss, "2", "1", "4"}, {1, Shot::Miss, "2", "1", "4"},
                  {0, Shot::Hit, "3", "1", "4"}};
    for (const Step& s : script) {
        SCOPED_TRACE(testing::Message() << "player " << s.thrower << " round " << s.round);
        ASSERT_EQ(f.intCurrentPlayer, s.thrower);
        Take(f, s.shot, 1 - s.thrower);
        EXPECT_EQ(f.lblLeft->text(), QLatin1String(s.left));
        EXPECT_EQ(f.lblRight->text(), QLatin1String(s.right));
        EXPECT_EQ(f.lblcRound->text(), QLatin1String(s.round));
        if (!MatchOver(f)) {
            EXPECT_EQ(f.Caption(), strPlayerName[f.intCurrentPlayer] + QStringLiteral(" - ") +
                                       QString::number(f.lngPoints[f.intCurrentPlayer]) +
                                       QStringLiteral(" pts"));
            for (int i = 0; i < 2; ++i)
                EXPECT_LE(f.Player[i]->Top(), field::kGroundLine) << "both stand again";
        }
    }
    ASSERT_TRUE(MatchOver(f));
    // A picture of the board for people to look at, when asked for one.
    if (const char* dir = getenv("GRUMBO_SHOT_DIR"))
        f.window()->grab().save(QString::fromLocal8Bit(dir) + QStringLiteral("/final-board.png"));
    EXPECT_EQ(f.intFrags[0], 3);
    EXPECT_EQ(f.intFrags[1], 1);
    EXPECT_EQ(f.intMisses[0], 1);
    EXPECT_EQ(f.intMisses[1], 2);
    EXPECT_EQ(f.lngPoints[0], 75000);
    EXPECT_EQ(f.lngPoints[1], 25000);
    // The board: the side score, rows for two players, rounds played.
    EXPECT_EQ(f.lbl2->text(), QStringLiteral("3"));
    EXPECT_EQ(f.lbl4->text(), QStringLiteral("1"));
    EXPECT_EQ(f.lblAccuracy[0]->text(), QStringLiteral("75 %"));
    EXPECT_EQ(f.lblAccuracy[1]->text(), QStringLiteral("33 %"));
    EXPECT_EQ(f.lblPoints[0]->text(), QStringLiteral("75000"));
    EXPECT_EQ(f.lblName[1]->text(), QStringLiteral("Player 2"));
    EXPECT_TRUE(f.lblName[2]->isHidden());
    // A hit without a miss before it always earns a special projectile.
    int held = 0;
    for (int k = 1; k <= 3; ++k) held += f.intSpecials[0][k];
    EXPECT_GE(held, 1);
}

TEST_F(Play, TwoVersusTwoTakesTurnsByTeamAndSkipsTheFragged) {
    intFragLimit = 2;
    frmGrumbo& f = StartMatch(4, 9);
    ASSERT_EQ(f.intCurrentPlayer, 0);
    Take(f, Shot::Hit, 2);  // 0 frags 2: the right team still has 3
    EXPECT_EQ(f.lblLeft->text(), QStringLiteral("0"));
    EXPECT_EQ(f.strFragged, QStringLiteral("2"));
    EXPECT_EQ(f.intCurrentPlayer, 1) << "2 is gone this round, so 1 follows 0";
    Take(f, Shot::Miss);
    EXPECT_EQ(f.intCurrentPlayer, 3);
    Take(f, Shot::Hit, 0);  // 3 frags 0
    EXPECT_EQ(f.intCurrentPlayer, 1) << "0 and 2 are gone: 1 follows 3";
    Take(f, Shot::Hit, 3);  // 1 frags 3: the right team is out, the left side takes the round
    EXPECT_EQ(f.lblLeft->text(), QStringLiteral("1"));
    EXPECT_EQ(f.lblcRound->text(), QStringLiteral("2"));
    EXPECT_TRUE(f.strFragged.isEmpty()) << "a new city, everybody back";
    for (int i = 0; i < 4; ++i) EXPECT_LE(f.Player[i]->Top(), field::kGroundLine);
    EXPECT_EQ(f.intCurrentPlayer, 3) << "the turn goes on from the deciding thrower";

    Take(f, Shot::Hit, 0);  // 3 frags 0
    EXPECT_EQ(f.intCurrentPlayer, 2) << "0 is gone: 2 follows 3";
    Take(f, Shot::Hit, 1);  // 2 frags 1: the left team is out
    EXPECT_EQ(f.lblRight->text(), QStringLiteral("1"));
    EXPECT_EQ(f.lblcRound->text(), QStringLiteral("3"));
    EXPECT_EQ(f.intCurrentPlayer, 1) << "after 2 comes 1, back in the new city";

    Take(f, Shot::Hit, 3);  // 1 frags 3
    EXPECT_EQ(f.intCurrentPlayer, 0) << "3 is gone: 0 follows 1";
    Take(f, Shot::Hit, 2);  // 0 frags 2: the left side reaches the limit
    ASSERT_TRUE(MatchOver(f));
    EXPECT_EQ(f.lbl2->text(), QStringLiteral("2"));
    EXPECT_EQ(f.lbl4->text(), QStringLiteral("1"));
    EXPECT_EQ(f.lblcRound->text(), QStringLiteral("3"));
    EXPECT_EQ(f.intFrags[0], 2);
    EXPECT_EQ(f.intFrags[1], 2);
    EXPECT_EQ(f.intFrags[2], 1);
    EXPECT_EQ(f.intFrags[3], 2);
    EXPECT_EQ(f.lngPoints[1], 50000);
    EXPECT_FALSE(f.lblName[3]->isHidden());
}
