#pragma once
// The process-wide random generator: uniform values in [0, 1), reseeded from the clock at match
// start, and pinned to a fixed seed by tests, benchmarks and soak runs.
#include <cstdint>
#include <optional>

namespace grumbo {

double Rnd();
// Reseeds from the tick counter, or from the pinned seed when one is set.
void Randomize();
void Seed(std::uint64_t seed);
// With a value, every Randomize() reseeds with it, so a whole match is reproducible.
void PinSeed(std::optional<std::uint64_t> seed);
// Replaces the generator by a script of values (tests); an empty script goes back to random.
void ScriptRnd(const double* values, std::size_t count);

}  // namespace grumbo
