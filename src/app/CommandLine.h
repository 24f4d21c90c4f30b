#pragma once
// The program's command line: --help, --version, --scale N, --seed N, --computer LIST.
#include <array>
#include <cstdint>
#include <optional>
#include <ostream>

namespace app {

struct Options {
    // 1 to 4; none means: chosen from the screen.
    std::optional<int> scale;
    // Pins the random numbers, so that cities, wind and tunes repeat from one run to the next.
    std::optional<std::uint64_t> seed;
    // The players (0 to 3) whose seat the computer takes at first.
    std::array<bool, 4> computers{};
};

// Reads the options into `options`. Returns the exit status when the program should stop at
// once: 0 after --help or --version (answered on `out`), 2 after an option it does not know or a
// bad value (the usage goes to `err`).
std::optional<int> parseCommandLine(int argc, char** argv, Options& options, std::ostream& out,
                                    std::ostream& err);

}  // namespace app
