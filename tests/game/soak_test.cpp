// Many seeded matches with random throws, played to the frag limit by a restless player who
// pauses, types the codes and flies the thrower about: no hang, and the match stays consistent
// after every throw.
#include <random>

#include "GameSupport.h"

using namespace testing_support;

namespace {

constexpr int kMatches = 200;
constexpr int kMostThrows = 3000;

void ExpectConsistent(const game::Match& m) {
    ASSERT_GE(m.currentPlayer(), 0);
    ASSERT_LT(m.currentPlayer(), m.players());
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

// Now and then Escape and "Resume" a little later, a code, or a few arrow keys.
void Fidget(Play& play, std::mt19937& rng) {
    switch (rng() % 40) {
        case 0:
            play.tap(game::key::kEscape);
            play.run(static_cast<int>(rng() % 3000));
            play.match.resume();
            break;
        case 1: play.type(QStringLiteral("\\zap plinkos")); break;
        case 2: play.type(QStringLiteral("\\hop fremble")); break;
        case 3:
            for (int i = 0; i < 5; ++i) play.tap(game::key::kLeft + static_cast<int>(rng() % 4));
            break;
        default: break;
    }
}

TEST(Soak, RandomMatchesReachTheirFragLimit) {
    int throws = 0;
    for (int n = 0; n < kMatches; ++n) {
        std::mt19937 rng(static_cast<unsigned>(n));
        game::MatchSetup setup = ShippedSetup(n % 2 ? 4 : 2, static_cast<std::uint64_t>(n));
        setup.settings.fragLimit = 1 + n % 3;
        setup.settings.windExtremity = static_cast<int>(rng() % 36);
        setup.settings.gravity = 5 + rng() % 150 / 10.0;
        setup.settings.buildingHeight = 4 + static_cast<int>(rng() % 9);
        Play play(setup);
        play.started();
        SCOPED_TRACE(testing::Message() << "match " << n);
        int t = 0;
        for (; t < kMostThrows && !play.match.over(); ++t) {
            Fidget(play, rng);
            const auto kind = static_cast<game::ProjectileKind>(rng() % game::kKinds);
            const int angle = static_cast<int>(rng() % 181),
                      velocity = static_cast<int>(rng() % 150);
            play.match.chooseProjectile(kind);
            play.match.setAngleText(QString::number(angle));
            play.match.setVelocityText(QString::number(velocity));
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
        ASSERT_TRUE(play.match.over()) << "no end after " << t << " throws";
        throws += t;
    }
    std::printf("%d matches, %d throws\n", kMatches, throws);
}

}  // namespace
