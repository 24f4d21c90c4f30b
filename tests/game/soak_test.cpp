// Many seeded matches played by the computer alone, at every skill, in both kinds of game: each
// reaches its end and plays again from its record to the same end, and its record stays small.
#include <algorithm>
#include <cstdio>

#include "GameSupport.h"
#include "computer/Autopilot.h"
#include "game/Record.h"
#include "game/Replay.h"

using namespace testing_support;

namespace {

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
        Play play(setup, static_cast<std::uint64_t>(n) * 7919);
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

}  // namespace
