// Many seeded matches with random throws, played to the frag limit by a restless player who
// pauses, types the codes and flies the thrower about: no hang, and the match stays consistent
// after every throw. Many more played by the computer alone. Every one of them plays again from
// its record to the same end.
#include <algorithm>
#include <cstdio>
#include <random>

#include "GameSupport.h"
#include "computer/Autopilot.h"
#include "game/Record.h"
#include "game/Replay.h"

using namespace testing_support;

namespace {

void ExpectConsistent(const game::Match& m) {
    ASSERT_TRUE(m.currentPlayer() >= 0 && m.currentPlayer() < m.players());
    const int left = m.leftScore(), right = m.rightScore();
    ASSERT_EQ(left + right, m.round() - (m.over() ? 0 : 1)) << "every round counted once";
    ASSERT_LE(std::max(left, right), m.settings().fragLimit);
    int frags = 0;
    for (int i = 0; i < m.players(); ++i) {
        ASSERT_GE(m.stats(i).misses, m.stats(i).missMark);
        frags += m.stats(i).frags;
    }
    ASSERT_GE(frags, left + right) << "a round is only won by hits";
}

// Plays `m`'s record again and compares the ends; returns the record's size in bytes.
qsizetype ExpectPlaysAgain(const game::Match& m) {
    const QByteArray text = game::writeRecord(game::recordOf(m));
    const game::ReadRecord read = game::readRecord(text);
    EXPECT_TRUE(read.record) << read.error.toStdString();
    if (!read.record) return 0;
    game::Match again(WithShippedArt(game::setupOf(*read.record)));
    EXPECT_TRUE(game::playToTheEnd(again, *read.record));
    EXPECT_TRUE(again.board() == m.board()) << "the same final board";
    EXPECT_TRUE(again.scene() == m.scene()) << "the same last city";
    EXPECT_EQ(again.clock(), m.clock());
    return text.size();
}

TEST(Soak, ComputerMatchesPlayAgainFromTheirRecords) {
    std::vector<qsizetype> oneVsOne;
    for (int n = 0; n < 200; ++n) {
        SCOPED_TRACE(testing::Message() << "match " << n);
        const bool twoVsTwo = n % 4 == 3;
        game::MatchSetup setup = ShippedSetup(twoVsTwo ? 4 : 2, static_cast<std::uint64_t>(n));
        setup.settings.fragLimit = 1 + n % 2;
        setup.settings.music = n % 5 == 0;
        for (int i = 0; i < setup.settings.players(); ++i)
            setup.players[static_cast<std::size_t>(i)].computer =
                static_cast<game::Skill>((n + i) % 3);
        Play play(setup);
        computer::Autopilot pilot(static_cast<std::uint64_t>(n) * 7919);
        play.match.setPilot(&pilot);
        ASSERT_TRUE(play.runUntil([&] { return play.match.gameOverShown(); }, 3600000)) << "no end";
        const qsizetype size = ExpectPlaysAgain(play.match);
        if (!twoVsTwo) oneVsOne.push_back(size);
    }
    std::sort(oneVsOne.begin(), oneVsOne.end());
    const qsizetype median = oneVsOne[oneVsOne.size() / 2];
    std::printf("1 vs 1 records: median %lld bytes, largest %lld\n", static_cast<long long>(median),
                static_cast<long long>(oneVsOne.back()));
    EXPECT_LT(median, 4096) << "a typical record stays small";
}

TEST(Soak, RandomMatchesReachTheirFragLimit) {
    for (int n = 0; n < 200; ++n) {
        std::mt19937 rng(static_cast<unsigned>(n));
        const auto below = [&](int k) { return static_cast<int>(rng() % k); };
        game::MatchSetup setup = ShippedSetup(n % 2 ? 4 : 2, static_cast<std::uint64_t>(n));
        setup.settings.fragLimit = 1 + n % 3;
        setup.settings.windExtremity = below(36);
        setup.settings.gravity = 5 + below(150) / 10.0;
        setup.settings.buildingHeight = 4 + below(9);
        Play play(setup);
        play.started();
        SCOPED_TRACE(testing::Message() << "match " << n);
        for (int t = 0; !play.match.over(); ++t) {
            ASSERT_LT(t, 3000) << "no end";
            // Now and then Escape and "Resume" a little later, a code, or a few arrow keys.
            const int fidget = below(40);
            if (fidget == 0)
                play.tap(game::key::kEscape), play.run(below(3000)),
                    play.send(game::Command::Kind::Resume);
            if (fidget == 1) play.type(QStringLiteral("\\zap plinkos"));
            if (fidget == 2) play.type(QStringLiteral("\\hop fremble"));
            for (int i = 0; fidget == 3 && i < 5; ++i) play.tap(game::key::kLeft + below(4));
            play.send(game::Command::Kind::Choose, {},
                      static_cast<int>(static_cast<game::ProjectileKind>(below(game::kKinds))));
            play.send(game::Command::Kind::Angle, QString::number(below(181)));
            play.send(game::Command::Kind::Velocity, QString::number(below(150)));
            ASSERT_TRUE(play.match.canThrow());
            play.send(game::Command::Kind::Throw);
            // Match time in big steps, as a busy machine would give it.
            for (int ms = 0;
                 ms < 600000 && !play.match.over() && play.match.phase() != game::Phase::Aiming;
                 ms += 250)
                play.run(250);
            ASSERT_TRUE(play.match.over() || play.match.phase() == game::Phase::Aiming) << "hangs";
            ASSERT_NO_FATAL_FAILURE(ExpectConsistent(play.match));
        }
        play.run(6000);
        ExpectPlaysAgain(play.match);
    }
}

}  // namespace
