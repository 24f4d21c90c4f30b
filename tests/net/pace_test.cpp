// How the host tells joiners how far they may run: at once while a turn is aimed, a little ahead
// and seldom while the match runs by itself, now and then while nothing on the field moves.
#include "net/Pace.h"

#include "game/GameSupport.h"

using namespace testing_support;
using net::Pace;

namespace {

TEST(Pace, FollowsWhatTheMatchIsDoing) {
    game::MatchSetup setup = ShippedSetup(2, 3);
    setup.players[1].computer = game::Skill::Easy;
    Play play(setup);
    play.started();
    const game::Match& m = play.match;
    const std::array<bool, 4> person{}, second{false, true, false, false};
    EXPECT_EQ(net::paceOf(m, person), Pace::Aiming) << "the turn marker bobs";
    play.run(game::Indicator::kTicks * game::Indicator::kTickMs + 1);
    EXPECT_EQ(net::paceOf(m, person), Pace::Still);
    play.send(game::Command::Kind::Angle, QStringLiteral("60"));
    play.send(game::Command::Kind::Velocity, QStringLiteral("40"));
    play.send(game::Command::Kind::Throw);
    ASSERT_EQ(m.phase(), game::Phase::Flying);
    EXPECT_EQ(net::paceOf(m, person), Pace::Running);
    play.tap(game::key::kEscape);
    ASSERT_TRUE(m.paused());
    EXPECT_EQ(net::paceOf(m, person), Pace::Still);
    play.send(game::Command::Kind::Resume);
    // Player 2 is the computer: on another machine it acts on that match's time.
    ASSERT_TRUE(play.runUntil([&] { return m.phase() == game::Phase::Aiming && m.inputOpen(); }));
    ASSERT_EQ(m.currentPlayer(), 1);
    play.run(game::Indicator::kTicks * game::Indicator::kTickMs + 1);
    EXPECT_EQ(net::paceOf(m, second), Pace::Aiming);
    EXPECT_EQ(net::paceOf(m, person), Pace::Still) << "here, its moves come as commands";
}

TEST(Pace, JoinersNeverWaitForARunningMatchAndSeldomHearOfAStillOne) {
    constexpr int kLooks = 200, kEvery = net::Ticking::kEveryMs;
    for (const Pace pace : {Pace::Aiming, Pace::Running, Pace::Still}) {
        SCOPED_TRACE(static_cast<int>(pace));
        int last = 0, told = 0;
        for (int now = kEvery; now <= kLooks * kEvery; now += kEvery) {
            if (const std::optional<int> at = net::tickDue(pace, now, last)) {
                EXPECT_GT(*at, last);
                last = *at;
                ++told;
            }
            // Ahead of the host by more than one look, so that a tick on its way never holds
            // a joiner up.
            if (pace == Pace::Running) {
                EXPECT_GT(last, now + kEvery) << now;
            } else if (pace == Pace::Aiming) {
                EXPECT_EQ(last, now);
            }
        }
        if (pace == Pace::Running) {
            EXPECT_LE(told * 4, kLooks);
        } else if (pace == Pace::Still) {
            EXPECT_EQ(told, kLooks * kEvery / net::Ticking::kStillMs);
        }
    }
}

}  // namespace
