// Collision by colour, what a nuke and a blast do, the points popup and the turn marker: on small
// canvases, pixel by pixel.
#include <gtest/gtest.h>

#include "core/Transparency.h"
#include "game/Collision.h"
#include "game/Damage.h"
#include "game/Indicator.h"
#include "game/PointsPopup.h"

using namespace game;

namespace {

constexpr core::Colour kSky{10, 20, 200}, kWall{120, 120, 120}, kBody{200, 30, 60};

// A sky with one building from x = 200 to 259 and from row 300 down; the city is that building.
struct Field {
    core::Canvas sky{kFieldWidth, kFieldHeight, kSky};
    core::Canvas scene = sky;
    Field() { scene.fillRect(200, 300, 259, kFieldHeight - 1, kWall); }
};

// A 40 x 60 character, white around a body from x 10 to 29 and y 10 down, made see-through at
// `place` against `scene`.
Figure Character(const core::Canvas& scene, QPoint place) {
    core::Canvas picture(40, 60);
    picture.fillRect(10, 10, 29, 59, kBody);
    Figure f;
    f.put(picture);
    f.pos = place;
    core::makeTransparent(f.canvas(),
                          [&](int x, int y) { return scene.point(place.x() + x, place.y() + y); });
    return f;
}

// Player 0 throws; player 1 stands in the sky at (100, 100), player 2 in front of the building at
// (200, 280), player 3 is out of play.
TEST(Impact, ACharacterIsTouchedWhereHisPictureDiffersFromTheSky) {
    const Field field;
    std::vector<Figure> figures{
        Character(field.scene, {500, 100}), Character(field.scene, {100, 100}),
        Character(field.scene, {200, 280}), Character(field.scene, {300, 100})};
    figures[3].park();
    const std::vector<const Figure*> all{&figures[0], &figures[1], &figures[2], &figures[3]};
    const std::optional<int> none;
    // Over the body, the lower sample on it, white showing the sky, white showing the building,
    // the thrower himself, a character out of play.
    for (const auto& [projectile, touched] : {std::pair(QPoint(115, 120), std::optional(1)),
                                              {{115, 101}, 1},
                                              {{101, 120}, none},
                                              {{201, 300}, 2},
                                              {{515, 120}, none},
                                              {{315, 477}, none}})
        EXPECT_EQ(touchedCharacter(QRect(projectile, QSize(10, 10)), all, 0, field.sky), touched)
            << projectile.x() << ", " << projectile.y();
}

TEST(Impact, BuildingsAreLookedForFromTheTopEdge168DownOnTwoSamples) {
    Field field;
    field.scene.fillRect(400, 170, 460, 400, kWall);
    EXPECT_EQ(touchedBuilding({410, 167, 10, 10}, field.sky, field.scene), std::nullopt);
    EXPECT_EQ(touchedBuilding({410, 168, 10, 10}, field.sky, field.scene), 410);
    EXPECT_EQ(touchedBuilding({392, 200, 10, 10}, field.sky, field.scene), 402)
        << "the sample 10 pixels right of the left edge";
    EXPECT_EQ(touchedBuilding({389, 200, 10, 10}, field.sky, field.scene), std::nullopt)
        << "both samples in the sky";
}

TEST(Impact, ANukeFindsItsBuildingOnTheScanRowAndTurnsItToSky) {
    Field field;
    field.scene.fillRect(300, 250, 347, kFieldHeight - 1, kWall);
    field.scene.fillRect(690, 200, kFieldWidth - 1, kFieldHeight - 1, kWall);
    const Span b = buildingAt(field.sky, field.scene, 320);
    EXPECT_EQ(b.left, 300);
    EXPECT_EQ(b.right, 348);
    EXPECT_EQ(rowAboveRoof(field.sky, field.scene, b), 249);
    EXPECT_EQ(buildingAt(field.sky, field.scene, 700).right, kFieldWidth)
        << "a building at the border ends there";
    core::Random random(3);
    for (int y = kGroundLine; y >= 249; --y) dissolveRow(field.scene, field.sky, b, y, random);
    clearBuilding(field.scene, field.sky, b, 249);
    for (int x = 300; x < 348; x += 5) EXPECT_EQ(field.scene.point(x, 400), kSky) << x;
    EXPECT_EQ(field.scene.point(259, 400), kWall) << "the neighbour stands";
}

TEST(Impact, ThePopupRisesAPixelEvery21MsThenFadesIntoTheCityBehindIt) {
    const core::Colour white = core::kWhite, faded(251, 248, 248), city(130, 20, 20);
    const core::Canvas scene(kFieldWidth, kFieldHeight, city);
    PointsPopup p;
    p.start(25000, 100, 44, 300, 0);
    EXPECT_EQ(p.pos(), QPoint(94, 290)) << "centred over the character, 10 above him";
    for (const auto& [at, top, colour] : {std::tuple(20, 290, white),
                                          {21, 289, white},
                                          {588, 262, white},
                                          {608, 262, white},
                                          {609, 262, faded},
                                          {813, 262, city}}) {
        p.advanceTo(at, scene);
        EXPECT_TRUE(p.visible() && p.pos().y() == top && p.colour() == colour) << at << " ms";
    }
    p.advanceTo(819, scene);
    EXPECT_FALSE(p.visible());
}

TEST(Impact, TheMarkerBobsTwiceRestsAndIsGoneAtTheFifteenthTick) {
    const core::Canvas sky(kFieldWidth, kFieldHeight, kSky);
    core::Canvas marker(20, 24);
    marker.fillRect(5, 5, 14, 18, kBody);
    Indicator i;
    i.start(marker, {100, 300, 44, 70}, 0, 0);
    EXPECT_EQ(i.picturePos(), QPoint(112, 225));
    EXPECT_EQ(i.labelPos(), QPoint(48, 205)) << "147 wide, centred, ties to even";
    EXPECT_FALSE(i.visible()) << "until the first tick";
    const int tops[] = {233, 229, 225, 233, 229, 225, 225, 225, 225, 225, 225, 225, 225, 225};
    for (int tick = 1; tick <= 14; ++tick) {
        i.tick(sky, tick * Indicator::kTickMs);
        EXPECT_TRUE(i.visible() && i.picturePos().y() == tops[tick - 1]) << "tick " << tick;
    }
    EXPECT_EQ(i.picture().point(0, 0), kSky) << "its white takes the sky";
    // Marked again while it runs: it moves, and the count goes on, so it ends sooner.
    i.start(marker, {400, 200, 44, 70}, 1, 0);
    EXPECT_EQ(i.picturePos(), QPoint(412, 125));
    i.tick(sky, 2000);
    EXPECT_FALSE(i.visible() || i.running());
    EXPECT_EQ(i.count, 0);
}

}  // namespace
