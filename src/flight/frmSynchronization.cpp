#include "flight/frmSynchronization.h"

#include "match/Field.h"
#include "media/ProjectileFrames.h"
#include "modmain/modMain.h"
#include "ui/Clock.h"

using namespace modMain;
using grumbo::Int;

namespace {
constexpr int kAreaHeight = 127;
constexpr int kTestInterval = 24;
constexpr int kTargetMs = 960;
constexpr int kAdjustDivisor = 30;
// Fixed test throw: velocity 45 at 45 degrees gives 31 both ways; gravity 9.8.
constexpr double kVelocity = 31;
constexpr double kHalfGravity = 4.9;
constexpr int kStartTop = 115;
// The test normally takes 30 ticks; a timer that stalls must not keep the match from starting.
constexpr int kGiveUpMs = 10000;
constexpr int kDesignedMatchInterval = 32;
}  // namespace

frmSynchronization::frmSynchronization(LoadingBox& loading, ui::Timer& matchFlightTimer,
                                       int areaWidth)
    : ui::Form(142, 133, Qt::Tool),
      tmrMain(kTestInterval),
      tmrCollision(30),
      loading_(loading),
      matchFlightTimer_(matchFlightTimer),
      areaWidth_(areaWidth) {}

void frmSynchronization::CreateControls(QWidget* window) {
    SetCaption(QStringLiteral("Synchronizing Tests"));
    picArea = new ui::PictureBox(window, QStringLiteral("picArea"), 0, 1, areaWidth_, kAreaHeight);
    // The normal projectile's frames, so the test spins the same pictures a match does.
    for (int f = 0; f < 4; ++f) Projectile[f] = media::ProjectileSurface(0, f);
    imgProjectile = new ui::PictureBox(picArea, QStringLiteral("imgProjectile"), 0, 0, 10, 10);
    imgProjectile->ShowFrame(Projectile[0]);
    tmrMain.SetEnabled(false);
    tmrCollision.SetEnabled(false);
    OnTimer(tmrMain, [this] { tmrMain_Timer(); });
    OnTimer(tmrCollision, [this] { tmrCollision_Timer(); });
}

void frmSynchronization::PaintTestArea() { field::PaintSky(*picArea, field::kDaySky); }

void frmSynchronization::Form_Load() {
    PlaySoundFile(DataFile(QStringLiteral("sounds/gn.wav")));
    tmrMain.SetInterval(kTestInterval);
    imgProjectile->Move(0, kStartTop);
    PaintTestArea();
    intFlightTime = 0;
    intTickDivisor = 10;
    intHandY = grumbo::CInt(imgProjectile->Top());
    intHandX = grumbo::CInt(imgProjectile->Left());
    if (!FlyTest()) {
        loading_.SetStatus(
            QStringLiteral("Test did not finish, timers left at %1").arg(kDesignedMatchInterval));
        matchFlightTimer_.SetInterval(kDesignedMatchInterval);
        return;
    }
    AdjustMatchTimer();
}

bool frmSynchronization::FlyTest() {
    tmrCollision.SetEnabled(true);
    tmrMain.SetEnabled(true);
    loading_.SetProgress(0);
    ui::Clock& clock = ui::clock();
    const std::int32_t start = clock.TickCount();
    while (imgProjectile->Left() <= picArea->Width() - 10) {
        if (ui::TicksSince(start, clock.TickCount()) > kGiveUpMs) return false;
        // Blocks until the next timer tick instead of spinning through the wait.
        ui::WaitForEvents(clock.TickCount() + tmrMain.Interval());
        loading_.SetProgress(imgProjectile->Left() / 100.0 * 100);
    }
    return true;
}

void frmSynchronization::AdjustMatchTimer() {
    intTestTime = grumbo::CInt(static_cast<double>(intFlightTime) * tmrMain.Interval());
    double interval = tmrMain.Interval();
    if (intTestTime > kTargetMs)
        interval -= static_cast<double>(intTestTime - kTargetMs) / kAdjustDivisor;
    else if (intTestTime < kTargetMs)
        interval += static_cast<double>(kTargetMs - intTestTime) / kAdjustDivisor;
    // An interval below 1 ms would leave the flight timer silent.
    const int adjusted = std::max<int>(1, grumbo::CInt(interval));
    loading_.SetStatus(QStringLiteral("Test completed in ") + QString::number(intTestTime) +
                       QStringLiteral(" ms, ") + QStringLiteral("adjusted timers to ") +
                       QString::number(adjusted));
    matchFlightTimer_.SetInterval(adjusted);
}

void frmSynchronization::Form_Unload(bool& cancel) {
    (void)cancel;
    tmrMain.SetEnabled(false);
    tmrCollision.SetEnabled(false);
}

void frmSynchronization::tmrMain_Timer() {
    intFlightTime += 1;
    intFrame = static_cast<Integer>((intFrame + 1) % 4);
    imgProjectile->ShowFrame(Projectile[intFrame]);
    const double tau = static_cast<double>(intFlightTime) / intTickDivisor;
    imgProjectile->SetTop(intHandY -
                          static_cast<int>(Int(kVelocity * tau - kHalfGravity * tau * tau)));
    imgProjectile->SetLeft(intHandX + static_cast<int>(Int(kVelocity * tau)));
    const int top = imgProjectile->Top(), left = imgProjectile->Left();
    if (field::OffField(left, top)) loading_.SetStatus(QStringLiteral("Off edge???"));
}

void frmSynchronization::tmrCollision_Timer() {
    // The painted gradient is blue-dominant everywhere; anything else under the projectile means
    // the test area was not drawn as it should be.
    const int Y = imgProjectile->Top() + 10;
    for (int dx = 0; dx <= imgProjectile->Width(); dx += 10) {
        const std::int32_t c = picArea->Point(imgProjectile->Left() + dx, Y);
        if (c != -1 && !(ui::Blue(c) > ui::Red(c) + ui::Green(c)))
            loading_.SetStatus(QStringLiteral("Collision???"));
    }
}
