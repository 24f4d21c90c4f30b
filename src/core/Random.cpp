#include "core/Random.h"

#include <random>
#include <vector>

namespace grumbo {

namespace {
std::mt19937_64& engine() {
    static std::mt19937_64 e(12345);
    return e;
}
std::optional<std::uint64_t> pinned;
std::vector<double> script;
std::size_t scriptPos = 0;
}  // namespace

double Rnd() {
    if (scriptPos < script.size()) return script[scriptPos++];
    // 53 random bits give a double in [0, 1) that never reaches 1.
    return static_cast<double>(engine()() >> 11) * (1.0 / 9007199254740992.0);
}

void Seed(std::uint64_t seed) { engine().seed(seed); }

void Reseed(std::uint32_t ticks) {
    if (pinned) Seed(*pinned);
    else Seed(ticks ^ std::random_device{}());
}

void PinSeed(std::optional<std::uint64_t> seed) { pinned = seed; }

void ScriptRnd(const double* values, std::size_t count) {
    script.assign(values, values + count);
    scriptPos = 0;
}

}  // namespace grumbo
