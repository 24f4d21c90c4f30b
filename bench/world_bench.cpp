// What building a round and blending a character cost, without the event pumps in between.
#include <benchmark/benchmark.h>

#include "match/frmGrumbo.h"
#include "modmain/modMain.h"
#include "ui/Clock.h"

namespace {
// Pumps nothing: the figures are the round's own work, not the window system's.
class NoPumpClock : public ui::VirtualClock {
public:
    void DoEvents() override {}
};

frmGrumbo& StartedMatch(int players) {
    using namespace modMain;
    ApplySettings(SetupDefaults());
    blnMusic = false;
    intPlayers = static_cast<grumbo::Integer>(players);
    intGameType = static_cast<grumbo::Integer>(players / 2);
    for (int i = 0; i < 4; ++i) {
        strPlayerName[i] = QStringLiteral("Player %1").arg(i + 1);
        strCharacter[i] = QStringLiteral("Classic Grumbo");
    }
    frmGrumbo& f = frmGrumbo::Instance();
    if (!f.Loaded()) f.Show();
    return f;
}

void BM_GameLoad(benchmark::State& state) {
    NoPumpClock clock;
    ui::SetClock(&clock);
    frmGrumbo& f = StartedMatch(static_cast<int>(state.range(0)));
    grumbo::Seed(1);
    for (auto _ : state) f.GameLoad();
    modMain::blnInMatch = false;
    f.Unload();
    ui::SetClock(nullptr);
}
BENCHMARK(BM_GameLoad)->Arg(2)->Arg(4)->Unit(benchmark::kMillisecond);

void BM_MakeTransparentCharacter(benchmark::State& state) {
    NoPumpClock clock;
    ui::SetClock(&clock);
    frmGrumbo& f = StartedMatch(2);
    ui::PictureBox& p = *f.Player[0];
    for (auto _ : state) {
        state.PauseTiming();
        p.Cls();  // white background again
        state.ResumeTiming();
        f.MakeTransparent(p, 0, 0, static_cast<float>(p.Width()), static_cast<float>(p.Height()));
    }
    state.counters["pixels"] = p.Width() * p.Height();
    modMain::blnInMatch = false;
    f.Unload();
    ui::SetClock(nullptr);
}
BENCHMARK(BM_MakeTransparentCharacter)->Unit(benchmark::kMicrosecond);
}  // namespace
