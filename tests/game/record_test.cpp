// A match's record as text: the format reads back to the very record that was written, it stays
// what it is (records of this version must play in later versions), and a damaged or foreign
// record is refused with one line that says why.
#include "game/Record.h"

#include <QFile>

#include "GameSupport.h"
#include "computer/Autopilot.h"
#include "game/Replay.h"

using game::Command;
using namespace testing_support;

namespace {

// A record of version 1, as the game writes it.
const QByteArray kExample = [] {
    QFile file(QStringLiteral(GRUMBO_SOURCE_DIR "/tests/game/record-v1.txt"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}();

TEST(Record, ReadsBackWhatItWroteAndKeepsItsFormat) {
    const game::ReadRecord read = game::readRecord(kExample);
    ASSERT_TRUE(read.record) << read.error.toStdString();
    const game::Record& r = *read.record;
    EXPECT_EQ(r.seed, 18446744073709551615u);
    EXPECT_EQ(r.settings.gravity, 7.5);
    EXPECT_EQ(r.settings.timeOfDay, game::TimeOfDay::Night);
    EXPECT_TRUE(r.carry.specials[0][1] && r.carry.specials[2][2] && r.carry.specials[2][3]);
    EXPECT_TRUE(r.carry.modes.flying && !r.carry.modes.allProjectiles);
    EXPECT_EQ(
        std::tuple(r.carry.projectileFrame, r.carry.indicatorCount, r.carry.tune, r.carry.reseeds),
        std::tuple(3, 29, 22, 4));
    EXPECT_EQ(r.seats[0].name, "Ann \"the\" Great");
    EXPECT_EQ(r.seats[1].computer, game::Skill::Easy);
    EXPECT_EQ(r.seats[2].name, QStringLiteral("\u00e9mile \U0001F44D"));
    EXPECT_EQ(r.seats[3].character, "My Own");
    ASSERT_EQ(r.commands.size(), 10u);
    EXPECT_EQ(r.commands[2], (Command{2100, 0, Command::Kind::Angle, {}, 0}));
    EXPECT_EQ(r.commands[3], (Command{2101, 0, Command::Kind::Velocity, "6 0", 0}));
    EXPECT_EQ(r.commands[4], (Command{2101, 0, Command::Kind::Choose, {}, 2}));
    EXPECT_EQ(r.commands[6], (Command{2400, 2, Command::Kind::KeyDown, {}, 27}));
    EXPECT_EQ(std::pair(r.endedAt, r.finished), std::pair(5000, false));
    EXPECT_EQ(game::writeRecord(r), kExample) << "the same text, byte for byte";
}

TEST(Record, AComputersMatchPausedMidWordPlaysAgainWithoutTheComputer) {
    game::MatchSetup setup = ShippedSetup(2, 5);
    setup.settings.fragLimit = 1;
    for (game::PlayerSetup& p : setup.players) p.computer = game::Skill::Hard;
    testing_support::Play play(setup, 11);
    const game::Match& m = play.match;
    play.started();
    // Only the thrower's own hands aim for him; the past and seats nobody has send nothing.
    const int now = m.clock();
    EXPECT_TRUE(play.match.apply({now, 1, Command::Kind::Angle, QStringLiteral("7")}));
    EXPECT_TRUE(m.angleText().isEmpty());
    EXPECT_FALSE(play.match.apply({now - 1, 0, Command::Kind::Angle, QStringLiteral("7")}));
    EXPECT_FALSE(play.match.apply({now, 2, Command::Kind::Angle, QStringLiteral("7")}));
    EXPECT_EQ(std::pair(m.clock(), m.commands().size()), std::pair(now, std::size_t{1}));
    play.runUntil([&] { return !m.angleText().isEmpty(); });
    play.tap(game::key::kEscape);
    ASSERT_TRUE(m.paused());
    play.run(2500);
    play.send(Command::Kind::Resume);
    ASSERT_TRUE(play.runUntil([&] { return m.gameOverShown(); }, 600000));
    play.send(Command::Kind::Leave);
    ExpectPlaysAgain(m);
}

TEST(Record, ADamagedOrForeignOneIsRefusedWithOneLineSayingWhy) {
    // A line of the example and what stands there instead (the whole text without a line), and a
    // part of the message.
    for (const auto& [replace, with, reason] :
         {std::tuple<const char*, const char*, const char*>("", "", "no record"),
          {"", "\x89PNG\r\n\x1a\n\xff\xfe", "no text"},
          {"", "[Desktop Entry]\nName=x\n", "no record"},
          {"grumbo2 record 1", "grumbo2 record 2", "another version"},
          {"5000 4 leave\nend 5000 left\n", "5000 4 le", "unknown command"},
          {"end 5000 left\n", "", "ends before"},
          {"frame 3\nmarker 29\n", "fra", "\"frame\" expected"},
          {"2400 3 down 27", "1000 3 down 27", "out of order"},
          {"2420 3 up 27", "2420 5 up 27", "its player"},
          {"game 2vs2", "game 1vs1", "more players"},
          {"2420 3 up 27", "2420 3 up 256", "a key"},
          {"1880 1 angle 45", "1880 1 angle 4500", "more text"},
          {"choose war", "choose bomb", "unknown projectile"},
          {"gravity 7.5", "gravity 1e9", "gravity"},
          {"1720 1 angle 4", "-5 1 angle 4", "a command's time"},
          {"1720 1 angle 4", "99999999999 1 angle 4", "a command's time"},
          {"name Dee", "name D\tee", "no name"},
          {"name Dee", "name", "no name"},
          {"character My Own", "character ../../etc/x", "no character"},
          {"end 5000 left", "end 4000 left", "the end's time"},
          {"end 5000 left\n", "end 5000 left\n1 1 throw\n", "more follows"},
          {"2300 1 throw", "2300 1 throw hard", "takes nothing"}}) {
        ASSERT_TRUE(!*replace || kExample.contains(replace)) << replace;
        const QByteArray text =
            *replace ? QByteArray(kExample).replace(replace, with) : QByteArray(with);
        const game::ReadRecord read = game::readRecord(text);
        EXPECT_FALSE(read.record) << reason;
        EXPECT_TRUE(read.error.contains(QLatin1String(reason)) && !read.error.contains('\n'))
            << read.error.toStdString();
    }
}

}  // namespace
