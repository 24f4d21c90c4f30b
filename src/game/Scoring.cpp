#include "game/Scoring.h"

#include <cmath>
#include <cstdlib>

namespace game {

namespace {
// Closer than this to an enemy is no near miss but a hit that missed: it earns nothing.
constexpr int kNoPointsWithin = 5;
}  // namespace

bool onLeftSide(GameType type, int player) {
    return type == GameType::TwoVsTwo ? player <= 1 : player == 0;
}

int hitPoints(GameType type, int thrower, int hit) {
    return onLeftSide(type, thrower) == onLeftSide(type, hit) ? kFriendlyHitPoints
                                                              : kEnemyHitPoints;
}

std::optional<int> nearMissPoints(GameType type, int thrower, int impactX,
                                  const std::array<int, 4>& centres) {
    const auto distance = [&](int p) {
        return std::abs(centres[static_cast<std::size_t>(p)] - impactX);
    };
    if (type == GameType::TwoVsTwo) {
        const int firstEnemy = thrower <= 1 ? 2 : 0;
        const int d1 = distance(firstEnemy), d2 = distance(firstEnemy + 1);
        if (d1 < kNoPointsWithin || d2 < kNoPointsWithin) return std::nullopt;
        return static_cast<int>(std::floor(2000.0 / (d1 + d2) * 100));
    }
    const int d = distance(1 - thrower);
    if (d < kNoPointsWithin) return std::nullopt;
    return static_cast<int>(std::floor(1000.0 / d * 100));
}

std::optional<ProjectileKind> drawAward(core::Random& random, int wasted) {
    const auto kind = static_cast<ProjectileKind>(random.below(3) + 1);
    bool award = wasted == 0;
    if (wasted >= 1 && wasted <= 3) award = random.below(9) + 1 > wasted + 1;
    return award ? std::optional(kind) : std::nullopt;
}

int accuracyPercent(int frags, int misses) {
    if (frags == 0) return 0;
    return static_cast<int>(std::floor(static_cast<double>(frags) / (misses + frags) * 100));
}

}  // namespace game
