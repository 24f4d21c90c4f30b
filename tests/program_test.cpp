// The program's own surroundings: its command line, where it finds its data, how large it draws.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <sstream>
#include <vector>

#include "app/CommandLine.h"
#include "core/DataFolder.h"
#include "ui/Display.h"

namespace {

struct Parsed {
    std::optional<int> status;
    app::Options options;
    std::string out, err;
};

// Parses the arguments of a command line written with spaces between them.
Parsed Parse(const std::string& line) {
    std::vector<std::string> args{"grumbo2"};
    std::istringstream words(line);
    for (std::string w; words >> w;) args.push_back(w);
    std::vector<char*> argv;
    for (std::string& a : args) argv.push_back(a.data());
    Parsed r;
    std::ostringstream out, err;
    r.status =
        app::parseCommandLine(static_cast<int>(argv.size()), argv.data(), r.options, out, err);
    r.out = out.str();
    r.err = err.str();
    return r;
}

}  // namespace

TEST(CommandLine, AnswersOnTheTerminalAndRefusesWhatItDoesNotKnow) {
    const Parsed version = Parse("--version");
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out, "grumbo2 " GRUMBO_VERSION "\n");
    // The last two have nothing to check and no file to replay.
    for (const char* bad :
         {"--fullscreen", "--scale 5", "--scale 0", "--scale", "--scale=2x", "--seed -1",
          "--seed forty", "game.sav", "--remote 2 --computer 2", "--remote 5", "--port 0",
          "--port 65536", "--join host", "--join host --code x --remote 2",
          "--join host --code x --replay f.txt", "--check", "--replay"}) {
        const Parsed r = Parse(bad);
        EXPECT_EQ(r.status, 2) << bad;
        EXPECT_NE(r.err.find("Usage: grumbo2"), std::string::npos) << bad;
        EXPECT_TRUE(r.out.empty()) << bad;
    }
}

TEST(CommandLine, ComputerSeatsArePlayersOneToFourEachOnce) {
    EXPECT_EQ(Parse("--computer 4,1,3").options.computers,
              (std::array<bool, 4>{true, false, true, true}));
    EXPECT_EQ(Parse("--computer=2").options.computers,
              (std::array<bool, 4>{false, true, false, false}));
    for (const char* bad : {"", "0", "5", "1,", ",2", "1,,2", "1,1", "two", "-1"}) {
        const Parsed r = Parse(std::string("--computer=") + bad);
        EXPECT_EQ(r.status, 2) << bad;
        EXPECT_NE(r.err.find("--computer takes player numbers from 1 to 4"), std::string::npos)
            << bad;
    }
}

TEST(CommandLine, TakesItsOptionsInEitherSpellingAndSeatsPortAndCodeToHostOrJoin) {
    const Parsed none = Parse("");
    EXPECT_FALSE(none.status || none.options.scale || none.options.seed);
    const Parsed both = Parse("--scale 4 --seed=18446744073709551615");
    EXPECT_EQ(std::pair(both.options.scale, both.options.seed),
              std::pair(std::optional(4), std::optional<std::uint64_t>(18446744073709551615ull)));
    const Parsed host = Parse("--remote 2,4 --computer 3 --port 5000 --code red");
    EXPECT_FALSE(host.status) << host.err;
    EXPECT_EQ(host.options.remotes, (std::array<bool, 4>{false, true, false, true}));
    EXPECT_EQ(host.options.port, 5000);
    EXPECT_EQ(host.options.code, "red");
    const Parsed join = Parse("--join 10.0.0.2:5000 --code apple --computer 2");
    EXPECT_FALSE(join.status) << join.err;
    EXPECT_EQ(std::pair(join.options.join, join.options.code),
              std::pair(std::optional<QString>("10.0.0.2:5000"), std::optional<QString>("apple")));
}

TEST(CommandLine, HelpAndTheManPageNameEveryOptionAndAReplayTakesItsFile) {
    QFile manual(QStringLiteral(GRUMBO_SOURCE_DIR "/dist/grumbo2.6"));
    ASSERT_TRUE(manual.open(QIODevice::ReadOnly));
    const QString man = QString::fromUtf8(manual.readAll());
    const Parsed help = Parse("--help");
    EXPECT_EQ(help.status, 0);
    for (const app::OptionHelp& o : app::knownOptions()) {
        const QString name = QString::fromLatin1(o.name);
        EXPECT_TRUE(man.contains("\\-\\-" + QString(name).replace("-", "\\-"))) << o.name;
        EXPECT_NE(help.out.find(std::string("--") + o.name), std::string::npos) << o.name;
    }
    const Parsed replay = Parse("--replay some/match.txt --check --no-record");
    EXPECT_FALSE(replay.status);
    EXPECT_EQ(replay.options.replay, "some/match.txt");
    EXPECT_TRUE(replay.options.check && !replay.options.record);
    EXPECT_TRUE(Parse("").options.record);
}

TEST(Display, AutomaticScaleFollowsTheScreenHeight) {
    const struct {
        int height;
        double ratio;
        int scale;
    } cases[] = {{768, 1, 1},  {1079, 1, 1}, {1080, 1, 1},   {2159, 1, 1}, {2160, 1, 2},
                 {3240, 1, 3}, {4320, 1, 4}, {8640, 1, 4},   {0, 1, 1},    {1600, 2, 2},
                 {2160, 2, 2}, {2160, 3, 3}, {1440, 1.5, 1}, {4320, 2, 4}};
    for (const auto& c : cases)
        EXPECT_EQ(ui::automaticScale({c.height, c.ratio}), c.scale)
            << c.height << " px at ratio " << c.ratio;
}

TEST(DataFolder, BesideTheProgramFirstThenTheInstalledShareFolders) {
    QTemporaryDir root;
    ASSERT_TRUE(root.isValid());
    for (const char* dir : {"build/game/characters", "local/bin", "local/share/grumbo2/characters",
                            "usr/games", "usr/share/games/grumbo2/characters", "bare/bin",
                            "both/bin/characters", "both/share/grumbo2/characters"})
        ASSERT_TRUE(QDir(root.path()).mkpath(QLatin1String(dir)));
    const auto found = [&](const char* program) {
        return core::DataFolder::forProgram(root.path() + QLatin1Char('/') + QLatin1String(program))
            .root()
            .mid(root.path().size() + 1);
    };
    EXPECT_EQ(found("build/game"), QStringLiteral("build/game"));
    EXPECT_EQ(found("local/bin"), QStringLiteral("local/share/grumbo2")) << "any prefix";
    EXPECT_EQ(found("usr/games"), QStringLiteral("usr/share/games/grumbo2")) << "Debian's games";
    EXPECT_EQ(found("both/bin"), QStringLiteral("both/bin")) << "beside the program wins";
    EXPECT_EQ(found("bare/bin"), QStringLiteral("bare/bin"))
        << "nothing anywhere: the program's own folder";
}
