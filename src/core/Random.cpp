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

int Random::below(int n) { return static_cast<int>(std::floor(next() * n)); }

}  // namespace core
