// A match on the model alone: its phases and how long each lasts, what a throw does to the turn,
// the scores and the city, and what pause, typed codes and a finished match do, in match time.
#include "GameSupport.h"
#include "core/Numbers.h"
#include "game/Calibration.h"
#include "game/Durations.h"
#include "game/Music.h"
#include "game/Scoring.h"

using namespace testing_support;
using game::Phase;
using game::ProjectileKind;
using Kind = game::MatchEvent::Kind;

namespace {

// Match time until the phase is no longer `phase`.
int Lasts(Play& play, Phase phase) {
    const int from = play.match.now();
    play.runUntil([&] { return play.match.phase() != phase; });
    return play.match.now() - from;
}

bool Has(const Play& play, Kind kind) {
    return std::any_of(play.events.begin(), play.events.end(),
                       [&](const game::MatchEvent& e) { return e.kind == kind; });
}

TEST(Match, StartsWithTheTestThrowThenBuildsTheFirstRoundBehindTheLoadingBox) {
    Play play(ShippedSetup());
    const game::Match& m = play.match;
    EXPECT_EQ(m.phase(), Phase::Starting);
    EXPECT_EQ(m.title(), "Grumbo");
    EXPECT_EQ(m.loading().status, "Synchronizing Timers...");
    EXPECT_EQ(play.sounds, QStringList{"sounds/gn.wav"});
    play.runUntil([&] { return m.loading().status.startsWith(QLatin1String("Test")); });
    EXPECT_EQ(m.now(), 720) << "30 test ticks of 24 ms";
    EXPECT_EQ(m.loading().progress, 93);
    EXPECT_EQ(m.flightTickMs(), 32);
    EXPECT_EQ(Lasts(play, Phase::Starting), game::calibration::kShowResultMs);
    EXPECT_TRUE(m.loading().shown);
    EXPECT_FALSE(m.figuresShown()) << "the characters show once the round stands";
    EXPECT_EQ(Lasts(play, Phase::BuildingRound), 5 * game::durations::kRoundStageMs);
    EXPECT_FALSE(m.loading().shown);
    EXPECT_TRUE(m.figuresShown() && m.boxesShown());
    EXPECT_EQ(m.title(), "Player 1 - 0 pts");
    EXPECT_FALSE(m.canThrow()) << "nothing typed yet";
    for (int i = 0; i < 2; ++i) {
        const game::Figure& f = m.figure(i);
        EXPECT_TRUE(f.inPlay());
        EXPECT_NE(m.scene().point(f.pos.x() + f.width() / 2, f.pos.y() + f.height()),
                  m.sky().point(f.pos.x() + f.width() / 2, f.pos.y() + f.height()))
            << "player " << i << " stands on a roof";
    }
}

TEST(Match, ABuildingHitCratersScoresTheNearMissAndPassesTheTurn) {
    game::MatchSetup setup = ShippedSetup(2, 7);
    setup.settings.timeOfDay = game::TimeOfDay::Day;
    Play play(setup);
    play.started();
    const game::Match& m = play.match;
    play.match.setAngleText(QStringLiteral("45"));
    play.match.setVelocityText(QStringLiteral("60"));
    ASSERT_TRUE(m.canThrow());
    play.match.throwProjectile();
    EXPECT_FALSE(m.inputOpen());
    EXPECT_EQ(m.angleText(), "45") << "the typed values stay while the projectile flies";
    const game::Flight thrown = m.flight();
    EXPECT_EQ(thrown.angle, 45);
    // The flight moves every 32 ms, from the hand, in closed form.
    for (int tick = 1; tick <= 5; ++tick) {
        play.run(game::calibration::flightTickMs(30));
        game::Flight expected = thrown;
        expected.ticks = tick;
        expected.drift = tick * m.wind().drift();
        EXPECT_EQ(m.projectile().pos, game::flightPosition(expected, 9.8)) << "tick " << tick;
    }
    play.runUntil([&] { return m.phase() == Phase::Cratering; });
    EXPECT_EQ(m.stats(0).misses, 1);
    EXPECT_FALSE(m.projectile().shown);
    EXPECT_EQ(Lasts(play, Phase::Cratering), 8 * game::durations::kCraterRingMs);
    EXPECT_EQ(m.stats(0).points, 625);
    EXPECT_EQ(Lasts(play, Phase::ShowingPoints), game::PointsPopup::kDurationMs);
    EXPECT_EQ(m.phase(), Phase::Aiming);
    EXPECT_EQ(m.title(), "Player 2 - 0 pts");
    EXPECT_EQ(m.panelLine(0), "Player 1: 625");
    EXPECT_EQ(m.panelLine(1), "");
    EXPECT_TRUE(m.inputOpen() && m.angleText().isEmpty() && m.velocityText().isEmpty());
    EXPECT_TRUE(Has(play, Kind::FocusAngle));
    EXPECT_EQ(play.sounds, (QStringList{"sounds/gn.wav", "sounds/throw.wav", "sounds/bc.wav"}));
}

TEST(Match, ATrowLeavingTheFieldIsOneMissAndATextThatIsNoNumberCannotBeThrown) {
    Play play(ShippedSetup());
    play.started();
    play.match.setAngleText(QStringLiteral("4x"));
    play.match.setVelocityText(QStringLiteral("50"));
    EXPECT_FALSE(play.match.canThrow()) << "pasted text counts as an empty box";
    ASSERT_TRUE(play.throwAt(30, 999));
    EXPECT_EQ(play.match.stats(0).misses, 1);
    EXPECT_EQ(play.match.currentPlayer(), 1);
}

TEST(Match, AHitExplodesScoresTheRoundDancesAndBuildsANewCity) {
    Play play(CalmSetup(2, 11));
    play.started();
    const game::Match& m = play.match;
    const core::Canvas city = m.scene();
    const int height = m.figure(1).height();
    play.flyTo({m.figure(1).pos.x() + m.figure(1).width() / 2 - 5, m.figure(1).pos.y() - 29});
    play.sounds.clear();
    play.match.setAngleText(QStringLiteral("90"));
    play.match.setVelocityText(QStringLiteral("0"));
    play.match.throwProjectile();
    play.runUntil([&] { return m.phase() == Phase::Exploding; });
    // One ring every 4 ms up to half his height, then he is gone.
    EXPECT_EQ(Lasts(play, Phase::Exploding), height / 2 * game::durations::kBlastRingMs);
    EXPECT_FALSE(m.figure(1).inPlay());
    EXPECT_EQ(m.stats(0).frags, 1);
    EXPECT_EQ(m.stats(0).points, game::kEnemyHitPoints);
    EXPECT_EQ(m.leftScore(), 1);
    EXPECT_EQ(m.round(), 2);
    EXPECT_EQ(m.popup().text(), "25000");
    EXPECT_EQ(Lasts(play, Phase::ShowingPoints), game::PointsPopup::kDurationMs);
    EXPECT_EQ(Lasts(play, Phase::Dancing),
              game::durations::kDanceFrames * game::durations::kDanceFrameMs);
    EXPECT_EQ(m.phase(), Phase::BuildingRound);
    EXPECT_EQ(play.sounds, (QStringList{"sounds/throw.wav", "Explosion-2.au", "sounds/ge.wav"}));
    play.runUntil([&] { return m.phase() == Phase::Aiming; });
    EXPECT_NE(m.scene(), city);
    EXPECT_TRUE(m.figure(0).inPlay() && m.figure(1).inPlay());
    EXPECT_EQ(m.currentPlayer(), 1) << "the turn goes on into the new round";
    EXPECT_EQ(m.stats(0).points, game::kEnemyHitPoints) << "and the scores";
    // A hit with the first throw of a round always earns a special projectile.
    int held = 0;
    for (int k = 1; k < game::kKinds; ++k) held += m.holds(0, static_cast<ProjectileKind>(k));
    EXPECT_EQ(held, 1);
}

TEST(Match, ANukeDissolvesItsBuildingAndWhoStandsOnItAnOwnGoalScoringForTheOtherSide) {
    Play play(CalmSetup(2, 5));
    play.started();
    const game::Match& m = play.match;
    play.type(QStringLiteral("\\zap plinkos"));
    ASSERT_TRUE(play.throwAt(10, 999));
    ASSERT_TRUE(play.throwAt(10, 999));
    // Straight down from his hand onto his own roof: the thrower is never hit by his own
    // projectile, but the nuke takes his building and him with it.
    const game::Figure& me = m.figure(0);
    const int x = me.pos.x() + 2, roof = me.pos.y() + me.height();
    play.sounds.clear();
    play.match.chooseProjectile(ProjectileKind::Nuke);
    play.match.setAngleText(QStringLiteral("90"));
    play.match.setVelocityText(QStringLiteral("0"));
    play.match.throwProjectile();
    ASSERT_TRUE(play.runUntil([&] { return m.phase() == Phase::Vaporizing; }));
    for (int y = roof; y < game::kGroundLine; y += 7)
        EXPECT_EQ(m.scene().point(x, y), m.sky().point(x, y)) << "row " << y;
    ASSERT_TRUE(play.runUntil([&] { return m.phase() == Phase::Aiming; }));
    EXPECT_EQ(play.sounds.count(QStringLiteral("sounds/vg.wav")), 2) << "building and character";
    EXPECT_EQ(m.stats(0).frags, 1);
    EXPECT_EQ(m.stats(0).misses, 1) << "only the first throw missed";
    EXPECT_EQ(m.stats(0).points, game::kFriendlyHitPoints);
    EXPECT_EQ(m.rightScore(), 1);
    EXPECT_EQ(m.leftScore(), 0);
}

TEST(Match, TheFragLimitEndsTheMatchWithTheBoardAndFiveSecondsLaterTheGameOverBox) {
    game::MatchSetup setup = CalmSetup(2, 3);
    setup.settings.fragLimit = 1;
    setup.settings.timeOfDay = game::TimeOfDay::Night;
    Play play(setup);
    play.started();
    const game::Match& m = play.match;
    ASSERT_TRUE(play.dropOn(1));
    ASSERT_TRUE(m.over());
    const core::Canvas darkened = m.scene();
    ASSERT_TRUE(m.board());
    EXPECT_EQ(m.board()->left, "1");
    EXPECT_EQ(m.board()->right, "0");
    ASSERT_EQ(m.board()->rows.size(), 2u);
    EXPECT_EQ(m.board()->rows[0].frags, "1");
    EXPECT_EQ(m.board()->rows[0].points, "25000");
    EXPECT_EQ(m.board()->rows[0].accuracy, "100 %");
    EXPECT_EQ(m.board()->rows[1].accuracy, "0 %");
    EXPECT_EQ(m.round(), 1) << "the rounds played";
    EXPECT_FALSE(m.boxesShown());
    for (int i = 0; i < 2; ++i) EXPECT_FALSE(m.figure(i).inPlay());
    // Every odd row is one colour, 40 % darker than the sky at its left end.
    for (int y : {1, 101, 465}) {
        const core::Colour left = m.sky().point(0, y);
        const auto darker = [](int v) { return core::roundHalfEven(v * 0.6); };
        EXPECT_EQ(darkened.point(400, y),
                  core::Colour(darker(left.red()), darker(left.green()), darker(left.blue())))
            << "row " << y;
    }
    EXPECT_FALSE(m.canThrow());
    play.tap(game::key::kEscape);
    EXPECT_FALSE(m.paused()) << "a finished match is not paused";
    EXPECT_FALSE(Has(play, Kind::GameOver));
    play.runUntil([&] { return m.gameOverShown(); });
    EXPECT_EQ(m.scene(), darkened);
    EXPECT_TRUE(Has(play, Kind::GameOver));
}

TEST(Match, TeamsThrowInTurnsAndARoundNeedsBothOfATeam) {
    Play play(CalmSetup(4, 9));
    play.started();
    const game::Match& m = play.match;
    std::vector<int> order;
    for (int i = 0; i < 4; ++i) {
        order.push_back(m.currentPlayer());
        ASSERT_TRUE(play.throwAt(10, 999));
    }
    EXPECT_EQ(order, (std::vector<int>{0, 2, 1, 3}));
    // Player 0 frags player 2: no score yet, and player 2 is passed over.
    ASSERT_TRUE(play.dropOn(2));
    EXPECT_EQ(m.leftScore(), 0);
    EXPECT_EQ(m.round(), 1);
    EXPECT_EQ(m.currentPlayer(), 1) << "after 0 comes 2, who is gone";
    ASSERT_TRUE(play.dropOn(3));
    EXPECT_EQ(m.leftScore(), 1) << "both of the right team";
    EXPECT_EQ(m.round(), 2);
}

TEST(Match, EscapeFreezesEverythingButTheMusicUntilResume) {
    game::MatchSetup setup = ShippedSetup();
    setup.settings.music = true;
    Play play(setup);
    play.started();
    const game::Match& m = play.match;
    play.match.setAngleText(QStringLiteral("60"));
    play.match.setVelocityText(QStringLiteral("60"));
    play.match.throwProjectile();
    play.run(200);
    play.tap(game::key::kEscape);
    ASSERT_TRUE(m.paused());
    EXPECT_TRUE(Has(play, Kind::Paused));
    EXPECT_FALSE(m.canThrow());
    const QPoint frozen = m.projectile().pos;
    const int now = m.now(), tune = m.tune();
    // The tune plays on while the match stands still, and changes at its length.
    play.run(game::tuneSeconds(tune) * 1000);
    EXPECT_EQ(m.projectile().pos, frozen);
    EXPECT_EQ(m.now(), now);
    EXPECT_TRUE(std::count_if(play.events.begin(), play.events.end(),
                              [](const game::MatchEvent& e) { return e.kind == Kind::PlayTune; }) ==
                2);
    play.match.resume();
    play.run(100);
    EXPECT_NE(m.projectile().pos, frozen);
}

TEST(Match, TunesChangeAtTheirLengthToARandomOne) {
    game::MatchSetup setup = ShippedSetup(2, 1);
    setup.settings.music = true;
    Play play(setup);
    const int tune = play.match.tune();
    ASSERT_EQ(play.events.front(), (game::MatchEvent{Kind::PlayTune, {}, tune}));
    play.run(game::tuneSeconds(tune) * 1000 - 1);
    EXPECT_EQ(play.match.tune(), tune);
    play.events.clear();
    play.run(1);
    ASSERT_GE(play.events.size(), 2u);
    EXPECT_EQ(play.events[0], (game::MatchEvent{Kind::CloseTune, {}, tune}));
    EXPECT_EQ(play.events[1], (game::MatchEvent{Kind::PlayTune, {}, play.match.tune()}));
}

TEST(Match, CodesNeedTheBackslashAndSwitchTheirModeOnAtTheTwelfthCharacter) {
    Play play(ShippedSetup());
    play.started();
    const game::Match& m = play.match;
    play.type(QStringLiteral("hop fremble"));
    EXPECT_FALSE(m.modes().flying) << "no backslash, no code";
    play.type(QStringLiteral("\\qix fremble"));
    EXPECT_TRUE(m.modes().invulnerable);
    play.type(QStringLiteral("\\zap plinko"));
    EXPECT_FALSE(m.modes().allProjectiles);
    play.sounds.clear();
    play.tap(game::key::kA + 'S' - 'A');
    EXPECT_TRUE(m.modes().allProjectiles);
    EXPECT_EQ(play.sounds, QStringList{"sounds/allb.wav"});
    // Every selector shows from the next turn on, without their announcements.
    EXPECT_FALSE(m.selectorShown(ProjectileKind::Nuke));
    ASSERT_TRUE(play.throwAt(10, 999));
    for (int k = 1; k < game::kKinds; ++k) {
        EXPECT_TRUE(m.selectorShown(static_cast<ProjectileKind>(k)));
        EXPECT_EQ(m.selectorLeft(static_cast<ProjectileKind>(k)), 9 + 19 * k) << "5 pixels apart";
    }
    EXPECT_FALSE(play.sounds.contains(QStringLiteral("sounds/nBan.wav")));
}

TEST(Match, TheArrowsFlyTheThrowerOnlyInFlyingModeAndTheProjectileFollows) {
    Play play(ShippedSetup());
    play.started();
    const game::Match& m = play.match;
    const QPoint standing = m.figure(0).pos;
    play.tap(game::key::kLeft);
    EXPECT_EQ(m.figure(0).pos, standing);
    play.type(QStringLiteral("\\hop fremble"));
    for (int i = 0; i < 4; ++i) play.tap(game::key::kLeft);
    play.tap(game::key::kUp);
    EXPECT_EQ(m.figure(0).pos, standing + QPoint(-12, -3));
    EXPECT_EQ(m.projectile().pos, m.figure(0).pos + QPoint(0, -11)) << "parked at his hand";
}

TEST(Match, AWarProjectileBoresThroughTheCityAndMissesOnceWhenItLeaves) {
    Play play(CalmSetup(2, 21));
    play.started();
    const game::Match& m = play.match;
    play.type(QStringLiteral("\\zap plinkos"));
    ASSERT_TRUE(play.throwAt(10, 999));
    // Player 2 drops it from high above the middle of the city, straight down.
    play.flyTo({300, 40});
    const int x = m.projectile().pos.x() + 5;
    play.sounds.clear();
    ASSERT_TRUE(play.throwAt(90, 0, ProjectileKind::War));
    EXPECT_EQ(m.stats(1).misses, 1);
    EXPECT_EQ(m.stats(1).frags, 0);
    EXPECT_GT(play.sounds.count(QStringLiteral("sounds/bc.wav")), 3) << "a hole at every check";
    // The tunnel goes down to the ground: sky shows at the building's foot.
    EXPECT_EQ(m.scene().point(x, game::kGroundLine - 1), m.sky().point(x, game::kGroundLine - 1));
}

TEST(Match, WhatAMatchLeavesToTheNextOne) {
    Play play(ShippedSetup());
    play.started();
    play.type(QStringLiteral("\\hop fremble"));
    game::MatchSetup next = ShippedSetup();
    next.carry = play.match.carry();
    game::Match second(next);
    EXPECT_TRUE(second.modes().flying);
    EXPECT_EQ(second.stats(0).points, 0);
}

}  // namespace
