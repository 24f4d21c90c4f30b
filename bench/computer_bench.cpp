// The computer's decision on seeded cities: its throw planned on copies of the match, then its
// rough first guess; under low, usual and strong gravity (low gravity makes long flights to
// try), once with the usual projectile only, once holding every special one.
#include <benchmark/benchmark.h>

#include "Pictures.h"
#include "computer/Autopilot.h"

namespace {

using bench::picture;

// The first turn of a "1 vs 1" match with the usual options but `gravity` in the city of `seed`;
// with `specials`, the turn after, every special projectile in hand.
game::Match firstTurn(std::uint64_t seed, double gravity, bool specials) {
    game::MatchSetup s;
    s.seed = seed;
    s.settings.gravity = gravity;
    s.carry.modes.allProjectiles = specials;
    for (int i = 0; i < 2; ++i) {
        const QString stem = QStringLiteral("characters/%1 Grumbo").arg(i ? "Rapper" : "Classic");
        game::PlayerSetup& p = s.players[static_cast<std::size_t>(i)];
        p.name = QStringLiteral("Player %1").arg(i + 1);
        p.character = stem.mid(11);
        p.art = {picture(stem + ".bmp"), {picture(stem + "1.bmp"), picture(stem + "2.bmp")}};
    }
    s.marker = picture(QStringLiteral("pIndication.bmp"));
    game::Match m(s);
    while (m.phase() != game::Phase::Aiming) m.advance(100);
    if (specials) {
        // Thrown backwards off the field: the turn passes with nothing else changed.
        using Kind = game::Command::Kind;
        for (const auto& [kind, text] :
             {std::pair(Kind::Angle, QStringLiteral("135")),
              std::pair(Kind::Velocity, QStringLiteral("300")), std::pair(Kind::Throw, QString())})
            m.apply({m.clock(), m.currentPlayer(), kind, text});
        while (m.phase() != game::Phase::Aiming) m.advance(100);
    }
    return m;
}

void BM_ChooseThrow(benchmark::State& state) {
    const double gravity = static_cast<double>(state.range(0)) / 10;
    std::vector<game::Match> cities;
    for (std::uint64_t seed = 1; seed <= 8; ++seed)
        cities.push_back(firstTurn(seed, gravity, state.range(1)));
    const computer::Style style = computer::styleOf(game::Skill::Normal);
    core::Random random(1);
    std::size_t i = 0;
    for (auto _ : state) {
        const game::Match& m = cities[i++ % cities.size()];
        benchmark::DoNotOptimize(computer::guess(computer::planThrow(m).aim, style, random));
    }
}
BENCHMARK(BM_ChooseThrow)
    ->ArgNames({"gravityTenths", "specials"})
    ->ArgsProduct({{5, 98, 200}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

}  // namespace
