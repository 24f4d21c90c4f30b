// The city of a round on pixels: buildings that close the skyline at 720, night and day shades,
// and the roofs the players stand on, for many seeds.
#include <set>

#include "GameSupport.h"
#include "game/Skyline.h"

using namespace game;

namespace {

TEST(City, EveryCityClosesAt720AndItsPlayersStandOnTheirSideOfIt) {
    const std::set<int> roofs[2][4] = {{{1, 2, 3}, {7, 8, 9}}, {{1, 2}, {3, 4}, {7, 8}, {9, 10}}};
    for (int players : {2, 4})
        for (bool day : {true, false})
            for (std::uint64_t seed = 1; seed <= 30; ++seed) {
                SCOPED_TRACE(testing::Message()
                             << players << " players, day " << day << ", seed " << seed);
                core::Random random(seed);
                const core::Canvas& sky = fieldSky(day);
                core::Canvas scene = sky;
                const City city = drawCity(scene, random, players, 8, day);
                // Rows from the ground up to the first pixel that is not sky.
                const auto roofHeight = [&](int x) {
                    int y = 0;
                    while (y < kGroundLine && scene.point(x, y) == sky.point(x, y)) ++y;
                    return kGroundLine - y;
                };
                const std::vector<Building>& b = city.buildings;
                ASSERT_TRUE(b.size() >= 10 && b.size() <= 15);
                ASSERT_EQ(roofHeight(0), 0) << "column 0 stays sky";
                ASSERT_EQ(roofHeight(720), 0);
                const std::set<int> greys = day ? std::set{150, 170, 125} : std::set{98, 85, 75};
                for (std::size_t k = 0; k < b.size(); ++k) {
                    ASSERT_EQ(b[k].left, k == 0 ? 0 : b[k - 1].left + b[k - 1].width);
                    ASSERT_TRUE(b[k].width % 12 == 0 && (b[k].width <= 72 || b[k].left == 636));
                    ASSERT_TRUE(b[k].height % 18 == 0 && b[k].height >= 90 && b[k].height <= 216);
                    ASSERT_EQ(roofHeight(b[k].left + 1), b[k].height);
                    const core::Colour roof = scene.point(b[k].left + 1, kGroundLine - b[k].height);
                    ASSERT_TRUE(greys.count(roof.red()) &&
                                roof == core::Colour(roof.red(), roof.red(), roof.red()));
                }
                ASSERT_EQ(b.back().left + b.back().width, kSkylineEnd);
                ASSERT_GT(roofHeight(719), 0);
                for (int p = 0; p < players; ++p) {
                    // A four-player city of ten buildings has no building 10: its last player
                    // takes the rightmost free roof.
                    const int k = city.roofOf[static_cast<std::size_t>(p)];
                    if (players == 4 && p == 3 && b.size() == 10) EXPECT_EQ(k, 9);
                    else
                        EXPECT_TRUE(roofs[players / 4][p].count(k))
                            << "player " << p << " on " << k;
                }
            }
}

}  // namespace
