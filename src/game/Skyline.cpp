#include "game/Skyline.h"

#include <algorithm>
#include <cmath>

#include "core/Numbers.h"

namespace game {

namespace {

// Grey levels at a building's top and bottom line; the first three are the night's.
struct Shade {
    int top, bottom;
};
constexpr std::array<Shade, 6> kShades{
    {{98, 78}, {85, 67}, {75, 59}, {150, 128}, {170, 140}, {125, 100}}};
constexpr core::Colour kLitWindow{229, 244, 182};
constexpr core::Colour kDarkWindow{50, 50, 50};
constexpr int kFloor = 18, kColumn = 12;

int channel(float v) { return std::clamp(core::roundHalfEven(v), 0, 255); }

// Players 0 and 1 of "1 vs 1", or the left team of "2 vs 2", stand in the left part of the
// city; the others in the right part.
std::array<int, 4> drawRoofTable(core::Random& random, int players) {
    std::array<int, 4> roof{-1, -1, -1, -1};
    if (players == 2) {
        roof[0] = random.below(3) + 1;
        roof[1] = random.below(3) + 7;
    } else {
        roof[0] = random.below(2) + 1;
        roof[1] = random.below(2) + 3;
        roof[2] = random.below(2) + 7;
        roof[3] = random.below(2) + 9;
    }
    return roof;
}

// The last buildings close the skyline exactly at 720.
int closingWidth(int x, int width) {
    switch (x) {
        case 612: return 60;
        case 624: return 48;
        case 636: return 84;
        case 648: return 72;
        case 660: return 60;
        case 672: return 48;
        default: return width;
    }
}

void drawWindows(core::Canvas& scene, core::Random& random, const Building& b) {
    for (int wy = 0; wy <= b.height - kFloor; wy += kFloor)
        for (int wx = 0; wx <= b.width - kColumn; wx += kColumn) {
            const core::Colour c = random.below(2) == 0 ? kLitWindow : kDarkWindow;
            drawGradient(scene, c, c, static_cast<float>(b.left + wx + 4),
                         static_cast<float>(b.left + wx + 8),
                         static_cast<float>(kGroundLine - wy - 14),
                         static_cast<float>(kGroundLine - wy - 5));
        }
}

Building drawBuilding(core::Canvas& scene, core::Random& random, int x, int buildingHeight,
                      bool day) {
    const Shade s = kShades[static_cast<std::size_t>(random.below(3) + (day ? 3 : 0))];
    const int height = (random.below(buildingHeight) + 5) * kFloor;
    const int width = closingWidth(x, (random.below(3) + 4) * kColumn);
    const Building b{x, width, height};
    drawGradient(scene, core::Colour(s.top, s.top, s.top),
                 core::Colour(s.bottom, s.bottom, s.bottom), static_cast<float>(x + 1),
                 static_cast<float>(x + width), static_cast<float>(kGroundLine - height),
                 static_cast<float>(kGroundLine));
    drawWindows(scene, random, b);
    return b;
}

}  // namespace

void drawGradient(core::Canvas& canvas, core::Colour from, core::Colour to, float x1, float x2,
                  float y1, float y2) {
    const int left = core::roundHalfEven(x1), right = core::roundHalfEven(x2);
    if (from == to && y1 == std::floor(y1) && y2 == std::floor(y2)) {
        // One colour on whole rows: the lines are a rectangle, each stopping short of `right`.
        if (left != right)
            canvas.fillRect(left, static_cast<int>(y1), right + (left < right ? -1 : 1),
                            static_cast<int>(y2), from);
        else
            for (int y = static_cast<int>(y1); y <= static_cast<int>(y2); ++y)
                canvas.setPixel(left, y, from);
        return;
    }
    const float dR = (to.red() - from.red()) / (y2 - y1);
    const float dG = (to.green() - from.green()) / (y2 - y1);
    const float dB = (to.blue() - from.blue()) / (y2 - y1);
    float r = static_cast<float>(from.red()), g = static_cast<float>(from.green()),
          b = static_cast<float>(from.blue());
    for (float y = y1; y <= y2; y += 1.0f) {
        const int row = core::roundHalfEven(y);
        canvas.line(left, row, right, row, core::Colour(channel(r), channel(g), channel(b)));
        r += dR;
        g += dG;
        b += dB;
    }
}

void paintSky(core::Canvas& canvas, const Sky& sky) {
    drawGradient(canvas, sky.top, sky.bottom, 0, static_cast<float>(canvas.width()), 0,
                 static_cast<float>(canvas.height()));
}

const core::Canvas& fieldSky(bool day) {
    static const std::array<core::Canvas, 2> skies = [] {
        std::array<core::Canvas, 2> s{core::Canvas(kFieldWidth, kFieldHeight),
                                      core::Canvas(kFieldWidth, kFieldHeight)};
        paintSky(s[0], kNightSky);
        paintSky(s[1], kDaySky);
        return s;
    }();
    return skies[day ? 1 : 0];
}

City drawCity(core::Canvas& scene, core::Random& random, int players, int buildingHeight,
              bool day) {
    const std::array<int, 4> roof = drawRoofTable(random, players);
    City city;
    city.roofOf.fill(-1);
    int x = 0, next = 0;
    do {
        const Building b = drawBuilding(scene, random, x, buildingHeight, day);
        x += b.width;
        const int number = static_cast<int>(city.buildings.size());
        if (next < players && roof[next] == number) city.roofOf[next++] = number;
        city.buildings.push_back(b);
    } while (x < kSkylineEnd);

    // A four-player city may end before the building the roof table chose for the last player.
    // Nobody should sit out a round for that: he takes the rightmost roof nobody stands on.
    for (int p = 0; p < players; ++p) {
        if (city.roofOf[p] >= 0) continue;
        for (int b = static_cast<int>(city.buildings.size()) - 1; b >= 0; --b) {
            if (std::find(city.roofOf.begin(), city.roofOf.end(), b) != city.roofOf.end()) continue;
            city.roofOf[p] = b;
            break;
        }
    }
    return city;
}

QPoint standingPlace(const Building& b, int width, int height) {
    return {static_cast<int>(std::floor(b.left + b.width / 2.0 - width / 2.0)),
            kGroundLine - b.height - height};
}

}  // namespace game
