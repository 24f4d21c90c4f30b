// The rules alone, without a window: a whole seeded match, one round's city, one flight tick.
#include <benchmark/benchmark.h>

#include "Pictures.h"
#include "game/Collision.h"
#include "game/Match.h"
#include "game/Record.h"
#include "game/Replay.h"
#include "game/Skyline.h"

namespace {

using bench::picture;

// Two shipped characters with the usual options, to three rounds.
game::MatchSetup matchSetup() {
    game::MatchSetup s;
    s.seed = 42;
    for (int i = 0; i < 2; ++i) {
        const QString stem = QStringLiteral("characters/%1 Grumbo").arg(i ? "Rapper" : "Classic");
        s.players[static_cast<std::size_t>(i)] = {
            QStringLiteral("Player %1").arg(i + 1),
            stem.mid(11),
            {picture(stem + ".bmp"), {picture(stem + "1.bmp"), picture(stem + "2.bmp")}},
            {}};
    }
    s.marker = picture(QStringLiteral("pIndication.bmp"));
    return s;
}

// Types angle and velocity key by key as a person does, throws, and moves match time on until the
// turn has passed or the match has ended.
void throwAndWait(game::Match& m, int angle, int velocity) {
    using Kind = game::Command::Kind;
    const auto type = [&](Kind box, int value) {
        const QString text = QString::number(value);
        for (qsizetype n = 1; n <= text.size(); ++n)
            m.apply({m.clock() + 150, m.currentPlayer(), box, text.left(n)});
    };
    type(Kind::Angle, angle);
    type(Kind::Velocity, velocity);
    m.apply({m.clock() + 400, m.currentPlayer(), Kind::Throw});
    while (!m.over() && m.phase() != game::Phase::Aiming) m.advance(100);
}

void start(game::Match& m) {
    while (m.phase() != game::Phase::Aiming) m.advance(100);
}

// The throws of a whole match: player 1 throws the first of his throws that hits player 2, tried
// on copies of the match; player 2 throws his turns away. Three rounds to player 1.
std::vector<QPoint> scriptMatch(const game::MatchSetup& setup) {
    std::vector<QPoint> script;
    game::Match m(setup);
    start(m);
    while (!m.over()) {
        QPoint chosen(45, 999);
        for (int velocity = 30; m.currentPlayer() == 0 && velocity <= 150; velocity += 2)
            for (int angle = 20; angle <= 85; angle += 5) {
                game::Match trial = m;
                throwAndWait(trial, angle, velocity);
                if (trial.stats(0).frags > m.stats(0).frags) {
                    chosen = {angle, velocity};
                    velocity = 999;
                    break;
                }
            }
        script.push_back(chosen);
        throwAndWait(m, chosen.x(), chosen.y());
    }
    return script;
}

void BM_WholeMatch(benchmark::State& state) {
    const game::MatchSetup setup = matchSetup();
    const std::vector<QPoint> script = scriptMatch(setup);
    for (auto _ : state) {
        game::Match m(setup);
        start(m);
        for (const QPoint& t : script) throwAndWait(m, t.x(), t.y());
        if (!m.over()) state.SkipWithError("the match did not end");
    }
    state.counters["throws"] = static_cast<double>(script.size());
}
BENCHMARK(BM_WholeMatch)->Unit(benchmark::kMillisecond);

// The same match played again from its record's text: read, set up, and played to its end.
void BM_ReplayWholeMatch(benchmark::State& state) {
    const game::MatchSetup setup = matchSetup();
    game::Match played(setup);
    start(played);
    for (const QPoint& t : scriptMatch(setup)) throwAndWait(played, t.x(), t.y());
    played.advance(6000);
    const QByteArray text = game::writeRecord(game::recordOf(played));
    for (auto _ : state) {
        const game::ReadRecord read = game::readRecord(text);
        game::MatchSetup again = game::setupOf(*read.record);
        for (std::size_t i = 0; i < 2; ++i) again.players[i].art = setup.players[i].art;
        again.marker = setup.marker;
        game::Match m(again);
        if (!game::playToTheEnd(m, *read.record) || !m.over())
            state.SkipWithError("the replay did not end as the match did");
    }
    state.counters["bytes"] = static_cast<double>(text.size());
}
BENCHMARK(BM_ReplayWholeMatch)->Unit(benchmark::kMillisecond);

void BM_RoundCity(benchmark::State& state) {
    std::uint64_t seed = 1;
    for (auto _ : state) {
        core::Random random(seed++);
        core::Canvas scene = game::fieldSky(true);
        benchmark::DoNotOptimize(game::drawCity(scene, random, 2, 8, true));
    }
}
BENCHMARK(BM_RoundCity)->Unit(benchmark::kMicrosecond);

// What every flight tick does: the place worked out afresh, and a collision check beside it.
void BM_FlightTick(benchmark::State& state) {
    core::Random random(7);
    core::Canvas scene = game::fieldSky(true);
    game::drawCity(scene, random, 2, 8, true);
    game::Figure target;
    target.put(picture(QStringLiteral("characters/Classic Grumbo.bmp")));
    target.pos = {400, 200};
    const std::vector<const game::Figure*> figures{&target, &target};
    game::Flight f{.hand = {100, 250}};
    f.launch(60, 70);
    for (auto _ : state) {
        f.ticks = f.ticks % 40 + 1;
        f.drift += 0.1;
        const QPoint at = game::flightPosition(f, 9.8);
        const QRect shot(at, QSize(10, 10));
        benchmark::DoNotOptimize(game::touchedCharacter(shot, figures, 1, game::fieldSky(true)));
        benchmark::DoNotOptimize(game::touchedBuilding(shot, game::fieldSky(true), scene));
    }
}
BENCHMARK(BM_FlightTick);

}  // namespace

BENCHMARK_MAIN();
