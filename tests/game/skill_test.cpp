// How well each skill plays, measured over many seeded cities: the computer throws at a person who
// only ever throws away, until it frags him, and the share of throws that frag must fall in the
// band its skill promises.
#include <cstdio>

#include "GameSupport.h"
#include "computer/Autopilot.h"

using namespace testing_support;

namespace {

constexpr int kRounds = 200;

struct Band {
    game::Skill skill;
    const char* name;
    double fewest, most;  // frags per throw
};

struct Measured {
    int throws = 0, rounds = 0, withinThree = 0;
    double rate() const { return static_cast<double>(rounds) / throws; }
};

// One round in the city of `seed`: the throws the computer needs to frag the person.
int ThrowsToFrag(game::Skill skill, std::uint64_t seed) {
    game::MatchSetup setup = ShippedSetup(2, seed);
    setup.players[1].computer = skill;
    Play play(setup);
    computer::Autopilot pilot(seed);
    play.match.setPilot(&pilot);
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
    const Band bands[] = {{game::Skill::Easy, "Easy", 0.05, 0.17},
                          {game::Skill::Normal, "Normal", 0.22, 0.42},
                          {game::Skill::Hard, "Hard", 0.5, 0.8}};
    std::vector<Measured> measured;
    for (const Band& b : bands) {
        Measured m;
        for (std::uint64_t seed = 1; seed <= kRounds; ++seed) {
            const int throws = ThrowsToFrag(b.skill, seed);
            m.throws += throws;
            ++m.rounds;
            m.withinThree += throws <= 3;
        }
        std::printf("%s: %d rounds, %d throws, %.3f frags per throw, %d%% within three throws\n",
                    b.name, m.rounds, m.throws, m.rate(), 100 * m.withinThree / m.rounds);
        EXPECT_GE(m.rate(), b.fewest) << b.name;
        EXPECT_LE(m.rate(), b.most) << b.name;
        measured.push_back(m);
    }
    EXPECT_GE(measured[2].rate(), 3 * measured[0].rate()) << "Hard at least three times Easy";
    EXPECT_GE(measured[2].withinThree, kRounds * 8 / 10) << "Hard frags within three throws";
}

}  // namespace
