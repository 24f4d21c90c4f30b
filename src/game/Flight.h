#pragma once
// A projectile's flight. Its place is worked out afresh on every tick from where it left the
// hand, the time flown and its current speed, so the wind and the magnetic pull act through the
// speed and their effect on the place grows with the time flown.
#include <QPoint>
#include <QRect>
#include <vector>

namespace game {

// Flight ticks in one unit of flight time.
constexpr int kTicksPerTimeUnit = 10;
// A flight that somehow stays in the field this long (a projectile held by magnetic pull) ends
// as a miss rather than flying on for ever.
constexpr int kLongestFlight = 32767;

struct Flight {
    // The projectile's top-left corner as it left the hand.
    QPoint hand;
    // Degrees, already mirrored for a thrower on the right: 0 towards the other side, 90 up.
    int angle = 0;
    int velocity = 0;
    // The throw's speed split into its parts, each rounded down; launch() sets them with the
    // angle and the velocity, once a throw rather than on every tick.
    double speedX = 0, speedY = 0;
    int ticks = 0;
    // The wind gathered during this flight.
    double drift = 0;
    // The magnetic pull, to the right and upwards.
    double pullX = 0, pullY = 0;

    void launch(int degrees, int throwVelocity);
};

// Angles count from the thrower's own forward direction, so the right side mirrors them.
int throwAngle(double typed, bool rightSide);

// The projectile's top-left corner after the flight's ticks, under `gravity`.
QPoint flightPosition(const Flight& flight, double gravity);

// The magnetic projectile at `projectile` is pulled sideways towards the first character (by
// index, the thrower left out) whose side it passes close to, and near his head it gets lift.
void pullTowardsCharacters(Flight& flight, const QRect& projectile,
                           const std::vector<QRect>& characters, int thrower);

}  // namespace game
