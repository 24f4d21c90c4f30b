// Matches across computers on loopback: how long a command takes from one machine to its effect
// on the other, and how many bytes the host sends a joiner for a whole match.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <vector>

#include "Pictures.h"
#include "computer/Autopilot.h"
#include "net/Guest.h"
#include "net/Host.h"

namespace {
using bench::picture;

QCoreApplication& application() {
    static int argc = 1;
    static char name[] = "grumbo_bench";
    static char* argv[] = {name, nullptr};
    static QCoreApplication app(argc, argv);
    return app;
}

// Runs the event loop until `done`, for at most 5 s.
template <class Done>
bool runUntil(Done done) {
    QElapsedTimer t;
    t.start();
    while (!done() && t.elapsed() < 5000) QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
    return done();
}

net::Lobby lobby() {
    net::Lobby l;
    l.setup.seed = 7;
    l.setup.seats[0] = {QStringLiteral("Ann"), QStringLiteral("Classic Grumbo"), {}};
    l.setup.seats[1] = {QStringLiteral("Player 2"), QStringLiteral("Classic Grumbo"), {}};
    l.remote[1] = true;
    return l;
}

double percentile(std::vector<double> v, double p) {
    std::sort(v.begin(), v.end());
    return v[static_cast<std::size_t>(p * static_cast<double>(v.size() - 1))];
}

// A command typed on one machine until the other machine's match has it, both ways.
void BM_CommandToTheOtherMachine(benchmark::State& state) {
    application();
    net::Host host(QStringLiteral("bench"), {});
    net::Guest guest(QStringLiteral("bench"), {});
    int clock = 0;
    host.setMatchClock([&] { return clock; });
    if (!host.open(lobby(), QStringLiteral("red apple"), 0)) return state.SkipWithError("no port");
    bool welcomed = false, started = false;
    QObject::connect(&guest, &net::Guest::welcomed, [&] { welcomed = true; });
    QObject::connect(&guest, &net::Guest::started, [&] { started = true; });
    guest.join(QStringLiteral("127.0.0.1:%1").arg(host.port()), QStringLiteral("red apple"),
               QStringLiteral("Joiner"));
    if (!runUntil([&] { return welcomed; })) return state.SkipWithError("no welcome");
    guest.chooseSeat(QStringLiteral("Bo"), QStringLiteral("Robo Grumbo"));
    runUntil([&] { return host.lobby().setup.seats[1].name == QLatin1String("Bo"); });
    if (!host.start() || !runUntil([&] { return started; }))
        return state.SkipWithError("the match did not start");
    int atGuest = 0, atHost = 0;
    QObject::connect(&guest, &net::Guest::command, [&] { ++atGuest; });
    QObject::connect(&host, &net::Host::command, [&](const game::Command& c) {
        if (c.seat == 1) ++atHost;
    });
    std::vector<double> hostToJoiner, joinerToHost;
    QElapsedTimer t;
    for (auto _ : state) {
        ++clock;
        const int before = atGuest, hostBefore = atHost;
        t.start();
        host.send({.seat = 0, .kind = game::Command::Kind::Angle, .text = QStringLiteral("45")});
        if (!runUntil([&] { return atGuest > before; })) return state.SkipWithError("lost");
        hostToJoiner.push_back(static_cast<double>(t.nsecsElapsed()) / 1e6);
        t.start();
        guest.send({.seat = 1, .kind = game::Command::Kind::Velocity, .text = QStringLiteral("6")});
        if (!runUntil([&] { return atHost > hostBefore; })) return state.SkipWithError("lost back");
        joinerToHost.push_back(static_cast<double>(t.nsecsElapsed()) / 1e6);
    }
    state.counters["host_to_joiner_median_ms"] = percentile(hostToJoiner, 0.5);
    state.counters["host_to_joiner_p99_ms"] = percentile(hostToJoiner, 0.99);
    state.counters["joiner_to_host_median_ms"] = percentile(joinerToHost, 0.5);
    state.counters["joiner_to_host_p99_ms"] = percentile(joinerToHost, 0.99);
}
BENCHMARK(BM_CommandToTheOtherMachine)->Iterations(1000)->Unit(benchmark::kMillisecond);

// What the host sends a joiner for a whole match of two computers at frag limit 3: every
// command, the ticks its pace calls for, a digest a turn.
void BM_BytesOfAMatch(benchmark::State& state) {
    game::MatchSetup setup;
    setup.seed = 7;
    for (int i = 0; i < 2; ++i) {
        const QString stem = QStringLiteral("characters/%1 Grumbo").arg(i ? "Rapper" : "Classic");
        game::PlayerSetup& p = setup.players[static_cast<std::size_t>(i)];
        p.name = QStringLiteral("Player %1").arg(i + 1);
        p.character = stem.mid(11);
        p.art = {picture(stem + ".bmp"), {picture(stem + "1.bmp"), picture(stem + "2.bmp")}};
        p.computer = game::Skill::Normal;
    }
    setup.marker = picture(QStringLiteral("pIndication.bmp"));
    for (auto _ : state) {
        game::Match m(setup);
        computer::Autopilot pilot(7);
        m.setPilot(&pilot);
        int turns = 0, since = -1, lastTick = 0;
        qint64 ticks = 0;
        while (!m.gameOverShown() && m.clock() < 3600000) {
            m.advance(net::Host::kTickMs);
            // Player 2 plays on the joiner's machine.
            const net::Pace pace = net::paceOf(m, {false, true, false, false});
            if (const std::optional<int> at = net::tickDue(pace, m.clock(), lastTick)) {
                lastTick = *at;
                ++ticks;
            }
            if (m.phase() == game::Phase::Aiming && m.aimingSince() != since) {
                since = m.aimingSince();
                ++turns;
            }
        }
        qint64 bytes = 0;
        for (const game::Command& c : m.commands())
            bytes += net::frame(net::CommandMessage{c}).size();
        bytes += ticks * net::frame(net::Tick{m.clock()}).size();
        bytes += turns * net::frame(net::Digest{m.clock(), ~0ull}).size();
        state.counters["bytes"] = static_cast<double>(bytes);
        state.counters["match_s"] = m.clock() / 1000.0;
        state.counters["commands"] = static_cast<double>(m.commands().size());
    }
}
BENCHMARK(BM_BytesOfAMatch)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
