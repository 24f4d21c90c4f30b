// The computer's seats on the model: the throw it plans frags an enemy and never its own side; it
// types its throw key by key on its own turn only, stands still while paused, and plays the same
// throws for the same seed however the match is advanced.
#include "GameSupport.h"
#include "computer/Autopilot.h"
#include "game/Damage.h"

using namespace testing_support;
using computer::Autopilot;
using game::Phase;

namespace {

TEST(Planner, FindsAFragOfTheEnemyAndNeverOfItsOwnSide) {
    for (const int players : {2, 4})
        for (std::uint64_t seed = 1; seed <= 4; ++seed) {
            SCOPED_TRACE(testing::Message() << players << " players, seed " << seed);
            Play play(ShippedSetup(players, seed));
            play.started();
            const game::Match& m = play.match;
            const computer::Plan plan = computer::planThrow(m);
            ASSERT_TRUE(plan.frags);
            ASSERT_GT(plan.room, 0);
            // It aims at the middle of the velocities that frag, not at their edge.
            for (const int next : {-1, 1}) {
                computer::Throw beside = plan.aim;
                beside.velocity += next;
                if (plan.room < 3) continue;
                EXPECT_EQ(computer::tryThrow(m, beside).what, game::Impact::What::Character);
            }
            const game::Impact impact = computer::tryThrow(m, plan.aim);
            ASSERT_EQ(impact.what, game::Impact::What::Character);
            // Sides: player 1 against 2, or players 1 and 2 against 3 and 4.
            EXPECT_NE(impact.player / (players / 2), m.currentPlayer() / (players / 2));
        }
}

TEST(Planner, TakesTheNukeWhenItHoldsOneThatReachesTheEnemysBuilding) {
    Play play(CalmSetup(2, 3));
    play.started();
    play.type(QStringLiteral("\\zap plinkos"));
    const computer::Plan first = computer::planThrow(play.match);
    EXPECT_EQ(first.aim.kind, game::ProjectileKind::Normal) << "nothing is held yet";
    ASSERT_TRUE(play.throwAt(first.aim.angle, first.aim.velocity));
    ASSERT_TRUE(play.match.selectorShown(game::ProjectileKind::Nuke));
    const computer::Plan nuke = computer::planThrow(play.match);
    EXPECT_EQ(nuke.aim.kind, game::ProjectileKind::Nuke);
    EXPECT_TRUE(nuke.frags);
    const game::Impact impact = computer::tryThrow(play.match, nuke.aim);
    const game::Span building =
        game::buildingAt(play.match.sky(), play.match.scene(), impact.at.x());
    const int enemy = 1 - play.match.currentPlayer();
    EXPECT_GT(play.match.figure(enemy).pos.x(), building.left);
    EXPECT_LT(play.match.figure(enemy).pos.x(), building.right);
}

// The place on the roof of the building at `x` where `f` stands in its middle.
QPoint RoofPlace(const game::Match& m, int x, const game::Figure& f) {
    const game::Span b = game::buildingAt(m.sky(), m.scene(), x);
    return {(b.left + b.right) / 2 - f.width() / 2,
            game::rowAboveRoof(m.sky(), m.scene(), b) - f.height() + 1};
}

TEST(Planner, ReachesAnEnemyAcrossTheWholeCity) {
    // Player 1 on the leftmost roof, player 2 on the rightmost, where player 2 plans: low gravity
    // with a strong wind behind him carries even a slow throw too far, strong gravity needs a
    // fast one.
    struct Case {
        double gravity;
        int windExtremity;
        std::uint64_t seed;
    };
    for (const Case c : {Case{0.5, 35, 11}, Case{20, 0, 1}, Case{20, 0, 6}}) {
        SCOPED_TRACE(testing::Message() << "gravity " << c.gravity << ", seed " << c.seed);
        game::MatchSetup setup = CalmSetup(2, c.seed);
        setup.settings.gravity = c.gravity;
        setup.settings.windExtremity = c.windExtremity;
        Play play(setup);
        play.started();
        const game::Match& m = play.match;
        play.flyTo(RoofPlace(m, 3, m.figure(0)));
        ASSERT_TRUE(play.throwAt(135, 300));
        play.flyTo(RoofPlace(m, game::kFieldWidth - 4, m.figure(1)));
        ASSERT_GT(m.figure(1).pos.x() - m.figure(0).pos.x(), 600);
        if (c.windExtremity > 0) {
            ASSERT_LE(m.wind().drift(), -0.25) << "a strong wind blows towards player 1";
        }
        const computer::Plan plan = computer::planThrow(m);
        EXPECT_TRUE(plan.frags);
        const game::Impact impact = computer::tryThrow(m, plan.aim);
        EXPECT_EQ(impact.what, game::Impact::What::Character);
        EXPECT_EQ(impact.player, 0);
    }
}

// A match of one person (player 1) and the computer (player 2).
struct AgainstTheComputer : Play {
    explicit AgainstTheComputer(std::uint64_t seed, game::Skill skill = game::Skill::Hard)
        : Play(Setup(seed, skill)), pilot(seed) {
        match.setPilot(&pilot);
    }
    static game::MatchSetup Setup(std::uint64_t seed, game::Skill skill) {
        game::MatchSetup s = ShippedSetup(2, seed);
        s.players[1].computer = skill;
        return s;
    }
    Autopilot pilot;
};

TEST(Autopilot, TypesItsThrowKeyByKeyOnItsOwnTurnAndStandsStillWhilePaused) {
    AgainstTheComputer play(5);
    const game::Match& m = play.match;
    play.started();
    play.run(10000);
    EXPECT_EQ(m.phase(), Phase::Aiming) << "the person's turn waits for the person";
    EXPECT_TRUE(m.angleText().isEmpty());
    ASSERT_TRUE(play.throwAt(45, 10));
    ASSERT_EQ(m.currentPlayer(), 1);
    const int since = m.aimingSince();
    play.run(since + Autopilot::kThinkMs + Autopilot::kKeyMs - 1 - m.now());
    EXPECT_TRUE(m.angleText().isEmpty()) << "it thinks, then types";
    play.run(1);
    ASSERT_EQ(m.angleText().size(), 1);
    const auto shown = [&] { return m.angleText() + QLatin1Char('|') + m.velocityText(); };
    QStringList seen{shown()};
    int last = m.now(), shortest = 1 << 30;
    play.tap(game::key::kEscape);
    ASSERT_TRUE(m.paused());
    play.run(20000);
    EXPECT_EQ(shown(), seen.back()) << "paused mid-word";
    play.match.resume();
    while (play.runUntil([&] { return m.phase() != Phase::Aiming || shown() != seen.back(); }) &&
           m.phase() == Phase::Aiming) {
        shortest = std::min(shortest, m.now() - last);
        last = m.now();
        seen << shown();
    }
    ASSERT_EQ(m.phase(), Phase::Flying) << "it threw";
    EXPECT_GE(shortest, Autopilot::kKeyMs);
    const QString angle = QString::number(180 - m.flight().angle);
    const QString velocity = QString::number(m.flight().velocity);
    EXPECT_EQ(seen.back(), angle + QLatin1Char('|') + velocity);
    EXPECT_EQ(seen.size(), angle.size() + velocity.size()) << "one key at a time";
}

TEST(Autopilot, PlaysTheSameThrowsForTheSameSeedHoweverTheMatchIsAdvanced) {
    const auto play = [](int chunkMs) {
        game::MatchSetup setup = ShippedSetup(4, 9);
        for (auto& p : setup.players) p.computer = game::Skill::Normal;
        setup.settings.fragLimit = 1;
        game::Match m(setup);
        Autopilot pilot(9);
        m.setPilot(&pilot);
        for (int t = 0; t < 3000000 && !m.over(); t += chunkMs) m.advance(chunkMs);
        EXPECT_TRUE(m.over()) << "the computers play the match to its end";
        std::vector<int> figures{m.leftScore(), m.rightScore()};
        for (int i = 0; i < 4; ++i)
            figures.insert(figures.end(), {m.stats(i).frags, m.stats(i).misses, m.stats(i).points});
        return figures;
    };
    const std::vector<int> once = play(1);
    EXPECT_EQ(play(16), once);
    EXPECT_EQ(play(250), once);
}

}  // namespace
