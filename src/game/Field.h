#pragma once
// The play field: its size, the rows that matter to the characters, where a projectile counts as
// gone, and its two skies. Pixels, origin at the top-left corner, x to the right, y downwards.
#include "core/Colour.h"

namespace game {

constexpr int kFieldWidth = 722;
constexpr int kFieldHeight = 466;
// The buildings stand on the field's bottom edge; a character whose top edge lies below it is
// out of play.
constexpr int kGroundLine = kFieldHeight;
// Characters out of play are parked here, just below the field.
constexpr int kOutOfPlay = kGroundLine + 1;
// The skyline ends two pixels short of the right edge.
constexpr int kSkylineEnd = 720;

// A projectile may go 40 pixels beyond either side, 20 below the ground line and far above the
// top before it counts as gone.
constexpr bool offField(int left, int top) {
    return top > kGroundLine + 20 || top < -1800 || left > kFieldWidth + 40 || left < -40;
}

// A sky runs from its top colour in the first row to its bottom colour in the last.
struct Sky {
    core::Colour top, bottom;
};
constexpr Sky kDaySky{{3, 61, 155}, {80, 167, 254}};
constexpr Sky kNightSky{{46, 11, 71}, {76, 7, 147}};

}  // namespace game
