#include "game/Collision.h"

namespace game {

namespace {
constexpr int kSampleStep = 10;
// A character is only sampled when the projectile's left edge is within this of his sides.
constexpr int kCharacterReach = 10;
}  // namespace

std::optional<int> touchedCharacter(const QRect& projectile,
                                    const std::vector<const Figure*>& figures, int thrower,
                                    const core::Canvas& sky) {
    const int p = projectile.left();
    for (int i = 0; i < static_cast<int>(figures.size()); ++i) {
        const Figure& c = *figures[static_cast<std::size_t>(i)];
        const int left = c.pos.x(), top = c.pos.y();
        if (i == thrower || !c.inPlay() || left - kCharacterReach >= p ||
            left + c.width() + kCharacterReach <= p)
            continue;
        const int x = p + 1;
        for (int dy = 0; dy <= projectile.height(); dy += kSampleStep) {
            const int y = projectile.top() + dy;
            const core::Colour seen = c.canvas().point(x - left, y - top);
            if (!seen.isNone() && seen != sky.point(x, y)) return i;
        }
    }
    return std::nullopt;
}

std::optional<int> touchedBuilding(const QRect& projectile, const core::Canvas& sky,
                                   const core::Canvas& scene) {
    if (projectile.top() < kHighestBuildingCheck) return std::nullopt;
    const int y = projectile.top() + kSampleStep;
    for (int dx = 0; dx <= projectile.width(); dx += kSampleStep) {
        const int x = projectile.left() + dx;
        if (sky.point(x, y) != scene.point(x, y)) return x;
    }
    return std::nullopt;
}

}  // namespace game
