// The rules that are tables and formulas, each row named in the message of a failed check: the
// field's edges, the magnetic pull, near misses, special projectiles, the wind and what the aiming
// boxes let through. The flight, the hit points, the accuracy shown and the flight tick are the
// golden runs' to see.
#include <gtest/gtest.h>

#include <string_view>

#include "core/Random.h"
#include "game/Field.h"
#include "game/Flight.h"
#include "game/Match.h"
#include "game/Scoring.h"
#include "game/Wind.h"

using namespace game;

namespace {

TEST(Rules, AnglesCountFromTheThrowersForwardDirectionAndTheFieldHasMargins) {
    EXPECT_EQ(throwAngle(45, false), 45);
    EXPECT_EQ(throwAngle(999, true), -819) << "180 - 999, mirrored for the right side";
    for (const auto& [left, top] : {std::pair(762, 0), {-40, 0}, {0, 486}, {0, -1800}})
        EXPECT_FALSE(offField(left, top)) << left << ", " << top;
    for (const auto& [left, top] : {std::pair(763, 0), {-41, 0}, {0, 487}, {0, -1801}})
        EXPECT_TRUE(offField(left, top)) << left << ", " << top;
}

struct PullRow {
    const char* name;
    QPoint projectile;  // top-left of a 10 x 10 projectile
    double pullX, pullY;
    double expectX, expectY;
};

// Player 1 (left 500, top 300, 40 wide) is the only one who can pull; player 0 throws.
TEST(Rules, TheMagneticPullActsInZonesBesideACharacter) {
    for (const PullRow& r : {PullRow{"60 above is too high", {470, 240}, 0, 0, 0, 0},
                             {"40 above inside the left zone", {456, 260}, 0, 0, 0.7, 0},
                             {"the left zone's outer end", {455, 260}, 0, 0, 0, 0},
                             {"the left zone's inner end", {510, 260}, 0, 0, 0, 0},
                             {"an opposing pull is reset first", {470, 260}, -2.1, 0, 0.7, 0},
                             {"the right zone pulls left", {570, 260}, 0.7, 0, -0.7, 0},
                             {"30 above gets no lift", {470, 270}, 0, 0, 0.7, 0},
                             {"29 above gets lift", {470, 271}, 0, -0.4, 0.7, 0.2},
                             {"the thrower never pulls", {60, 300}, 0, 0, 0, 0}}) {
        Flight f{.hand = {}, .pullX = r.pullX, .pullY = r.pullY};
        pullTowardsCharacters(f, QRect(r.projectile, QSize(10, 10)),
                              {QRect(80, 300, 40, 60), QRect(500, 300, 40, 60)}, 0);
        EXPECT_NEAR(f.pullX, r.expectX, 1e-9) << r.name;
        EXPECT_NEAR(f.pullY, r.expectY, 1e-9) << r.name;
    }
}

TEST(Rules, OnlyTheFirstCharacterInRangePullsAndThePullGrowsEveryTick) {
    // The projectile is in the left zone of player 2 and in the right zone of player 3.
    Flight f;
    const std::vector<QRect> team{
        {0, 300, 40, 60}, {100, 300, 40, 60}, {600, 300, 40, 60}, {560, 300, 40, 60}};
    for (int tick = 0; tick < 10; ++tick) pullTowardsCharacters(f, {585, 280, 10, 10}, team, 0);
    EXPECT_NEAR(f.pullX, 7.0, 1e-9) << "only player 2 pulls";
    // At three time units the pull of 7 has moved it 21 pixels.
    Flight still{.hand = {}, .ticks = 30};
    Flight pulled = still;
    pulled.pullX = f.pullX;
    EXPECT_EQ(flightPosition(pulled, 9.8).x() - flightPosition(still, 9.8).x(), 21);
}

constexpr auto k1v1 = GameType::OneVsOne, k2v2 = GameType::TwoVsTwo;

TEST(Rules, NearMissesEarnLessTheFartherTheNearestEnemy) {
    // Game, thrower, where it ended, the characters' middles, and the points.
    const std::optional<int> none;
    for (const auto& [type, thrower, x, centres, points] :
         {std::tuple(k1v1, 0, 296, std::array{0, 300, 0, 0}, none),
          {k1v1, 0, 295, {0, 300}, 20000},
          // The fractional quotient counts: 1000 / 7 x 100, not 142 x 100.
          {k1v1, 0, 293, {0, 300}, 14285},
          {k1v1, 0, 350, {0, 300}, 2000},
          {k1v1, 1, 800, {300, 0}, 200},
          {k2v2, 0, 300, {0, 0, 305, 304}, none},
          {k2v2, 0, 300, {0, 0, 400, 600}, 500},
          {k2v2, 1, 300, {0, 0, 400, 600}, 500},
          {k2v2, 3, 300, {400, 600, 0, 0}, 500}})
        EXPECT_EQ(nearMissPoints(type, thrower, x, centres), points)
            << "player " << thrower + 1 << " at " << x;
}

TEST(Rules, SpecialProjectilesGetRarerWithWastedThrows) {
    // Throws wasted, the draw of the kind, the draw of the chance, and the award.
    const std::optional<ProjectileKind> none;
    for (const auto& [wasted, kindDraw, chanceDraw, award] :
         {std::tuple(0, 0.5, 0.0, std::optional(ProjectileKind::War)),
          {0, 0.0, 0.0, ProjectileKind::Nuke},
          {1, 0.9, 0.23, ProjectileKind::Magnetic},  // 3 beats 2
          {1, 0.9, 0.2, none},
          {3, 0.0, 0.45, ProjectileKind::Nuke},  // 5 beats 4
          {3, 0.0, 0.44, none},
          {4, 0.0, 0.99, none}}) {
        core::Random random;
        random.queue({kindDraw, chanceDraw, 0.999});
        EXPECT_EQ(drawAward(random, wasted), award) << wasted << " wasted, " << chanceDraw;
        // Only a thrower who wasted one to three throws draws the chance.
        EXPECT_EQ(random.next(), wasted >= 1 && wasted <= 3 ? 0.999 : chanceDraw);
    }
}

using enum WindDirection;

TEST(Rules, WindDrawsDirectionThenStrengthAndGustsNeverCalm) {
    core::Random random;
    random.queue({0.6, 0.5});
    const Wind w = roundWind(random, 20);
    EXPECT_EQ(w.direction, Right);
    EXPECT_DOUBLE_EQ(w.strength, 0.11);
    EXPECT_DOUBLE_EQ(w.drift(), 0.11);
    random.queue({0.2, 0.9});
    const Wind calm = roundWind(random, 0);
    EXPECT_EQ(calm.direction, Left);
    EXPECT_EQ(calm.strength, 0);
    EXPECT_EQ(random.next(), 0.9) << "no strength drawn";
    // A gust draws the strength first, and gives 0.01 even without extremity.
    random.queue({0.7, 0.1});
    const Wind g = gust(calm, random, 0);
    EXPECT_DOUBLE_EQ(g.strength, 0.01);
    EXPECT_EQ(g.direction, Left);
    EXPECT_DOUBLE_EQ(g.drift(), -0.01);
    // A wind without a direction keeps none and draws none.
    random.queue({0.999, 0.3});
    const Wind still = gust({}, random, 35);
    EXPECT_DOUBLE_EQ(still.strength, 0.36);
    EXPECT_EQ(still.direction, None);
    EXPECT_EQ(random.next(), 0.3);
}

TEST(Rules, TheAimingBoxesTakeDigitsAndControlCharactersOnly) {
    // Backspace, Tab, Enter, Ctrl+V and the last control character pass, as do the digits.
    for (char16_t c : std::u16string_view(u"\b\t\r\x16\x1F"
                                          u"0123456789"))
        EXPECT_TRUE(aimingAccepts(c)) << int(c);
    for (char16_t c : std::u16string_view(u" -./:a\x7F\u0660\uFF10\u8000\uFFFF"))
        EXPECT_FALSE(aimingAccepts(c)) << int(c);
}

}  // namespace
