#include "game/Flight.h"

#include <cmath>

#include "core/Numbers.h"

namespace game {

namespace {
constexpr double kPi = 3.14159265358979;
constexpr double kSidePull = 0.7;
constexpr double kLift = 0.2;
// How close a projectile must come: lower than 50 pixels above the character's top for any pull,
// within 45 pixels of a side (10 inside it) for the sideways pull, less than 30 above for lift.
constexpr int kNear = 50, kSideReach = 45, kSideInside = 10, kHeadReach = 30;
}  // namespace

int throwAngle(double typed, bool rightSide) {
    return core::roundHalfEven(rightSide ? 180 - typed : typed);
}

void Flight::launch(int degrees, int throwVelocity) {
    angle = degrees;
    velocity = throwVelocity;
    const double theta = angle * kPi / 180;
    speedX = std::floor(velocity * std::cos(theta));
    speedY = std::floor(velocity * std::sin(theta));
}

QPoint flightPosition(const Flight& f, double gravity) {
    const double velX = f.speedX + f.drift + f.pullX;
    const double velY = f.speedY + f.pullY;
    const double tau = static_cast<double>(f.ticks) / kTicksPerTimeUnit;
    const double height = tau * tau * (gravity * -0.5) + tau * velY;
    return {f.hand.x() + static_cast<int>(std::floor(tau * velX)),
            f.hand.y() - static_cast<int>(std::floor(height))};
}

void pullTowardsCharacters(Flight& f, const QRect& projectile, const std::vector<QRect>& characters,
                           int thrower) {
    const int p = projectile.left(), q = p + projectile.width(), y = projectile.top();
    for (int i = 0; i < static_cast<int>(characters.size()); ++i) {
        const QRect& c = characters[static_cast<std::size_t>(i)];
        const int left = c.left(), right = c.left() + c.width(), top = c.top();
        if (i == thrower || y <= top - kNear) continue;
        if (p > left - kSideReach && p < left + kSideInside) {
            if (f.pullX < 0) f.pullX = 0;
            f.pullX += kSidePull;
        } else if (q < right + kSideReach && q > right - kSideInside) {
            if (f.pullX > 0) f.pullX = 0;
            f.pullX -= kSidePull;
        } else {
            continue;
        }
        if (y > top - kHeadReach && y < top) {
            if (f.pullY < 0) f.pullY = 0;
            f.pullY += kLift;
        }
        // Only the first character that pulls sideways acts in a tick, lift included.
        return;
    }
}

}  // namespace game
