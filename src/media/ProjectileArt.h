#pragma once
#include <cstdint>
#include <vector>

namespace grumbo {

// A small RGB picture. Rows are stored top to bottom, each pixel 0xRRGGBB;
// pure white 0xFFFFFF is the see-through colour.
struct Sprite {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> rgb;
};

// Flight frame of a projectile: kind 0 normal, 1 nuke, 2 war, 3 magnetic;
// frame 0..3, each a quarter turn clockwise from the one before.
// Anything out of range gives an empty Sprite.
Sprite projectileFrame(int kind, int frame);

// The 12 x 12 picture on the projectile selector buttons (white background).
Sprite selectorIcon(int kind);

}  // namespace grumbo
