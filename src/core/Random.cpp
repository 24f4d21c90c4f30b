#include "core/Random.h"

#include <cmath>

namespace core {

double Random::next() {
    if (!queued_.empty()) {
        const double v = queued_.front();
        queued_.pop_front();
        return v;
    }
    // 53 random bits give a double in [0, 1) that never reaches 1.
    return static_cast<double>(engine_() >> 11) * (1.0 / 9007199254740992.0);
}

std::uint64_t Random::reseedValue(std::uint64_t seed, std::uint64_t n) {
    // SplitMix64: neighbouring seeds and counts land far apart.
    std::uint64_t z = seed + (n + 1) * 0x9e3779b97f4a7c15;
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9;
    z = (z ^ (z >> 27)) * 0x94d049bb133111eb;
    return z ^ (z >> 31);
}

int Random::below(int n) { return static_cast<int>(std::floor(next() * n)); }

}  // namespace core
