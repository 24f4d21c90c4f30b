#pragma once
// How a match is scored: sides and teams, the points of a hit, the points of a near miss, the
// chance of a special projectile, and the accuracy on the final board.
#include <QString>
#include <array>
#include <optional>

#include "core/Random.h"
#include "game/ProjectileArt.h"
#include "game/Settings.h"

namespace game {

constexpr int kEnemyHitPoints = 25000;
constexpr int kFriendlyHitPoints = -5000;

// In "1 vs 1" player 0 is the left side; in "2 vs 2" players 0 and 1 are the left team.
bool onLeftSide(GameType type, int player);
// +25000 for hitting an enemy, -5000 for hitting oneself or a team mate.
int hitPoints(GameType type, int thrower, int hit);

// The points of a building hit at `impactX`, by its distance to the enemy (the sum of the
// distances to both enemies in "2 vs 2"); none closer than 5 pixels to an enemy.
std::optional<int> nearMissPoints(GameType type, int thrower, int impactX,
                                  const std::array<int, 4>& centres);

// A special projectile for a thrower who hit after `wasted` throws without a hit: the kind is
// drawn first; after no wasted throw he always gets it, after one to three less and less often,
// after four or more never.
std::optional<ProjectileKind> drawAward(core::Random& random, int wasted);

// The share of his throws that fragged, in whole percent rounded down; 0 for a player who never
// hit.
int accuracyPercent(int frags, int misses);

}  // namespace game
