#pragma once
// What an impact does to the city and to a hit character, one animation step at a time.
#include <QPoint>

#include "core/Canvas.h"
#include "core/Random.h"
#include "game/Figure.h"

namespace game {

constexpr int kCraterRadius = 8;
// The rows of a building's base on which a nuke looks for its sides.
constexpr int kScanRow = 460;
// Random pixels turned to sky in every row of a dissolving building.
constexpr int kDissolvePixelsPerRow = 22;
// Random picks that turn a nuked character into the sky behind him.
constexpr int kVaporizePicks = 4000;

// Ring `radius` of a growing crater, dark red, centred at `centre`.
void drawCraterRing(core::Canvas& scene, QPoint centre, int radius);
// The hole every building hit leaves: a disc of radius 8 at `centre` through which the sky shows.
void cutCraterHole(core::Canvas& scene, const core::Canvas& sky, QPoint centre);

// A building's columns from `left` up to, not including, `right`.
struct Span {
    int left, right;
    // A character stands on the building when his left edge lies strictly inside it.
    bool carries(int characterLeft) const { return characterLeft > left && characterLeft < right; }
};
// The building touched at `x`, found along the scan row; a building that reaches the edge of the
// field ends there.
Span buildingAt(const core::Canvas& sky, const core::Canvas& scene, int x);
// The first row above the building's roof: both its side columns show sky there.
int rowAboveRoof(const core::Canvas& sky, const core::Canvas& scene, const Span& building);
// Turns random pixels of row `y` of the building into sky.
void dissolveRow(core::Canvas& scene, const core::Canvas& sky, const Span& building, int y,
                 core::Random& random);
// Turns the building's columns into sky from `roof` to the ground.
void clearBuilding(core::Canvas& scene, const core::Canvas& sky, const Span& building, int roof);

// Ring `radius` of the blast that grows over a hit character.
void drawBlastRing(Figure& figure, int radius);
// One random pick of a nuked character: the pixel takes the sky behind it.
void vaporizePick(Figure& figure, const core::Canvas& sky, core::Random& random);

}  // namespace game
