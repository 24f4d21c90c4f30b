#pragma once
// The program's command line: --help, --version, --scale N, --seed N, --computer LIST,
// --remote LIST, --port N, --code CODE, --join HOST[:PORT], --replay FILE, --check, --no-record.
#include <QString>
#include <array>
#include <cstdint>
#include <optional>
#include <ostream>
#include <vector>

namespace app {

struct Options {
    // 1 to 4; none means: chosen from the screen.
    std::optional<int> scale;
    // Pins the random numbers, so that cities, wind and tunes repeat from one run to the next.
    std::optional<std::uint64_t> seed;
    // The players (0 to 3) whose seat the computer takes at first.
    std::array<bool, 4> computers{};
    // The players (0 to 3) whose seat is left to players at other computers at first.
    std::array<bool, 4> remotes{};
    // The port a host listens on, or the one a joiner connects to when his address names none.
    std::optional<quint16> port;
    // The join code a host gives out, or the one a joiner was given.
    std::optional<QString> code;
    // The host to join, "HOST" or "HOST:PORT", instead of starting on the title screen.
    std::optional<QString> join;
    // A record to play again instead of starting on the title screen.
    std::optional<QString> replay;
    // Play the record without a window and print its final board.
    bool check = false;
    // Keep a record of every match.
    bool record = true;
};

// The options the program knows, as the usage text and the man page list them.
struct OptionHelp {
    const char* name;
    const char* value;  // none for a switch
    const char* help;
};
const std::vector<OptionHelp>& knownOptions();

// Reads the options into `options`. Returns the exit status when the program should stop at
// once: 0 after --help or --version (answered on `out`), 2 after an option it does not know or a
// bad value (the usage goes to `err`).
std::optional<int> parseCommandLine(int argc, char** argv, Options& options, std::ostream& out,
                                    std::ostream& err);

}  // namespace app
