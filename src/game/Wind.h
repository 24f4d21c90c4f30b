#pragma once
// The wind pushes every projectile sideways by the same amount on every flight tick. A round
// starts with a new wind; with gusts, every throw ends with one.
#include <QRect>
#include <QString>

#include "core/Canvas.h"
#include "core/Random.h"

namespace game {

// None only before the first round of the program has drawn a wind.
enum class WindDirection { None, Left, Right };

struct Wind {
    // Pixels per unit of flight time gained on every tick, two decimals.
    double strength = 0;
    WindDirection direction = WindDirection::None;

    // What one flight tick adds to the projectile's horizontal speed.
    double drift() const {
        return direction == WindDirection::Left    ? -strength
               : direction == WindDirection::Right ? strength
                                                   : 0;
    }
};

// The wind box on the field, and the colour of its arrow and label.
constexpr QRect kWindBox{634, 5, 84, 30};
constexpr core::Colour kWindColour{220, 220, 220};

// A round's wind: the direction first, then a strength up to the extremity (hundredths); with
// an extremity of 0 the round is calm.
Wind roundWind(core::Random& random, int extremity);
// The wind after a throw with gusts on: a new strength from 0.01 up, then a new direction.
Wind gust(const Wind& now, core::Random& random, int extremity);
// Draws the arrow into the wind box (its own coordinates): longer with the strength, its head
// on the side the wind blows to.
void drawWindArrow(core::Canvas& box, const Wind& wind);

}  // namespace game
