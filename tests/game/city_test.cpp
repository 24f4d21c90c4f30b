// The city of a round on pixels: skies, buildings that close the skyline at 720, shades and
// windows, the roofs the players stand on, and the same city from the same random numbers.
#include <set>

#include "GameSupport.h"
#include "game/Skyline.h"

using namespace game;

namespace {

constexpr core::Colour kLit{229, 244, 182}, kDark{50, 50, 50};

struct Drawn {
    core::Canvas sky, scene;
    City city;
};

Drawn Draw(core::Random& random, int players, bool day, int buildingHeight = 8) {
    Drawn d{core::Canvas(kFieldWidth, kFieldHeight), {}, {}};
    paintSky(d.sky, day ? kDaySky : kNightSky);
    d.scene = d.sky;
    d.city = drawCity(d.scene, random, players, buildingHeight, day);
    return d;
}

// Rows from the ground up to the first pixel that is not sky.
int RoofHeight(const Drawn& d, int x) {
    for (int y = 0; y < kGroundLine; ++y)
        if (d.scene.point(x, y) != d.sky.point(x, y)) return kGroundLine - y;
    return 0;
}

TEST(City, EveryCityClosesAt720AndItsPlayersStandOnTheirSideOfIt) {
    const std::set<int> roofs[2][4] = {{{1, 2, 3}, {7, 8, 9}}, {{1, 2}, {3, 4}, {7, 8}, {9, 10}}};
    for (int players : {2, 4})
        for (bool day : {true, false})
            for (std::uint64_t seed = 1; seed <= 30; ++seed) {
                SCOPED_TRACE(testing::Message()
                             << players << " players, day " << day << ", seed " << seed);
                core::Random random(seed);
                const Drawn d = Draw(random, players, day);
                const std::vector<Building>& b = d.city.buildings;
                ASSERT_TRUE(b.size() >= 10 && b.size() <= 15);
                ASSERT_EQ(RoofHeight(d, 0), 0) << "column 0 stays sky";
                ASSERT_GT(RoofHeight(d, 719), 0);
                ASSERT_EQ(RoofHeight(d, 720), 0);
                const std::set<int> greys =
                    day ? std::set<int>{150, 170, 125} : std::set<int>{98, 85, 75};
                for (std::size_t k = 0; k < b.size(); ++k) {
                    ASSERT_EQ(b[k].left, k == 0 ? 0 : b[k - 1].left + b[k - 1].width);
                    ASSERT_TRUE(b[k].width % 12 == 0 && (b[k].width <= 72 || b[k].left == 636));
                    ASSERT_TRUE(b[k].height % 18 == 0 && b[k].height >= 90 && b[k].height <= 216);
                    ASSERT_EQ(RoofHeight(d, b[k].left + 1), b[k].height);
                    const core::Colour roof =
                        d.scene.point(b[k].left + 1, kGroundLine - b[k].height);
                    ASSERT_TRUE(greys.count(roof.red()) &&
                                roof == core::Colour(roof.red(), roof.red(), roof.red()));
                }
                ASSERT_EQ(b.back().left + b.back().width, kSkylineEnd);
                for (int p = 0; p < players; ++p) {
                    const int k = d.city.roofOf[static_cast<std::size_t>(p)];
                    // A four-player city of ten buildings has no building 10: its last player takes
                    // the rightmost free roof.
                    const bool missing = players == 4 && p == 3 && b.size() == 10;
                    if (missing) EXPECT_EQ(k, 9);
                    else
                        EXPECT_TRUE(roofs[players / 4][p].count(k))
                            << "player " << p << " on " << k;
                }
            }
}

TEST(City, ACharacterStandsCentredOnHisRoofRoundedDown) {
    const Building b{96, 60, 144};
    EXPECT_EQ(standingPlace(b, 44, 70), QPoint(104, kGroundLine - 144 - 70));
    EXPECT_EQ(standingPlace(b, 45, 70), QPoint(103, kGroundLine - 144 - 70));
}

TEST(City, ScriptedDrawsBuildTheCityTheyDescribe) {
    // The roof table (1 and 9), then per building shade, height step and width step, then one
    // draw per window; 13 buildings of 48 reach 624, and the closing rule makes the last two 48.
    core::Random random;
    std::vector<double> draws{0.0, 0.99};
    for (int k = 0; k < 15; ++k) {
        const int heightStep = k % 8;
        draws.insert(draws.end(), {(k % 3 + 0.5) / 3, (heightStep + 0.5) / 8, k < 13 ? 0.1 : 0.9});
        draws.insert(draws.end(), static_cast<std::size_t>((heightStep + 5) * 4),
                     k % 2 ? 0.75 : 0.25);
    }
    random.queue(draws.begin(), draws.end());
    const Drawn d = Draw(random, 2, true);
    ASSERT_EQ(d.city.buildings.size(), 15u);
    EXPECT_EQ(d.city.roofOf[0], 1);
    EXPECT_EQ(d.city.roofOf[1], 9);
    // Building 5 (from 240): shade 5, top grey 125; (5 + 5) x 18 = 180 high; dark windows.
    EXPECT_EQ(RoofHeight(d, 241), 180);
    EXPECT_EQ(d.scene.point(241, kGroundLine - 180), core::Colour(125, 125, 125));
    EXPECT_EQ(d.scene.point(244, kGroundLine - 14), kDark);
    EXPECT_EQ(d.scene.point(244, kGroundLine - 5), kDark);
    EXPECT_NE(d.scene.point(244, kGroundLine - 4), kDark) << "a window is 10 rows";
    EXPECT_NE(d.scene.point(243, kGroundLine - 14), kDark) << "and 5 columns";
    EXPECT_EQ(d.scene.point(196, kGroundLine - 14), kLit) << "building 4 is lit";
    EXPECT_EQ(d.city.buildings[13].width, 48);
    EXPECT_EQ(d.city.buildings[14].left, 672);
    EXPECT_EQ(RoofHeight(d, 719), (6 + 5) * 18);
}

TEST(City, SkiesRunFromTheirTopColourToTheirBottomColour) {
    for (const Sky& sky : {kDaySky, kNightSky}) {
        core::Canvas c(kFieldWidth, kFieldHeight);
        paintSky(c, sky);
        EXPECT_EQ(c.point(0, 0), sky.top);
        EXPECT_EQ(c.point(721, 0), sky.top);
        const core::Colour last = c.point(0, kFieldHeight - 1);
        EXPECT_LE(
            std::abs(last.red() - sky.bottom.red()) + std::abs(last.blue() - sky.bottom.blue()), 2);
        for (int y = 1; y < kFieldHeight; ++y)
            ASSERT_GE(c.point(0, y).blue(), c.point(0, y - 1).blue()) << "row " << y;
    }
}

TEST(City, ARandomTimeOfDayIsNightInAboutHalfTheRounds) {
    int nights = 0;
    for (std::uint64_t seed = 1; seed <= 60; ++seed) {
        testing_support::Play play(testing_support::ShippedSetup(2, seed));
        play.started();
        nights += play.match.sky().point(0, 0) == kNightSky.top;
    }
    EXPECT_GE(nights, 18);
    EXPECT_LE(nights, 42);
}

}  // namespace
