#pragma once
// Random numbers uniform in [0, 1). The order in which the game draws them is part of its rules,
// so that a seed gives the same cities, winds and tunes from one release to the next.
#include <cstddef>
#include <cstdint>
#include <deque>
#include <random>

namespace core {

class Random {
public:
    explicit Random(std::uint64_t seed = 12345) : engine_(seed) {}
    void seed(std::uint64_t seed) { engine_.seed(seed); }
    // The `n`th reseed of a run that started from `seed`: every reseed is a fresh draw, yet the
    // same seed gives the same reseeds in the same order.
    static std::uint64_t reseedValue(std::uint64_t seed, std::uint64_t n);
    // Uniform in [0, 1), never 1.
    double next();
    // One of 0 to n - 1: the whole part of n times a draw.
    int below(int n);
    // The next draws give these values first (tests that need a particular city or chance).
    void queue(std::initializer_list<double> values) { queued_.insert(queued_.end(), values); }
    template <class It>
    void queue(It first, It last) {
        queued_.insert(queued_.end(), first, last);
    }

private:
    std::mt19937_64 engine_;
    std::deque<double> queued_;
};

}  // namespace core
