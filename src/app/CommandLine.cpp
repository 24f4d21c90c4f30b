#include "app/CommandLine.h"

#include <charconv>
#include <string_view>

namespace app {

namespace {

constexpr int kMaxScale = 4;

void usage(std::ostream& s) {
    s << "Usage: grumbo2 [--scale N] [--seed N] [--computer LIST]\n"
         "       grumbo2 --help | --version\n"
         "\n"
         "Grumbo 2 - Kravenmoor: a turn-based banana artillery game for two or four players.\n"
         "\n"
         "  --scale N   enlarge every window by the whole factor N (1 to 4); by default the\n"
         "              screen height divided by 1080, rounded down\n"
         "  --seed N    start the random numbers from N, so that the cities, the wind and the\n"
         "              tunes repeat from one run to the next\n"
         "  --computer LIST\n"
         "              let the computer play the players in LIST, numbers from 1 to 4\n"
         "              separated by commas: \"--computer 2\" to play alone against it,\n"
         "              \"--computer 1,2\" to watch it play itself; the player selection\n"
         "              can still change every seat\n"
         "  --help      show this text\n"
         "  --version   show the version\n";
}

template <class T>
bool readNumber(std::string_view text, T& value) {
    const char* end = text.data() + text.size();
    const auto [ptr, ec] = std::from_chars(text.data(), end, value);
    return ec == std::errc() && ptr == end && !text.empty();
}

// The value of an option given as "--name N" or "--name=N"; advances `i` past a separate value.
std::optional<std::string_view> valueOf(std::string_view arg, std::string_view name, int& i,
                                        int argc, char** argv) {
    if (arg == name) {
        if (i + 1 >= argc) return std::string_view();
        return std::string_view(argv[++i]);
    }
    if (arg.size() > name.size() && arg.substr(0, name.size()) == name && arg[name.size()] == '=')
        return arg.substr(name.size() + 1);
    return std::nullopt;
}

// "2" or "1,3,4": player numbers from 1 to 4, each at most once.
bool readPlayers(std::string_view text, std::array<bool, 4>& players) {
    std::array<bool, 4> read{};
    for (;;) {
        const std::size_t comma = text.find(',');
        int player = 0;
        if (!readNumber(text.substr(0, comma), player) || player < 1 || player > 4 ||
            read[static_cast<std::size_t>(player - 1)])
            return false;
        read[static_cast<std::size_t>(player - 1)] = true;
        if (comma == std::string_view::npos) break;
        text.remove_prefix(comma + 1);
    }
    players = read;
    return true;
}

int refuse(std::ostream& err, std::string_view what) {
    err << "grumbo2: " << what << "\n\n";
    usage(err);
    return 2;
}

}  // namespace

std::optional<int> parseCommandLine(int argc, char** argv, Options& options, std::ostream& out,
                                    std::ostream& err) {
    for (int i = 1; i < argc; ++i) {
        const std::string_view arg(argv[i]);
        if (arg == "--help" || arg == "-h") {
            usage(out);
            return 0;
        }
        if (arg == "--version") {
            out << "grumbo2 " << GRUMBO_VERSION << "\n";
            return 0;
        }
        if (const auto value = valueOf(arg, "--scale", i, argc, argv)) {
            int scale = 0;
            if (!readNumber(*value, scale) || scale < 1 || scale > kMaxScale)
                return refuse(err, "--scale takes a whole number from 1 to 4");
            options.scale = scale;
            continue;
        }
        if (const auto value = valueOf(arg, "--seed", i, argc, argv)) {
            std::uint64_t seed = 0;
            if (!readNumber(*value, seed))
                return refuse(err, "--seed takes a whole number of 0 or more");
            options.seed = seed;
            continue;
        }
        if (const auto value = valueOf(arg, "--computer", i, argc, argv)) {
            if (!readPlayers(*value, options.computers))
                return refuse(err,
                              "--computer takes player numbers from 1 to 4, each once, "
                              "separated by commas (for example 2, or 1,2)");
            continue;
        }
        return refuse(err, "unknown option " + std::string(arg));
    }
    return std::nullopt;
}

}  // namespace app
