#pragma once
// Collision by colour: a character is touched where his picture differs from the sky behind it,
// a building where the city differs from the sky. The sampling is sparse on purpose (one column
// for characters, one row for buildings, 10 pixels apart) to keep a check cheap; thin things can
// slip between two samples or two checks.
#include <QRect>
#include <optional>
#include <vector>

#include "core/Canvas.h"
#include "game/Figure.h"

namespace game {

// Buildings are only looked for from this top edge of the projectile down.
constexpr int kHighestBuildingCheck = 168;

// The first character, by index, that the projectile touches; the thrower and characters out of
// play are never touched.
std::optional<int> touchedCharacter(const QRect& projectile,
                                    const std::vector<const Figure*>& figures, int thrower,
                                    const core::Canvas& sky);
// The x of the first sample, left to right, at which the projectile touches a building.
std::optional<int> touchedBuilding(const QRect& projectile, const core::Canvas& sky,
                                   const core::Canvas& scene);

}  // namespace game
