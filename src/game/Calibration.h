#pragma once
// Before the first round a match throws a test projectile across a small test area, one tick
// every 24 ms, and sets its own flight tick from the number of ticks the test took.
namespace game {

namespace calibration {

constexpr int kTestTickMs = 24;
constexpr int kTestAreaWidth = 101;
// How long the test should take, and how strongly a difference moves the flight tick.
constexpr int kTargetMs = 960;
constexpr int kAdjustDivisor = 30;
// The result stays up this long before the first round is built.
constexpr int kShowResultMs = 1001;

// The test projectile's left edge after `ticks` ticks (velocity 45 at 45 degrees: 31 a time unit).
int testLeft(int ticks);
// Ticks until the test projectile has crossed an area `areaWidth` pixels wide, less 10.
int testTicks(int areaWidth = kTestAreaWidth);
// The flight tick, in whole milliseconds, after a test of `ticks` ticks of `tickMs`.
int flightTickMs(int ticks, int tickMs = kTestTickMs);
// How long a test of `ticks` ticks of `tickMs` took, in whole milliseconds.
int testTime(int ticks, int tickMs = kTestTickMs);

}  // namespace calibration

}  // namespace game
