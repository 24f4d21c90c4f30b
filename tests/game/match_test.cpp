// A match on the model alone, for what the golden runs cannot see: how long its phases last,
// the rounds and awards of a few scripted throws, pause and typed codes, in match time.
#include <set>
#include <tuple>

#include "GameSupport.h"
#include "game/Music.h"
#include "screens/MatchTexts.h"

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

TEST(Match, StartsWithATestThrowAndBuildsTheRoundInStagesBehindTheLoadingBox) {
    Play play(ShippedSetup(2, 7));
    const game::Match& m = play.match;
    EXPECT_EQ(screens::loadingText(m.loading()), "Synchronizing Timers...");
    play.runUntil(
        [&] { return screens::loadingText(m.loading()).startsWith(QLatin1String("Test")); });
    EXPECT_EQ(m.now(), 720) << "30 test ticks of 24 ms";
    EXPECT_EQ(screens::loadingText(m.loading()), "Test completed in 720 ms, adjusted timers to 32");
    EXPECT_EQ(m.flightTickMs(), 32);
    EXPECT_EQ(Lasts(play, Phase::Starting), 1001) << "the result stays up a second";
    // Every text of the loading box stands long enough to be read, each player's in turn: the
    // texts with their progress, and how long each stood.
    const auto stages = [](Play& p) {
        QStringList seen;
        for (QString last; p.match.phase() == Phase::BuildingRound; p.run(1)) {
            EXPECT_FALSE(p.match.figuresShown());
            const QString now = screens::loadingText(p.match.loading()) + QLatin1Char(' ') +
                                QString::number(p.match.loading().progress) + QLatin1Char(' ');
            if (now != last) seen << now + '0';
            last = now;
            seen.back() = now + QString::number(seen.back().mid(now.size()).toInt() + 1);
        }
        return seen;
    };
    const QString ms = QString::number(game::durations::kLoadingStatusMs);
    EXPECT_EQ(stages(play),
              (QStringList{"Rendering Sky... 7 " + ms, "Rendering Buildings... 67 " + ms,
                           "Rendering Player 1... 67 " + ms, "Rendering Player 2... 77 " + ms,
                           "Creating Wind... 95 " + ms, "Creating Wind... 100 " + ms}));
    Play teams(ShippedSetup(4, 7));
    teams.runUntil([&] { return teams.match.phase() == Phase::BuildingRound; });
    EXPECT_EQ(stages(teams).mid(2, 4),
              (QStringList{"Rendering Player 1... 67 " + ms, "Rendering Player 2... 72 " + ms,
                           "Rendering Player 3... 77 " + ms, "Rendering Player 4... 82 " + ms}));
    EXPECT_TRUE(m.figuresShown() && !m.loading().shown);
    play.send(game::Command::Kind::Angle, QStringLiteral("4:"));
    play.send(game::Command::Kind::Velocity, QStringLiteral("60"));
    EXPECT_FALSE(m.canThrow()) << "pasted text that is no number counts as an empty box";
    play.send(game::Command::Kind::Angle, QStringLiteral("45"));
    EXPECT_TRUE(m.canThrow());
}

TEST(Match, EveryReseedIsAFreshDrawThatTheSeedAndTheCountOfReseedsRepeat) {
    // The day sky's top row is RGB(3, 61, 155).
    const auto firstRound = [](std::uint64_t seed, int reseeds) {
        game::MatchSetup setup = ShippedSetup(2, seed);
        setup.settings.music = true;
        setup.carry.reseeds = reseeds;
        Play play(setup);
        play.started();
        const bool day = play.match.sky().point(0, 0) == core::Colour(3, 61, 155);
        return std::tuple(play.match.tune(), day, play.match.scene().image(),
                          play.match.carry().reseeds);
    };
    // The tune and the sky come from two reseeds: a tune of the first half must not bring the
    // same sky every time.
    std::set<std::pair<bool, bool>> seen;
    for (std::uint64_t seed = 1; seed <= 40; ++seed) {
        const auto [tune, day, city, reseeds] = firstRound(seed, 0);
        seen.insert({tune <= game::kTunes / 2, day});
        EXPECT_EQ(reseeds, 2) << "one reseed for the tune, one for the first round";
    }
    EXPECT_EQ(seen.size(), 4u) << "every pairing of tune half and sky";
    EXPECT_TRUE(std::get<2>(firstRound(7, 0)) == std::get<2>(firstRound(7, 0))) << "repeatable";
    EXPECT_FALSE(std::get<2>(firstRound(7, 0)) == std::get<2>(firstRound(7, 2)))
        << "the next match of a run draws a new city from the same seed";
}

