// Many seeded matches with random throws, played to the frag limit by a restless player who
// pauses, types the codes and flies the thrower about: no hang, and the match stays consistent
// after every throw.
#include <random>

#include "GameSupport.h"

using namespace testing_support;

namespace {

void ExpectConsistent(const game::Match& m) {
    ASSERT_TRUE(m.currentPlayer() >= 0 && m.currentPlayer() < m.players());
    const int left = m.leftScore(), right = m.rightScore();
    ASSERT_EQ(left + right, m.round() - (m.over() ? 0 : 1)) << "every round counted once";
    ASSERT_LE(std::max(left, right), m.settings().fragLimit);
    int frags = 0;
    for (int i = 0; i < m.players(); ++i) {
        ASSERT_GE(m.stats(i).misses, m.stats(i).missMark);
        frags += m.stats(i).frags;
    }
    ASSERT_GE(frags, left + right) << "a round is only won by hits";
}

TEST(Soak, RandomMatchesReachTheirFragLimit) {
    for (int n = 0; n < 200; ++n) {
        std::mt19937 rng(static_cast<unsigned>(n));
        const auto below = [&](int k) { return static_cast<int>(rng() % k); };
        game::MatchSetup setup = ShippedSetup(n % 2 ? 4 : 2, static_cast<std::uint64_t>(n));
        setup.settings.fragLimit = 1 + n % 3;
        setup.settings.windExtremity = below(36);
        setup.settings.gravity = 5 + below(150) / 10.0;
        setup.settings.buildingHeight = 4 + below(9);
        Play play(setup);
        play.started();
        SCOPED_TRACE(testing::Message() << "match " << n);
        for (int t = 0; !play.match.over(); ++t) {
            ASSERT_LT(t, 3000) << "no end";
            // Now and then Escape and "Resume" a little later, a code, or a few arrow keys.
            const int fidget = below(40);
            if (fidget == 0)
                play.tap(game::key::kEscape), play.run(below(3000)), play.match.resume();
            if (fidget == 1) play.type(QStringLiteral("\\zap plinkos"));
            if (fidget == 2) play.type(QStringLiteral("\\hop fremble"));
            for (int i = 0; fidget == 3 && i < 5; ++i) play.tap(game::key::kLeft + below(4));
            play.match.chooseProjectile(static_cast<game::ProjectileKind>(below(game::kKinds)));
            play.match.setAngleText(QString::number(below(181)));
            play.match.setVelocityText(QString::number(below(150)));
            ASSERT_TRUE(play.match.canThrow());
            play.match.throwProjectile();
            // Match time in big steps, as a busy machine would give it.
            for (int ms = 0;
                 ms < 600000 && !play.match.over() && play.match.phase() != game::Phase::Aiming;
                 ms += 250)
                play.run(250);
            ASSERT_TRUE(play.match.over() || play.match.phase() == game::Phase::Aiming) << "hangs";
            ASSERT_NO_FATAL_FAILURE(ExpectConsistent(play.match));
        }
    }
}

}  // namespace
