// The rules that are tables and formulas, each row reported under its own name: the flight, the
// field's edges, the magnetic pull, points, accuracy, special projectiles, the wind, the
// calibration and what the aiming boxes let through.
#include <gtest/gtest.h>

#include <string_view>

#include "core/Random.h"
#include "game/Calibration.h"
#include "game/Field.h"
#include "game/Flight.h"
#include "game/Match.h"
#include "game/Scoring.h"
#include "game/Wind.h"

using namespace game;

namespace {

struct FlightRow {
    const char* name;
    int angle, velocity, ticks;
    double drift;
    QPoint expected;  // relative to the hand
};
void PrintTo(const FlightRow& r, std::ostream* os) { *os << r.name; }
class FlightRows : public testing::TestWithParam<FlightRow> {};

TEST_P(FlightRows, PositionInClosedForm) {
    const FlightRow& r = GetParam();
    Flight f{.hand = {100, 200}, .ticks = r.ticks, .drift = r.drift};
    f.launch(r.angle, r.velocity);
    EXPECT_EQ(flightPosition(f, 9.8) - QPoint(100, 200), r.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Rules, FlightRows,
    testing::Values(
        // 45 degrees at 50: both components 35.
        FlightRow{"45 at 50 after 10 ticks", 45, 50, 10, 0, {35, -30}},
        FlightRow{"45 at 50 after 71 ticks", 45, 50, 71, 0, {248, -1}},
        FlightRow{"45 at 50 after 72 ticks below the hand", 45, 50, 72, 0, {252, 3}},
        // A right-side 45 is 135: the floor of -35.36 is -36.
        FlightRow{"135 at 50 floors to -36", 135, 50, 10, 0, {-36, -30}},
        FlightRow{"straight up at 0 only falls", 90, 0, 30, 0, {0, 45}},
        // A wind of 0.5 to the right: 5 after 10 ticks shifts 5, 15 after 30 ticks shifts 45.
        FlightRow{"drift 5 after 10 ticks", 90, 0, 10, 5, {5, 5}},
        FlightRow{"drift 15 after 30 ticks", 90, 0, 30, 15, {45, 45}}));

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
void PrintTo(const PullRow& r, std::ostream* os) { *os << r.name; }
class PullRows : public testing::TestWithParam<PullRow> {};

// Player 1 (left 500, top 300, 40 wide) is the only one who can pull; player 0 throws.
TEST_P(PullRows, ZonesOfPlayerOne) {
    const PullRow& r = GetParam();
    Flight f{.hand = {}, .pullX = r.pullX, .pullY = r.pullY};
    pullTowardsCharacters(f, QRect(r.projectile, QSize(10, 10)),
                          {QRect(80, 300, 40, 60), QRect(500, 300, 40, 60)}, 0);
    EXPECT_NEAR(f.pullX, r.expectX, 1e-9);
    EXPECT_NEAR(f.pullY, r.expectY, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(
    Rules, PullRows,
    testing::Values(PullRow{"60 above is too high", {470, 240}, 0, 0, 0, 0},
                    PullRow{"40 above inside the left zone", {456, 260}, 0, 0, 0.7, 0},
                    PullRow{"the left zone's outer end", {455, 260}, 0, 0, 0, 0},
                    PullRow{"the left zone's inner end", {510, 260}, 0, 0, 0, 0},
                    PullRow{"an opposing pull is reset first", {470, 260}, -2.1, 0, 0.7, 0},
                    PullRow{"the right zone pulls left", {570, 260}, 0.7, 0, -0.7, 0},
                    PullRow{"30 above gets no lift", {470, 270}, 0, 0, 0.7, 0},
                    PullRow{"29 above gets lift", {470, 271}, 0, -0.4, 0.7, 0.2},
                    PullRow{"the thrower never pulls", {60, 300}, 0, 0, 0, 0}));

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

struct NearMissRow {
    const char* name;
    GameType type;
    int thrower, impactX;
    std::array<int, 4> centres;
    std::optional<int> points;
};
void PrintTo(const NearMissRow& r, std::ostream* os) { *os << r.name; }
class NearMissRows : public testing::TestWithParam<NearMissRow> {};

TEST_P(NearMissRows, FallWithTheDistanceToTheEnemy) {
    const NearMissRow& r = GetParam();
    EXPECT_EQ(nearMissPoints(r.type, r.thrower, r.impactX, r.centres), r.points);
}

constexpr auto k1v1 = GameType::OneVsOne, k2v2 = GameType::TwoVsTwo;
INSTANTIATE_TEST_SUITE_P(
    Rules, NearMissRows,
    testing::Values(NearMissRow{"4 px away earns nothing", k1v1, 0, 296, {0, 300}, std::nullopt},
                    NearMissRow{"5 px away", k1v1, 0, 295, {0, 300}, 20000},
                    // The fractional quotient counts: 1000 / 7 x 100, not 142 x 100.
                    NearMissRow{"7 px away", k1v1, 0, 293, {0, 300}, 14285},
                    NearMissRow{"50 px away", k1v1, 0, 350, {0, 300}, 2000},
                    NearMissRow{"500 px away from player 1", k1v1, 1, 800, {300, 0}, 200},
                    NearMissRow{"teams 5 and 4 px", k2v2, 0, 300, {0, 0, 305, 304}, std::nullopt},
                    NearMissRow{"teams 100 and 300 px", k2v2, 0, 300, {0, 0, 400, 600}, 500},
                    NearMissRow{"teams from player 2", k2v2, 1, 300, {0, 0, 400, 600}, 500},
                    NearMissRow{"teams from player 4", k2v2, 3, 300, {400, 600, 0, 0}, 500}));

TEST(Rules, HitPointsGoByTheSidesAndAccuracyIsRoundedDown) {
    const struct {
        GameType type;
        int thrower, hit, points;
    } hits[] = {{k1v1, 0, 1, 25000}, {k1v1, 0, 0, -5000}, {k1v1, 1, 0, 25000}, {k2v2, 0, 1, -5000},
                {k2v2, 1, 2, 25000}, {k2v2, 2, 3, -5000}, {k2v2, 3, 0, 25000}};
    for (const auto& h : hits)
        EXPECT_EQ(hitPoints(h.type, h.thrower, h.hit), h.points) << h.thrower << " hits " << h.hit;
    EXPECT_EQ(accuracyPercent(0, 5), 0);
    EXPECT_EQ(accuracyPercent(2, 3), 40);
    EXPECT_EQ(accuracyPercent(1, 2), 33);
    EXPECT_EQ(accuracyPercent(3, 1), 75);
    EXPECT_EQ(accuracyPercent(2, 1), 66);
}

struct AwardRow {
    const char* name;
    int wasted;
    double kindDraw, chanceDraw;
    std::optional<ProjectileKind> award;
};
void PrintTo(const AwardRow& r, std::ostream* os) { *os << r.name; }
class AwardRows : public testing::TestWithParam<AwardRow> {};

TEST_P(AwardRows, ShrinkWithWastedThrows) {
    const AwardRow& r = GetParam();
    core::Random random;
    random.queue({r.kindDraw, r.chanceDraw, 0.999});
    EXPECT_EQ(drawAward(random, r.wasted), r.award);
    // Only a thrower who wasted one to three throws draws the chance.
    const bool chance = r.wasted >= 1 && r.wasted <= 3;
    EXPECT_EQ(random.next(), chance ? 0.999 : r.chanceDraw);
}

INSTANTIATE_TEST_SUITE_P(
    Rules, AwardRows,
    testing::Values(AwardRow{"no waste, war", 0, 0.5, 0.0, ProjectileKind::War},
                    AwardRow{"no waste, nuke", 0, 0.0, 0.0, ProjectileKind::Nuke},
                    AwardRow{"1 wasted, 3 beats 2", 1, 0.9, 0.23, ProjectileKind::Magnetic},
                    AwardRow{"1 wasted, 2 does not", 1, 0.9, 0.2, std::nullopt},
                    AwardRow{"3 wasted, 5 beats 4", 3, 0.0, 0.45, ProjectileKind::Nuke},
                    AwardRow{"3 wasted, 4 does not", 3, 0.0, 0.44, std::nullopt},
                    AwardRow{"4 wasted never", 4, 0.0, 0.99, std::nullopt}));

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

TEST(Rules, TheFlightTickFollowsTheLengthOfTheTestThrow) {
    // The area's width, the ticks the test takes, and the flight tick worked out from them.
    for (const auto& [width, ticks, tickMs] :
         {std::tuple(101, 30, 32), {126, 38, 26}, {130, 40, 24}, {133, 40, 24}}) {
        EXPECT_EQ(calibration::testTicks(width), ticks) << width << " pixels";
        EXPECT_EQ(calibration::flightTickMs(ticks), tickMs) << width << " pixels";
    }
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
