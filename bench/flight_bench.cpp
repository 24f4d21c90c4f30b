// The cost of one flight tick and of one collision check in the middle of a flight.
#include <benchmark/benchmark.h>

#include <QLineEdit>

#include "match/frmGrumbo.h"
#include "modmain/modMain.h"
#include "ui/Clock.h"

namespace {
frmGrumbo& MatchInFlight(ui::VirtualClock& clock) {
    using namespace modMain;
    ui::SetClock(&clock);
    ApplySettings(SetupDefaults());
    blnMusic = false;
    for (int i = 0; i < 4; ++i) {
        strPlayerName[i] = QStringLiteral("Player %1").arg(i + 1);
        strCharacter[i] = QStringLiteral("Classic Grumbo");
    }
    frmGrumbo& f = frmGrumbo::Instance();
    if (!f.Loaded()) f.Show();
    f.txtAngle->setText(QStringLiteral("60"));
    f.txtVel->setText(QStringLiteral("70"));
    f.intAngle = 60;
    return f;
}

void Leave(frmGrumbo& f) {
    modMain::blnInMatch = false;
    f.Unload();
    ui::SetClock(nullptr);
}

void BM_FlightTick(benchmark::State& state) {
    ui::VirtualClock clock;
    frmGrumbo& f = MatchInFlight(clock);
    for (auto _ : state) {
        // Keeps the projectile in the rising part of its path, well inside the field.
        if (f.intFlightTime >= 40) f.intFlightTime = 0;
        f.tmrMain_Timer();
    }
    Leave(f);
}
BENCHMARK(BM_FlightTick);

void BM_CollisionCheck(benchmark::State& state) {
    ui::VirtualClock clock;
    frmGrumbo& f = MatchInFlight(clock);
    // Right above the other character and over the city: every sample is read, none hits.
    const ui::PictureBox& target = *f.Player[1];
    f.imgProjectile->Move(target.Left() + 2, std::max(170, target.Top() - 40));
    f.tmrCollision.SetEnabled(true);
    f.tmrMain.SetEnabled(true);
    for (auto _ : state) f.tmrCollision_Timer();
    if (!f.tmrCollision.Enabled()) state.SkipWithError("the check reported a hit");
    Leave(f);
}
BENCHMARK(BM_CollisionCheck);
}  // namespace

namespace {
// The final board's five-second wait on the real clock, with the match screen's timers running:
// the CPU column against the wall-clock column is the share the wait costs.
void BM_EndWaitRealClock(benchmark::State& state) {
    ui::VirtualClock setup;
    frmGrumbo& f = MatchInFlight(setup);
    ui::SetClock(nullptr);
    f.tmrTrap.SetEnabled(false);
    f.tmrTrap.SetEnabled(true);  // restart on the real clock
    for (auto _ : state) modMain::Delay(5000);
    Leave(f);
}
BENCHMARK(BM_EndWaitRealClock)->Iterations(1)->Unit(benchmark::kMillisecond);
}  // namespace
