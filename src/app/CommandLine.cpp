#include "app/CommandLine.h"

#include <QCommandLineParser>
#include <algorithm>
#include <charconv>
#include <string_view>

namespace app {

namespace {

constexpr int kMaxScale = 4;
constexpr int kLongestCode = 60;

void usage(std::ostream& s) {
    s << "Usage: grumbo2 [--scale N] [--seed N] [--computer LIST] [--no-record]\n"
         "               [--remote LIST] [--port N] [--code CODE]\n"
         "       grumbo2 --join HOST[:PORT] --code CODE [--computer LIST] [--port N]\n"
         "       grumbo2 --replay FILE [--check]\n"
         "       grumbo2 --help | --version\n"
         "\n"
         "Grumbo 2 - Kravenmoor: a turn-based banana artillery game for two or four players.\n"
         "\n";
    for (const OptionHelp& o : knownOptions()) {
        std::string left = std::string("  --") + o.name;
        if (o.value) left += std::string(" ") + o.value;
        // Long option names take a line of their own.
        s << left;
        if (left.size() < 16) s << std::string(16 - left.size(), ' ');
        else s << "\n" << std::string(16, ' ');
        for (const char* c = o.help; *c; ++c) {
            s << *c;
            if (*c == '\n') s << std::string(16, ' ');
        }
        s << "\n";
    }
}

template <class T>
bool readNumber(const QString& text, T& value) {
    const std::string s = text.toStdString();
    const char* end = s.data() + s.size();
    const auto [ptr, ec] = std::from_chars(s.data(), end, value);
    return ec == std::errc() && ptr == end && !s.empty();
}

// "2" or "1,3,4": player numbers from 1 to 4, each at most once.
bool readPlayers(const QString& text, std::array<bool, 4>& players) {
    std::array<bool, 4> read{};
    for (const QString& number : text.split(QLatin1Char(','))) {
        int player = 0;
        if (!readNumber(number, player) || player < 1 || player > 4 ||
            read[static_cast<std::size_t>(player - 1)])
            return false;
        read[static_cast<std::size_t>(player - 1)] = true;
    }
    players = read;
    return true;
}

int refuse(std::ostream& err, const std::string& what) {
    err << "grumbo2: " << what << "\n\n";
    usage(err);
    return 2;
}

}  // namespace

const std::vector<OptionHelp>& knownOptions() {
    static const std::vector<OptionHelp> options{
        {"scale", "N",
         "enlarge every window by the whole factor N (1 to 4); by default the\n"
         "screen height divided by 1080, rounded down"},
        {"seed", "N",
         "start the random numbers from N, so that the cities, the wind and the\n"
         "tunes repeat from one run to the next"},
        {"computer", "LIST",
         "let the computer play the players in LIST, numbers from 1 to 4\n"
         "separated by commas: \"--computer 2\" to play alone against it,\n"
         "\"--computer 1,2\" to watch it play itself; the player selection\n"
         "can still change every seat"},
        {"remote", "LIST",
         "leave the players in LIST to players at other computers, who join\n"
         "with the address, port and code the game then shows"},
        {"port", "N",
         "the network port a match is held open on, or joined at when the\n"
         "address names none (default 47474)"},
        {"code", "CODE",
         "the join code: a host gives it out (a few words are chosen when it\n"
         "is left out), a joiner must give it"},
        {"join", "HOST[:PORT]", "join the match held open at HOST, with --code"},
        {"no-record", nullptr, "keep no record of the matches played"},
        {"replay", "FILE", "play the match recorded in FILE again"},
        {"check", nullptr,
         "with --replay: play it without a window and print its final board,\n"
         "a line a player: name, frags, points, accuracy"},
        {"help", nullptr, "show this text"},
        {"version", nullptr, "show the version"},
    };
    return options;
}

std::optional<int> parseCommandLine(int argc, char** argv, Options& options, std::ostream& out,
                                    std::ostream& err) {
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    for (const OptionHelp& o : knownOptions()) {
        QStringList names{QLatin1String(o.name)};
        if (std::string_view(o.name) == "help") names << QStringLiteral("h");
        parser.addOption(o.value ? QCommandLineOption(names, QString(), QLatin1String(o.value))
                                 : QCommandLineOption(names));
    }
    QStringList args;
    for (int i = 0; i < argc; ++i) args << QString::fromLocal8Bit(argv[i]);
    if (!parser.parse(args)) return refuse(err, parser.errorText().toStdString());
    if (!parser.positionalArguments().isEmpty())
        return refuse(err, "unknown argument " + parser.positionalArguments()[0].toStdString());
    if (parser.isSet(QStringLiteral("help"))) {
        usage(out);
        return 0;
    }
    if (parser.isSet(QStringLiteral("version"))) {
        out << "grumbo2 " << GRUMBO_VERSION << "\n";
        return 0;
    }
    const auto value = [&](const char* name) { return parser.value(QLatin1String(name)); };
    if (parser.isSet(QStringLiteral("scale"))) {
        int scale = 0;
        if (!readNumber(value("scale"), scale) || scale < 1 || scale > kMaxScale)
            return refuse(err, "--scale takes a whole number from 1 to 4");
        options.scale = scale;
    }
    if (parser.isSet(QStringLiteral("seed"))) {
        std::uint64_t seed = 0;
        if (!readNumber(value("seed"), seed))
            return refuse(err, "--seed takes a whole number of 0 or more");
        options.seed = seed;
    }
    if (parser.isSet(QStringLiteral("computer")) &&
        !readPlayers(value("computer"), options.computers))
        return refuse(err,
                      "--computer takes player numbers from 1 to 4, each once, separated by "
                      "commas (for example 2, or 1,2)");
    if (parser.isSet(QStringLiteral("remote")) && !readPlayers(value("remote"), options.remotes))
        return refuse(err,
                      "--remote takes player numbers from 1 to 4, each once, separated by "
                      "commas (for example 2, or 2,4)");
    for (std::size_t i = 0; i < options.remotes.size(); ++i)
        if (options.remotes[i] && options.computers[i])
            return refuse(err, "a player cannot be both --computer and --remote");
    if (parser.isSet(QStringLiteral("port"))) {
        int port = 0;
        if (!readNumber(value("port"), port) || port < 1 || port > 65535)
            return refuse(err, "--port takes a whole number from 1 to 65535");
        options.port = static_cast<quint16>(port);
    }
    if (parser.isSet(QStringLiteral("code"))) {
        // A code is a few words a player reads out: printable, on one short line.
        const QString code = value("code").simplified();
        if (code.isEmpty() || code.size() > kLongestCode ||
            std::any_of(code.begin(), code.end(), [](QChar c) { return !c.isPrint(); }))
            return refuse(err, "--code takes a few words, at most 60 characters");
        options.code = code;
    }
    if (parser.isSet(QStringLiteral("join"))) {
        options.join = value("join");
        if (!options.code) return refuse(err, "--join goes with --code CODE");
        if (std::any_of(options.remotes.begin(), options.remotes.end(), [](bool r) { return r; }))
            return refuse(err, "--join and --remote do not go together");
    }
    if (parser.isSet(QStringLiteral("replay"))) options.replay = value("replay");
    if (options.replay && options.join)
        return refuse(err, "--join and --replay do not go together");
    options.check = parser.isSet(QStringLiteral("check"));
    if (options.check && !options.replay) return refuse(err, "--check goes with --replay FILE");
    options.record = !parser.isSet(QStringLiteral("no-record"));
    return std::nullopt;
}

}  // namespace app
