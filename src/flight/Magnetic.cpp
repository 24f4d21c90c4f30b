// The magnetic projectile: close beside a character other than the thrower it is pulled sideways
// towards him, and near his head height it gets lift. Only the pull values change here; the flight
// adds them to the velocity, and the ordinary collision check finds the hit.
#include "match/frmGrumbo.h"

using namespace modMain;

namespace {
constexpr double kSidePull = 0.7;
constexpr double kLift = 0.2;
}  // namespace

void frmGrumbo::Magnetic() {
    const int P = imgProjectile->Left();
    const int Q = P + imgProjectile->Width();
    const int Y = imgProjectile->Top();
    for (int i = 0; i < intPlayers; ++i) {
        const ui::PictureBox& c = *Player[i];
        const int L = grumbo::CInt(c.Left());
        const int R = grumbo::CInt(c.Left() + c.Width());
        const int T = c.Top();
        if (i == intCurrentPlayer || Y <= T - 50) continue;

        if (P > L - 45 && P < L + 10) {
            if (dblMagX < 0) dblMagX = 0;
            dblMagX += kSidePull;
        } else if (Q < R + 45 && Q > R - 10) {
            if (dblMagX > 0) dblMagX = 0;
            dblMagX -= kSidePull;
        } else {
            continue;
        }
        // Only the first character that pulls sideways acts in a tick, lift included.
        if (Y > T - 30 && Y < T) {
            if (dblMagY < 0) dblMagY = 0;
            dblMagY += kLift;
        }
        return;
    }
}