TEST(Match, AHitExplodesAndDancesAndAFirstThrowOfARoundThatHitsWinsASpecial) {
    Play play(CalmSetup(2, 11));
    const game::Match& m = play.started().match;
    for (int i = 0; i < 8; ++i) ASSERT_TRUE(play.throwAt(10, 999));
    ASSERT_EQ(m.stats(0).misses, 4);
    const int height = m.figure(1).height();
    play.flyTo({m.figure(1).pos.x() + m.figure(1).width() / 2 - 5, m.figure(1).pos.y() - 29});
    play.launch(90, 0);
    play.runUntil([&] { return m.phase() == Phase::Exploding; });
    // A ring every 4 ms (a wait of 3) up to half his height, then he is gone.
    EXPECT_EQ(Lasts(play, Phase::Exploding), height / 2 * 4);
    EXPECT_EQ(Lasts(play, Phase::ShowingPoints), game::PointsPopup::kDurationMs);
    EXPECT_EQ(Lasts(play, Phase::Dancing), 12 * 41) << "twelve frames, each a wait of 40 ms";
    play.runUntil([&] { return m.phase() == Phase::Aiming; });
    const auto held = [&](int player) {
        for (int k = 1; k < game::kKinds; ++k)
            if (m.holds(player, ProjectileKind(k))) return ProjectileKind(k);
        return ProjectileKind::Normal;
    };
    EXPECT_EQ(held(0), ProjectileKind::Normal) << "after four wasted throws";
    // Player 2 wasted his four throws in the last round: hitting with his first of this one
    // wins him a special projectile, announced and shown at his next turn, and gone once thrown.
    ASSERT_TRUE(play.dropOn(0));
    const ProjectileKind won = held(1);
    ASSERT_NE(won, ProjectileKind::Normal);
    ASSERT_TRUE(play.throwAt(10, 999));
    const char* const announcement[] = {"", "sounds/nBan.wav", "sounds/wBan.wav",
                                        "sounds/mBan.wav"};
    EXPECT_EQ(play.sounds.back(), announcement[static_cast<int>(won)]);
    EXPECT_EQ(m.selectorLeft(won), 28) << "5 pixels right of the normal one's";
    ASSERT_TRUE(play.throwAt(10, 999, won));
    EXPECT_EQ(held(1), ProjectileKind::Normal);
}

// Gives both players every projectile: the code, and a throw each for it to show at their turn.
bool AllProjectiles(Play& play) {
    play.type(QStringLiteral("\\zap plinkos"));
    return play.throwAt(10, 999) && play.throwAt(10, 999);
}

TEST(Match, ANukeSparesACharacterWhoseLeftEdgeIsTheFirstColumnOfItsBuilding) {
    game::MatchSetup setup = CalmSetup(2, 5);
    // One pixel wider than the shipped character, he can fly, 3 pixels at a time, onto the
    // first column of his building.
    setup.players[0].art = Resized(setup.players[0].art, 45, 70);
    Play play(setup);
    const game::Match& m = play.started().match;
    ASSERT_TRUE(AllProjectiles(play));
    const game::Figure& me = m.figure(0);
    int first = me.pos.x() + 20;
    while (m.scene().point(first - 1, 460) != m.sky().point(first - 1, 460)) --first;
    play.type(QStringLiteral("\\hop fremble"));
    while (me.pos.x() > first) play.tap(game::key::kLeft);
    ASSERT_EQ(me.pos.x(), first);
    ASSERT_TRUE(play.throwAt(90, 0, ProjectileKind::Nuke));
    EXPECT_EQ(m.scene().point(first, 465), m.sky().point(first, 465)) << "the building is gone";
    EXPECT_TRUE(me.inPlay());
    EXPECT_EQ(m.stats(0).misses, 2) << "a nuke that takes nobody is a miss";
}

