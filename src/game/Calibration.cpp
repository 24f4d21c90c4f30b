#include "game/Calibration.h"

#include <algorithm>
#include <cmath>

#include "core/Numbers.h"

namespace game::calibration {

namespace {
constexpr double kTestVelocity = 31;
}  // namespace

int testTime(int ticks, int tickMs) { return core::roundHalfEven(double(ticks) * tickMs); }

int testLeft(int ticks) { return static_cast<int>(std::floor(kTestVelocity * (ticks / 10.0))); }

int testTicks(int areaWidth) {
    int ticks = 0;
    while (testLeft(ticks) <= areaWidth - 10) ++ticks;
    return ticks;
}

int flightTickMs(int ticks, int tickMs) {
    const int took = testTime(ticks, tickMs);
    double tick = tickMs;
    if (took > kTargetMs) tick -= static_cast<double>(took - kTargetMs) / kAdjustDivisor;
    else if (took < kTargetMs) tick += static_cast<double>(kTargetMs - took) / kAdjustDivisor;
    // A tick below 1 ms would leave the flight standing still.
    return std::max(1, core::roundHalfEven(tick));
}

}  // namespace game::calibration
