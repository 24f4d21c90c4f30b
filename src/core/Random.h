#pragma once
// The process-wide random generator: uniform values in [0, 1), reseeded at every match start,
// and pinned to a fixed seed by tests, benchmarks, soak runs and players who want a repeatable
// run.
#include <cstddef>
#include <cstdint>
#include <optional>

namespace grumbo {

double Rnd();
// Reseeds from `ticks` mixed with the system's entropy, or from the pinned seed when one is set.
void Reseed(std::uint32_t ticks);
void Seed(std::uint64_t seed);
// With a value, every Reseed() reseeds with it, so a whole match is reproducible.
void PinSeed(std::optional<std::uint64_t> seed);
// Replaces the generator by a script of values (tests); an empty script goes back to random.
void ScriptRnd(const double* values, std::size_t count);

}  // namespace grumbo