// Pixels of the building's columns in row `y` that show the sky.
int SkyInRow(const game::Match& m, const game::Span& b, int y) {
    int sky = 0;
    for (int x = b.left; x < b.right; ++x) sky += m.scene().point(x, y) == m.sky().point(x, y);
    return sky;
}

TEST(Match, ANukedBuildingCrumblesFromTheGroundUpAndItsCharacterDissolvesAtAPaceOneSees) {
    game::MatchSetup setup = CalmSetup(2, 61);
    setup.settings.buildingHeight = 12;
    Play play(setup);
    const game::Match& m = play.started().match;
    ASSERT_TRUE(AllProjectiles(play));
    // The nuke falls onto the enemy's roof beside him, from the thrower's hand above it.
    const game::Figure& enemy = m.figure(1);
    const game::Span b = game::buildingAt(m.sky(), m.scene(), enemy.pos.x() + enemy.width() / 2);
    const int roof = game::rowAboveRoof(m.sky(), m.scene(), b);
    const int drop = enemy.pos.x() - b.left > 16 ? b.left + 3 : enemy.pos.x() + enemy.width() + 3;
    ASSERT_LT(drop + 10, b.right) << "a roof with room beside the enemy";
    ASSERT_GT(game::kGroundLine - roof, 280) << "one of the tallest buildings";
    play.flyTo({drop, roof - m.figure(0).height() - 60});
    play.launch(90, 0, ProjectileKind::Nuke);
    ASSERT_TRUE(play.runUntil([&] { return m.phase() == Phase::Dissolving; }));
    const int rows = game::kGroundLine - roof + 1, start = m.now();
    play.runUntil([&] { return m.now() - start >= rows; });
    EXPECT_GT(SkyInRow(m, b, game::kGroundLine - 1), 0) << "the ground rows crumble first";
    EXPECT_EQ(SkyInRow(m, b, roof + 2), 0) << "while the roof still stands";
    EXPECT_EQ(m.phase(), Phase::Dissolving);
    const int dissolved = Lasts(play, Phase::Dissolving) + (m.now() - start);
    EXPECT_GE(dissolved, rows * 3 / 2) << rows << " rows";
    EXPECT_LE(dissolved, rows * 5 / 2) << rows << " rows";
    EXPECT_EQ(SkyInRow(m, b, roof + 2), b.right - b.left) << "then it is gone";
    // The thrower hovers over the building too, and goes with it first.
    ASSERT_EQ(m.phase(), Phase::Vaporizing);
    const game::Figure& thrower = m.figure(0);
    const auto skyShown = [&] {
        int n = 0;
        for (int y = 0; y < thrower.height(); ++y)
            for (int x = 0; x < thrower.width(); ++x)
                n += thrower.canvas().point(x, y) ==
                     m.sky().point(thrower.pos.x() + x, thrower.pos.y() + y);
        return n;
    };
    const int before = skyShown();
    play.run(200);
    const int midway = skyShown();
    EXPECT_GT(midway, before) << "he dissolves bit by bit";
    EXPECT_LT(midway - before, (thrower.width() * thrower.height() - before) * 3 / 4);
    const int vaporized = Lasts(play, Phase::Vaporizing) + 200;
    EXPECT_GE(vaporized, 300);
    EXPECT_LE(vaporized, 800);
    EXPECT_FALSE(thrower.inPlay());
}

