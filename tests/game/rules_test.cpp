// The rules that are tables and formulas, each row reported on its own: the flight, the field's
// edges, the magnetic pull, points, accuracy, special projectiles, the wind, the calibration.
#include <gtest/gtest.h>

#include "core/Random.h"
#include "game/Calibration.h"
#include "game/Field.h"
#include "game/Flight.h"
#include "game/Scoring.h"
#include "game/Wind.h"

using namespace game;

namespace {

struct FlightRow {
    int angle, velocity, ticks;
    double drift;
    QPoint expected;  // relative to the hand
};
class FlightRows : public testing::TestWithParam<FlightRow> {};

TEST_P(FlightRows, PositionInClosedForm) {
    const FlightRow& r = GetParam();
    Flight f{{100, 200}, r.angle, r.velocity, r.ticks, r.drift, 0, 0};
    EXPECT_EQ(flightPosition(f, 9.8) - QPoint(100, 200), r.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Rules, FlightRows,
    testing::Values(
        // 45 degrees at 50: both components 35; after 10 ticks 30 up and 35 across.
        FlightRow{45, 50, 10, 0, {35, -30}}, FlightRow{45, 50, 71, 0, {248, -1}},
        // After 72 ticks the projectile is below where it left the hand, 252 across.
        FlightRow{45, 50, 72, 0, {252, 3}},
        // A right-side 45 is 135: the floor of -35.36 is -36.
        FlightRow{135, 50, 10, 0, {-36, -30}},
        // Straight up with nothing: it only falls.
        FlightRow{90, 0, 30, 0, {0, 45}},
        // A wind of 0.5 to the right: 5 after 10 ticks shifts 5, 15 after 30 ticks shifts 45.
        FlightRow{90, 0, 10, 5, {5, 5}}, FlightRow{90, 0, 30, 15, {45, 45}}));

TEST(Rules, AnglesCountFromTheThrowersForwardDirection) {
    EXPECT_EQ(throwAngle(45, false), 45);
    EXPECT_EQ(throwAngle(45, true), 135);
    EXPECT_EQ(throwAngle(0, true), 180);
    EXPECT_EQ(throwAngle(90, true), 90);
    EXPECT_EQ(throwAngle(999, true), -819);
}

TEST(Rules, TheProjectileIsGoneOnlyPastTheFieldsMargins) {
    EXPECT_FALSE(offField(762, 0));
    EXPECT_TRUE(offField(763, 0));
    EXPECT_FALSE(offField(-40, 0));
    EXPECT_TRUE(offField(-41, 0));
    EXPECT_FALSE(offField(0, 486));
    EXPECT_TRUE(offField(0, 487));
    EXPECT_FALSE(offField(0, -1800));
    EXPECT_TRUE(offField(0, -1801));
}

struct PullRow {
    const char* what;
    QPoint projectile;  // top-left of a 10 x 10 projectile
    double pullX, pullY;
    double expectX, expectY;
};
class PullRows : public testing::TestWithParam<PullRow> {};

// Player 1 (left 500, top 300, 40 wide) is the only one who can pull; player 0 throws.
TEST_P(PullRows, ZonesOfPlayerOne) {
    const PullRow& r = GetParam();
    Flight f;
    f.pullX = r.pullX;
    f.pullY = r.pullY;
    pullTowardsCharacters(f, QRect(r.projectile, QSize(10, 10)),
                          {QRect(80, 300, 40, 60), QRect(500, 300, 40, 60)}, 0);
    EXPECT_NEAR(f.pullX, r.expectX, 1e-9) << r.what;
    EXPECT_NEAR(f.pullY, r.expectY, 1e-9) << r.what;
}

INSTANTIATE_TEST_SUITE_P(
    Rules, PullRows,
    testing::Values(PullRow{"60 above: too high", {470, 240}, 0, 0, 0, 0},
                    PullRow{"40 above, inside the left zone", {456, 260}, 0, 0, 0.7, 0},
                    PullRow{"the left zone's outer end is excluded", {455, 260}, 0, 0, 0, 0},
                    PullRow{"the left zone's inner end is excluded", {510, 260}, 0, 0, 0, 0},
                    PullRow{"an opposing pull is reset first", {470, 260}, -2.1, 0, 0.7, 0},
                    PullRow{"the right zone pulls left", {570, 260}, 0.7, 0, -0.7, 0},
                    PullRow{"30 above: no lift", {470, 270}, 0, 0, 0.7, 0},
                    PullRow{"29 above: lift", {470, 271}, 0, -0.4, 0.7, 0.2},
                    PullRow{"the thrower never pulls", {60, 300}, 0, 0, 0, 0}));

TEST(Rules, OnlyTheFirstCharacterInRangePullsAndPullGrowsTick) {
    Flight f;
    const std::vector<QRect> team{
        {0, 300, 40, 60}, {100, 300, 40, 60}, {600, 300, 40, 60}, {640, 300, 40, 60}};
    for (int tick = 0; tick < 10; ++tick) pullTowardsCharacters(f, {600, 280, 10, 10}, team, 0);
    EXPECT_NEAR(f.pullX, 7.0, 1e-9) << "players 2 and 3 both in range, only 2 pulls";
    // At three time units the pull of 7 has moved it 21 pixels further right.
    Flight still{{0, 0}, 0, 0, 30, 0, 0, 0};
    Flight pulled = still;
    pulled.pullX = f.pullX;
    EXPECT_EQ(flightPosition(pulled, 9.8).x() - flightPosition(still, 9.8).x(), 21);
}

struct PointsRow {
    GameType type;
    int impactX;
    std::array<int, 4> centres;
    std::optional<int> points;
};
class NearMissRows : public testing::TestWithParam<PointsRow> {};

TEST_P(NearMissRows, FallWithTheDistanceToTheEnemy) {
    const PointsRow& r = GetParam();
    EXPECT_EQ(nearMissPoints(r.type, 0, r.impactX, r.centres), r.points);
}

INSTANTIATE_TEST_SUITE_P(
    Rules, NearMissRows,
    testing::Values(PointsRow{GameType::OneVsOne, 296, {0, 300}, std::nullopt},
                    PointsRow{GameType::OneVsOne, 295, {0, 300}, 20000},
                    // The fractional quotient counts: 1000 / 7 x 100, not 142 x 100.
                    PointsRow{GameType::OneVsOne, 293, {0, 300}, 14285},
                    PointsRow{GameType::OneVsOne, 350, {0, 300}, 2000},
                    PointsRow{GameType::OneVsOne, 800, {0, 300}, 200},
                    PointsRow{GameType::TwoVsTwo, 300, {0, 0, 305, 304}, std::nullopt},
                    PointsRow{GameType::TwoVsTwo, 300, {0, 0, 400, 600}, 500}));

TEST(Rules, HitPointsGoByTheSides) {
    EXPECT_EQ(hitPoints(GameType::OneVsOne, 0, 1), kEnemyHitPoints);
    EXPECT_EQ(hitPoints(GameType::OneVsOne, 0, 0), kFriendlyHitPoints);
    EXPECT_EQ(hitPoints(GameType::OneVsOne, 1, 0), kEnemyHitPoints);
    EXPECT_EQ(hitPoints(GameType::TwoVsTwo, 0, 1), kFriendlyHitPoints);
    EXPECT_EQ(hitPoints(GameType::TwoVsTwo, 1, 2), kEnemyHitPoints);
    EXPECT_EQ(hitPoints(GameType::TwoVsTwo, 2, 3), kFriendlyHitPoints);
    EXPECT_EQ(hitPoints(GameType::TwoVsTwo, 3, 0), kEnemyHitPoints);
}

TEST(Rules, AccuracyIsRoundedDownAndZeroWithoutFrags) {
    EXPECT_EQ(accuracyText(0, 5), "0 %");
    EXPECT_EQ(accuracyText(2, 3), "40 %");
    EXPECT_EQ(accuracyText(1, 2), "33 %");
    EXPECT_EQ(accuracyText(3, 1), "75 %");
    EXPECT_EQ(accuracyText(2, 1), "66 %");
}

struct AwardRow {
    int wasted;
    double kindDraw, chanceDraw;
    std::optional<ProjectileKind> award;
};
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
    testing::Values(AwardRow{0, 0.5, 0.0, ProjectileKind::War},
                    AwardRow{0, 0.0, 0.0, ProjectileKind::Nuke},
                    AwardRow{1, 0.9, 0.23, ProjectileKind::Magnetic},  // 3 of 1..9 beats 2
                    AwardRow{1, 0.9, 0.2, std::nullopt},
                    AwardRow{3, 0.0, 0.45, ProjectileKind::Nuke},  // 5 beats 4
                    AwardRow{3, 0.0, 0.44, std::nullopt}, AwardRow{4, 0.0, 0.99, std::nullopt}));

struct ArrowRow {
    double strength;
    WindDirection direction;
    int leftmost, rightmost;  // of the arrow's middle row
    const char* label;
};
class ArrowRows : public testing::TestWithParam<ArrowRow> {};

TEST_P(ArrowRows, GrowsTwoPixelsEachSideEveryTwoHundredths) {
    const ArrowRow& r = GetParam();
    core::Canvas box(kWindBox.width(), kWindBox.height(), core::kBlack);
    drawWindArrow(box, {r.strength, r.direction});
    int left = -1, right = -1;
    for (int x = 0; x < box.width(); ++x)
        if (box.point(x, 6) == kWindColour) {
            if (left < 0) left = x;
            right = x;
        }
    EXPECT_EQ(left, r.leftmost);
    EXPECT_EQ(right, r.rightmost);
    EXPECT_EQ(windText({r.strength, r.direction}), r.label);
}

INSTANTIATE_TEST_SUITE_P(
    Rules, ArrowRows,
    testing::Values(ArrowRow{0, WindDirection::Right, 40, 46, "0 pps"},
                    ArrowRow{0.01, WindDirection::Left, 38, 43, "1 pps"},
                    ArrowRow{0.03, WindDirection::Right, 38, 48, "3 pps"},
                    ArrowRow{0.05, WindDirection::Right, 36, 50, "5 pps"},
                    ArrowRow{0.21, WindDirection::Left, 18, 63, "21 pps"},
                    // The largest wind the box is laid out for spans x = 2 to 82.
                    ArrowRow{0.36, WindDirection::Left, 2, 79, "36 pps"},
                    ArrowRow{0.36, WindDirection::Right, 4, 82, "36 pps"},
                    // Before the first wind of the program the arrow has no head.
                    ArrowRow{0.21, WindDirection::None, 20, 63, "21 pps"}));

TEST(Rules, WindDrawsItsDirectionFirstAndIsCalmWithoutExtremity) {
    core::Random random;
    random.queue({0.6, 0.5});
    const Wind w = roundWind(random, 20);
    EXPECT_EQ(w.direction, WindDirection::Right);
    EXPECT_DOUBLE_EQ(w.strength, 0.11);
    EXPECT_DOUBLE_EQ(w.drift(), 0.11);
    random.queue({0.2, 0.9});
    const Wind calm = roundWind(random, 0);
    EXPECT_EQ(calm.direction, WindDirection::Left);
    EXPECT_EQ(calm.strength, 0);
    EXPECT_EQ(random.next(), 0.9) << "no strength drawn";
    // A gust draws the strength first, and gives 0.01 even without extremity.
    random.queue({0.7, 0.1});
    const Wind g = gust(calm, random, 0);
    EXPECT_DOUBLE_EQ(g.strength, 0.01);
    EXPECT_EQ(g.direction, WindDirection::Left);
    EXPECT_DOUBLE_EQ(g.drift(), -0.01);
}

struct CalibrationRow {
    int areaWidth, ticks, tickMs;
};
class CalibrationRows : public testing::TestWithParam<CalibrationRow> {};

TEST_P(CalibrationRows, TheFlightTickFollowsTheTestsLength) {
    const CalibrationRow& r = GetParam();
    EXPECT_EQ(calibration::testTicks(r.areaWidth), r.ticks);
    EXPECT_EQ(calibration::flightTickMs(r.ticks), r.tickMs);
}

INSTANTIATE_TEST_SUITE_P(Rules, CalibrationRows,
                         testing::Values(CalibrationRow{101, 30, 32}, CalibrationRow{126, 38, 26},
                                         CalibrationRow{130, 40, 24}, CalibrationRow{133, 40, 24}));

TEST(Rules, CalibrationReportsInPlainNumbers) {
    EXPECT_EQ(calibration::report(30), "Test completed in 720 ms, adjusted timers to 32");
}

}  // namespace
