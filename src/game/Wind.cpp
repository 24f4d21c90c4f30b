#include "game/Wind.h"

#include <cmath>

#include "core/Numbers.h"

namespace game {

namespace {
constexpr int kCentre = 42, kShaftRow = 6;

double strengthUpTo(core::Random& random, int extremity) {
    return core::roundDecimals(extremity * 0.01 * random.next() + 0.01, 2);
}

WindDirection drawDirection(core::Random& random) {
    return random.below(2) == 0 ? WindDirection::Left : WindDirection::Right;
}
}  // namespace

Wind roundWind(core::Random& random, int extremity) {
    Wind w;
    w.direction = drawDirection(random);
    // A match set to no wind has none, whatever an earlier match left behind.
    w.strength = extremity != 0 ? strengthUpTo(random, extremity) : 0;
    return w;
}

Wind gust(const Wind& now, core::Random& random, int extremity) {
    Wind w = now;
    w.strength = strengthUpTo(random, extremity);
    if (now.direction != WindDirection::None) w.direction = drawDirection(random);
    return w;
}

void drawWindArrow(core::Canvas& box, const Wind& wind) {
    // Every two hundredths lengthen the arrow by two pixels on each side.
    const int half = 2 * static_cast<int>(std::floor(wind.strength * 100 / 2)) + 2;
    box.line(kCentre - half, kShaftRow, kCentre + half, kShaftRow, kWindColour);
    if (wind.direction == WindDirection::None) return;
    const int tip = wind.direction == WindDirection::Left ? kCentre - half : kCentre + half;
    const int back = wind.direction == WindDirection::Left ? 1 : -1;
    box.line(tip, 4, tip, 9, kWindColour);
    box.line(tip - back, 5, tip - back, 8, kWindColour);
    box.line(tip - 2 * back, 6, tip - 2 * back, 7, kWindColour);
}

}  // namespace game
