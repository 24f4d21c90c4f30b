// One flight step: the projectile's place is worked out afresh from the hand, the elapsed time and
// the current velocity, so wind and magnetic pull act through the velocity and grow with time.
#include <QLineEdit>
#include <limits>

#include "match/frmGrumbo.h"

using namespace modMain;
using grumbo::Int;

namespace {

constexpr double kPi = 3.14159265358979;

const std::array<ui::Surface, 4>& FramesOf(frmGrumbo& f, grumbo::Integer kind) {
    switch (kind) {
        case 1: return f.nuke;
        case 2: return f.war;
        case 3: return f.mag;
        default: return f.Projectile;
    }
}

void DriftWithWind() {
    if (intWindMode == 1) dblGust -= dblWind;
    else if (intWindMode == 2) dblGust += dblWind;
}

}  // namespace

void frmGrumbo::tmrMain_Timer() {
    // A flight that somehow stays in the field this long (a projectile held by magnetic pull)
    // ends as a miss rather than letting its 16-bit tick counter wrap into negative time.
    if (intFlightTime == std::numeric_limits<Integer>::max()) {
        intMisses[intCurrentPlayer] += 1;
        Afterthrow();
        return;
    }
    intFlightTime += 1;
    intFrame = static_cast<Integer>((intFrame + 1) % 4);
    imgProjectile->ShowFrame(FramesOf(*this, intProjectileKind)[intFrame]);

    DriftWithWind();
    const double v = grumbo::Val(txtVel->text());
    const double theta = intAngle * kPi / 180;
    dblVelX = Int(v * std::cos(theta)) + dblGust + dblMagX;
    dblVelY = Int(v * std::sin(theta)) + dblMagY;

    const double tau = static_cast<double>(intFlightTime) / intTickDivisor;
    const double h = tau * tau * (dblGravity * -0.5) + tau * dblVelY;
    imgProjectile->Move(intHandX + static_cast<int>(Int(tau * dblVelX)),
                        intHandY - static_cast<int>(Int(h)));

    // The pull is applied even in the tick that ends the throw; the turn change resets the kind,
    // so it is taken before.
    const bool magnetic = intProjectileKind == 3;
    if (field::OffField(imgProjectile->Left(), imgProjectile->Top())) {
        intMisses[intCurrentPlayer] += 1;
        Afterthrow();
    }
    if (magnetic) Magnetic();
}