TEST(Match, TeamsThrowInTurnsPassingOverTheFraggedAndTheLastRoundEndsTheMatch) {
    game::MatchSetup setup = CalmSetup(4, 9);
    setup.settings.fragLimit = 1;
    // Player 3 is 41 pixels high: his blast grows to radius 20, half his height rounded down.
    setup.players[2].art = Resized(setup.players[2].art, 44, 41);
    Play play(setup);
    const game::Match& m = play.started().match;
    std::vector<int> order;
    for (int i = 0; i < 4; ++i) {
        order.push_back(m.currentPlayer());
        ASSERT_TRUE(play.throwAt(10, 999));
    }
    EXPECT_EQ(order, (std::vector<int>{0, 2, 1, 3}));
    // Player 1 frags player 3: no score yet, and player 3 is passed over.
    ASSERT_TRUE(play.dropOn(2));
    const core::Colour ring(134, 20, 2);
    EXPECT_EQ(m.figure(2).canvas().point(2, 20), ring);
    EXPECT_NE(m.figure(2).canvas().point(1, 20), ring);
    EXPECT_EQ(m.currentPlayer(), 1) << "after 0 comes 2, who is gone";
    // Player 2 frags his team mate: no score for either team.
    ASSERT_TRUE(play.dropOn(0));
    EXPECT_EQ(m.stats(1).points, -5000);
    EXPECT_EQ(m.leftScore() + m.rightScore(), 0);
    EXPECT_EQ(m.currentPlayer(), 3);
    // Player 4 frags player 2: the left team is gone, and with it the match. The game-over box
    // is due five seconds later, and Escape does not pause a finished match.
    ASSERT_TRUE(play.dropOn(1));
    EXPECT_EQ(m.rightScore(), 1);
    ASSERT_TRUE(m.over());
    const int boardAt = m.now();
    play.tap(game::key::kEscape);
    EXPECT_FALSE(m.paused());
    play.runUntil([&] { return m.gameOverShown(); });
    EXPECT_EQ(m.now() - boardAt, 5001) << "a wait of 5000 ms";
    EXPECT_EQ(play.events.back().kind, Kind::GameOver);
}

TEST(Match, KnownCharactersThrowAndCryByTheirExactNameAndANewRoundOfTeamsStandsEveryoneUp) {
    game::MatchSetup setup = CalmSetup(4, 9);
    const char* const names[] = {"Dunik", "Sorcerer Grumbo", "Vostrel", "dunik"};
    for (int i = 0; i < 4; ++i) {
        setup.players[i].character = QString::fromLatin1(names[i]);
        setup.players[i].art =
            ShippedArt(i == 3 ? QStringLiteral("Dunik") : setup.players[i].character);
    }
    Play play(setup);
    const game::Match& m = play.started().match;
    const auto soundsOf = [&](const std::function<void()>& what) {
        play.sounds.clear();
        what();
        return play.sounds;
    };
    // Turns go 1, 3, 2, 4; a look-alike name throws and cries like anyone.
    const QStringList throws{"sounds/dThrow.wav", "sounds/vGrr.wav", "sounds/sThrow.wav",
                             "sounds/throw.wav"};
    for (const QString& t : throws)
        EXPECT_EQ(soundsOf([&] { ASSERT_TRUE(play.throwAt(10, 999)); }).value(0), t);
    EXPECT_TRUE(soundsOf([&] { play.dropOn(2); }).contains("sounds/vGrr.wav"));
    ASSERT_EQ(m.currentPlayer(), 1);
    const QStringList plain = soundsOf([&] { play.dropOn(3); });
    EXPECT_TRUE(plain.contains("sounds/ge.wav") && !plain.contains("sounds/dHit.wav"));
    ASSERT_EQ(m.leftScore(), 1);
    ASSERT_TRUE(play.runUntil([&] { return m.phase() == Phase::Aiming; }));
    EXPECT_EQ(m.round(), 2);
    // After player 2 the turn goes to player 4, though he fell in the round before; everyone
    // stands on a roof again.
    ASSERT_EQ(m.currentPlayer(), 3);
    for (int i = 0; i < 4; ++i) {
        const QRect r = m.figure(i).rect();
        const int middle = r.left() + r.width() / 2;
        EXPECT_TRUE(m.figure(i).inPlay() && m.scene().point(middle, r.bottom() + 1) !=
                                                m.sky().point(middle, r.bottom() + 1))
            << "player " << i + 1;
    }
    EXPECT_TRUE(soundsOf([&] { play.dropOn(0); }).contains("sounds/dHit.wav"));
}

