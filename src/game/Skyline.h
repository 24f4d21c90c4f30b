#pragma once
// The city of a round: a sky, then buildings left to right until the skyline reaches x = 720,
// each with lit and dark windows, and a roof table that says where every character stands.
#include <QPoint>
#include <array>
#include <vector>

#include "core/Canvas.h"
#include "core/Random.h"
#include "game/Field.h"

namespace game {

// Horizontal lines from row y1 to row y2, both included, whose colour runs from `from` to `to`.
// The colour of each line is the one before plus a step, in single precision, not a blend
// recomputed from y: the skies and the building shades are defined by these accumulated values.
void drawGradient(core::Canvas& canvas, core::Colour from, core::Colour to, float x1, float x2,
                  float y1, float y2);
void paintSky(core::Canvas& canvas, const Sky& sky);
// The field's day or night sky, painted once.
const core::Canvas& fieldSky(bool day);

struct Building {
    int left, width, height;
};

struct City {
    std::vector<Building> buildings;
    // The building each player stands on.
    std::array<int, 4> roofOf{};
};

// Draws a city over the sky already in `scene`. The random numbers are drawn in this order: the
// roof table, then for every building its shade, height and width and one number per window,
// bottom row first and left to right.
City drawCity(core::Canvas& scene, core::Random& random, int players, int buildingHeight, bool day);

// Where a character of the given size stands on `building`: centred, rounded down, its feet on
// the roof.
QPoint standingPlace(const Building& building, int width, int height);

}  // namespace game
