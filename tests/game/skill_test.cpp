// How well each skill plays, measured over many seeded cities: the computer throws at a person who
// only ever throws away, until it frags him, and the share of throws that frag must fall in the
// band its skill promises.
#include <cstdio>

#include "GameSupport.h"
#include "computer/Autopilot.h"

using namespace testing_support;

namespace {

constexpr int kRounds = 200;

// One round in the city of `seed`: the throws the computer needs to frag the person.
int ThrowsToFrag(game::Skill skill, std::uint64_t seed) {
    game::MatchSetup setup = ShippedSetup(2, seed);
    setup.players[1].computer = skill;
    Play play(setup, seed);
    const game::Match& m = play.match;
    play.started();
    int throws = 0;
    while (m.round() == 1 && throws < 200) {
        // The person throws backwards, off the field.
        EXPECT_TRUE(play.throwAt(135, 300));
        EXPECT_EQ(m.round(), 1) << "the person never frags";
        play.runUntil([&] { return m.phase() == game::Phase::Flying; });
        ++throws;
        play.runUntil([&] { return m.phase() == game::Phase::Aiming || m.over(); }, 600000);
        if (m.round() > 1) {
            EXPECT_EQ(m.stats(1).frags, 1);
            EXPECT_EQ(m.rightScore(), 1) << "the computer fragged the person, not itself";
        }
    }
    return throws;
}

TEST(Skill, EachLevelFragsAtTheRateItPromises) {
    // Frags per throw: the fewest and the most each skill may score.
    const std::tuple<game::Skill, const char*, double, double> bands[] = {
        {game::Skill::Easy, "Easy", 0.05, 0.17},
        {game::Skill::Normal, "Normal", 0.22, 0.42},
        {game::Skill::Hard, "Hard", 0.5, 0.8}};
    std::vector<double> rates;
    int hardWithinThree = 0;
    for (const auto& [skill, name, fewest, most] : bands) {
        int throws = 0, withinThree = 0;
        for (std::uint64_t seed = 1; seed <= kRounds; ++seed) {
            const int needed = ThrowsToFrag(skill, seed);
            throws += needed;
            withinThree += needed <= 3;
        }
        rates.push_back(static_cast<double>(kRounds) / throws);
        std::printf("%s: %d rounds, %d throws, %.3f frags per throw, %d%% within three throws\n",
                    name, kRounds, throws, rates.back(), 100 * withinThree / kRounds);
        EXPECT_GE(rates.back(), fewest) << name;
        EXPECT_LE(rates.back(), most) << name;
        hardWithinThree = withinThree;
    }
    EXPECT_GE(rates[2], 3 * rates[0]) << "Hard at least three times Easy";
    EXPECT_GE(hardWithinThree, kRounds * 8 / 10) << "Hard frags within three throws";
}

}  // namespace