TEST(Match, EscapeFreezesEverythingButTheMusicWhoseTunesChangeAtTheirLength) {
    game::MatchSetup setup = ShippedSetup();
    setup.settings.music = true;
    Play play(setup);
    const game::Match& m = play.match;
    const int tune = m.tune();
    EXPECT_EQ(play.events.front(), (game::MatchEvent{Kind::PlayTune, {}, tune}));
    play.started();
    const int played = m.now() + 200 + 20;
    play.launch(60, 60);
    play.run(200);
    play.tap(game::key::kEscape);
    ASSERT_TRUE(m.paused());
    EXPECT_FALSE(m.canThrow());
    const QPoint frozen = m.projectile().pos;
    const int now = m.now();
    play.events.clear();
    play.run(game::tuneSeconds(tune) * 1000 - played - 1);
    EXPECT_TRUE(play.events.empty());
    play.run(1);
    EXPECT_EQ(play.events, (std::vector<game::MatchEvent>{{Kind::CloseTune, {}, tune},
                                                          {Kind::PlayTune, {}, m.tune()}}));
    EXPECT_EQ(m.projectile().pos, frozen);
    EXPECT_EQ(m.now(), now);
    play.send(game::Command::Kind::Resume);
    play.run(100);
    EXPECT_NE(m.projectile().pos, frozen);
}

TEST(Match, CodesStartWithABackslashAndEndAtTheirTwelfthCharacter) {
    Play play(ShippedSetup());
    const game::Match& m = play.started().match;
    const QPoint standing = m.figure(0).pos;
    play.tap(game::key::kLeft);
    EXPECT_EQ(m.figure(0).pos, standing) << "no flying without the code";
    play.type(QStringLiteral("hop fremble"));
    EXPECT_FALSE(m.modes().flying) << "no backslash, no code";
    play.type(QStringLiteral("\\qix fremble"));
    EXPECT_TRUE(m.modes().invulnerable);
    play.type(QStringLiteral("X"));
    EXPECT_EQ(m.carry().codes.text(), "") << "a thirteenth character empties the buffer";
    play.type(QStringLiteral("\\hop fremble"));
    for (int i = 0; i < 4; ++i) play.tap(game::key::kLeft);
    play.tap(game::key::kUp);
    EXPECT_EQ(m.figure(0).pos, standing + QPoint(-12, -3));
    EXPECT_EQ(m.projectile().pos, m.figure(0).pos + QPoint(0, -11)) << "parked at his hand";
}

// Whether the first contact at or below 450 of a war projectile thrown from the hand straight
// up at `velocity` has its top edge at 450, and whether it earned points there.
std::pair<bool, bool> LowContactAt450(Play play, int velocity) {
    const game::Match& m = play.match;
    const int thrower = m.currentPlayer(), before = m.stats(thrower).points;
    play.launch(90, velocity, ProjectileKind::War);
    for (play.sounds.clear(); m.phase() == Phase::Flying; play.sounds.clear()) {
        play.run(1);
        if (play.sounds.contains(QLatin1String("sounds/bc.wav")) && m.projectile().pos.y() >= 450)
            return {m.projectile().pos.y() == 450, m.stats(thrower).points > before};
    }
    return {false, false};
}

TEST(Match, AWarProjectileEarnsPointsAtEveryContactWithItsTopEdgeAt450OrLower) {
    Play play(CalmSetup(2, 21));
    play.started();
    ASSERT_TRUE(AllProjectiles(play));
    bool found = false;
    for (int velocity = 0; velocity < 100 && !found; ++velocity) {
        const auto [exactly, earned] = LowContactAt450(play, velocity);
        found = exactly;
        EXPECT_TRUE(earned || !exactly) << "velocity " << velocity;
    }
    EXPECT_TRUE(found);
}

}  // namespace
