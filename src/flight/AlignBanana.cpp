// Parking the projectile at the current thrower's hand, which is where every flight starts.
#include "match/frmGrumbo.h"

void frmGrumbo::AlignBanana() {
    const ui::PictureBox& P = *Player[intCurrentPlayer];
    const int left = ThrowerOnRight() ? P.Left() + P.Width() - imgProjectile->Width() : P.Left();
    imgProjectile->Move(left, P.Top() - 11);
    intHandX = grumbo::CInt(imgProjectile->Left());
    intHandY = grumbo::CInt(imgProjectile->Top());
}
