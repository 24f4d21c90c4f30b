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

TEST(CommandLine, RefusesWhatItDoesNotKnowWithItsUsage) {
    // The last two have nothing to check and no file to replay.
    for (const char* bad :
         {"--fullscreen", "--scale 5", "--scale 0", "--scale", "--scale=2x", "--seed -1",
          "--seed forty", "game.sav", "--remote 2 --computer 2", "--remote 5", "--port 0",
          "--port 65536", "--join host", "--join host --code x --remote 2",
          "--join host --code x --replay f.txt", "--check", "--replay"}) {
        const Parsed r = Parse(bad);
        EXPECT_TRUE(r.status == 2 && r.out.empty()) << bad;
        EXPECT_NE(r.err.find("Usage: grumbo2"), std::string::npos) << bad;
    }
    for (const char* bad : {"", "0", "5", "1,", ",2", "1,,2", "1,1", "two", "-1"})
        EXPECT_NE(Parse(std::string("--computer=") + bad)
                      .err.find("--computer takes player numbers from 1 to 4"),
                  std::string::npos)
            << bad;
}

TEST(CommandLine, AnswersOnTheTerminalAsTheManPageSaysAndTakesEitherSpelling) {
    const Parsed version = Parse("--version"), help = Parse("--help");
    EXPECT_EQ(std::pair(version.status, version.out),
              std::pair(std::optional(0), std::string("grumbo2 " GRUMBO_VERSION "\n")));
    EXPECT_EQ(help.status, 0);
    QFile manual(QStringLiteral(GRUMBO_SOURCE_DIR "/dist/grumbo2.6"));
    ASSERT_TRUE(manual.open(QIODevice::ReadOnly));
    const QString man = QString::fromUtf8(manual.readAll());
    for (const app::OptionHelp& o : app::knownOptions()) {
        const QString name = QString::fromLatin1(o.name);
        EXPECT_TRUE(man.contains("\\-\\-" + QString(name).replace("-", "\\-"))) << o.name;
        EXPECT_NE(help.out.find(std::string("--") + o.name), std::string::npos) << o.name;
    }
    const Parsed none = Parse("");
    EXPECT_FALSE(none.status || none.options.scale || none.options.seed || !none.options.record);
    const Parsed host = Parse(
        "--scale 4 --seed=18446744073709551615 --remote 2,3 --computer=4,1 --port 5000 --code red");
    ASSERT_FALSE(host.status) << host.err;
    const app::Options& o = host.options;
    EXPECT_EQ(std::tuple(o.scale, o.seed, o.port, o.code),
              std::tuple(std::optional(4), std::optional<std::uint64_t>(18446744073709551615ull),
                         std::optional<quint16>(5000), std::optional<QString>("red")));
    EXPECT_EQ(o.remotes, (std::array<bool, 4>{false, true, true, false}));
    EXPECT_EQ(o.computers, (std::array<bool, 4>{true, false, false, true}));
    const app::Options join = Parse("--join 10.0.0.2:5000 --code apple --computer 2").options;
    EXPECT_EQ(
        std::tuple(join.join, join.code, join.computers[1]),
        std::tuple(std::optional<QString>("10.0.0.2:5000"), std::optional<QString>("apple"), true));
    const app::Options replay = Parse("--replay some/match.txt --check --no-record").options;
    EXPECT_TRUE(replay.replay == QStringLiteral("some/match.txt") && replay.check &&
                !replay.record);
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
