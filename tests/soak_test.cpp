// Many seeded matches with random throws, played to the frag limit: no crash, no hang, and the
// match stays consistent after every throw.
#include <QLabel>
#include <random>

#include "MatchDriver.h"
#include "TestSupport.h"
#include "modmain/modMain.h"

using namespace testing_support;
using namespace modMain;

namespace {
constexpr int kMatches = 200;
constexpr int kMaxThrowsPerMatch = 3000;

// The characters stand on roofs: the row under each box is building, the row above it sky.
void ExpectOnRoofs(const frmGrumbo& f) {
    for (int i = 0; i < intPlayers; ++i) {
        const ui::PictureBox& p = *f.Player[i];
        ASSERT_LE(p.Top(), field::kGroundLine) << "player " << i << " stands at the round's start";
        const int cx = p.Left() + p.Width() / 2, bottom = p.Top() + p.Height();
        ASSERT_NE(f.picBld->Point(cx, bottom), f.picBg->Point(cx, bottom)) << "player " << i;
        ASSERT_EQ(f.picBld->Point(cx, bottom - 1), f.picBg->Point(cx, bottom - 1))
            << "player " << i;
    }
}

void ExpectConsistent(const frmGrumbo& f, bool over) {
    ASSERT_GE(f.intCurrentPlayer, 0);
    ASSERT_LT(f.intCurrentPlayer, intPlayers);
    const int left = LabelNumber(f.lblLeft), right = LabelNumber(f.lblRight);
    const int round = LabelNumber(f.lblcRound);
    ASSERT_EQ(left + right, over ? round : round - 1) << "every decided round is counted once";
    ASSERT_LE(std::max(left, right), intFragLimit);
    int frags = 0;
    for (int i = 0; i < 4; ++i) {
        ASSERT_GE(f.intMisses[i], 0);
        ASSERT_GE(f.intFrags[i], 0);
        frags += f.intFrags[i];
        for (int k = 0; k < 4; ++k)
            ASSERT_TRUE(f.intSpecials[i][k] == 0 || f.intSpecials[i][k] == 1);
        if (i >= intPlayers) {
            ASSERT_EQ(f.lngPoints[i], 0) << "nobody plays in that seat";
        }
    }
    ASSERT_GE(frags, left + right) << "a round is only won by hits";
}

class Soak : public GameTest {};
}  // namespace

TEST_F(Soak, TwoHundredRandomMatchesReachTheFragLimit) {
    long throws = 0, hits = 0;
    for (int m = 0; m < kMatches; ++m) {
        std::mt19937 rng(static_cast<unsigned>(m) * 2654435761u + 17);
        const int players = m % 2 ? 4 : 2;
        intFragLimit = static_cast<grumbo::Integer>(1 + m % 3);
        intWindExtremity = static_cast<grumbo::Integer>(rng() % 31);
        blnWindGusts = rng() % 2;
        intBuildingHeight = static_cast<grumbo::Integer>(4 + rng() % 9);
        intTimeOfDay = static_cast<grumbo::Integer>(1 + rng() % 3);
        frmGrumbo& f = StartMatch(players, static_cast<std::uint64_t>(m) + 1);
        SCOPED_TRACE(testing::Message() << "match " << m << ", " << players << " players");
        ExpectOnRoofs(f);
        int round = 1, n = 0;
        while (!MatchOver(f)) {
            ASSERT_LT(++n, kMaxThrowsPerMatch) << "the match makes no progress";
            const int kind = static_cast<int>(rng() % 4);
            const int angle = static_cast<int>(rng() % 91);
            const int velocity = static_cast<int>(20 + rng() % 100);
            const int fragsBefore = f.intFrags[f.intCurrentPlayer];
            const grumbo::Integer thrower = f.intCurrentPlayer;
            ASSERT_TRUE(PlayThrow(clock, f, angle, velocity, kind)) << "throw " << n << " hung";
            ++throws;
            hits += f.intFrags[thrower] - fragsBefore;
            ExpectConsistent(f, MatchOver(f));
            if (HasFatalFailure()) return;
            if (!MatchOver(f) && LabelNumber(f.lblcRound) != round) {
                round = LabelNumber(f.lblcRound);
                ExpectOnRoofs(f);
                if (HasFatalFailure()) return;
            }
        }
        const int left = LabelNumber(f.lblLeft), right = LabelNumber(f.lblRight);
        ASSERT_TRUE(left == intFragLimit || right == intFragLimit);
        LeaveMatch();
    }
    std::printf("%d matches, %ld throws, %ld character hits\n", kMatches, throws, hits);
}
