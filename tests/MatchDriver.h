#pragma once
// Plays a match the way players do: type an angle and a velocity, pick a projectile, click
// "Throw", and let the virtual clock run until the turn has passed or the final board shows.
#include "match/frmGrumbo.h"
#include "ui/Clock.h"

namespace testing_support {

// Longest a single throw may take, flight, hit animations and a new round included.
constexpr std::int32_t kThrowLimitMs = 10 * 60 * 1000;

bool MatchOver(const frmGrumbo& f);
// True when the input is open for the next throw.
bool InputOpen(const frmGrumbo& f);
// Makes one throw; false when it did not end within kThrowLimitMs (a hang).
bool PlayThrow(ui::VirtualClock& clock, frmGrumbo& f, int angle, int velocity, int kind = 0);
// Moves player `target` into the path of a straight-up throw by the current player, so that
// the next throw at angle 90 hits him a few ticks after it leaves the hand.
void PutInThePathOfAnUpwardThrow(frmGrumbo& f, int target);
int LabelNumber(const class QLabel* label);

}  // namespace testing_support
