// Collision detection by colour: a character is touched where its picture differs from the sky
// behind it, a building where the scene layer differs from the sky layer. The sampling is sparse
// on purpose (one column for characters, one row for buildings, 10 pixels apart) to keep a check
// cheap.
#include "match/frmGrumbo.h"

using namespace modMain;

namespace {

// Buildings are only looked for from this top edge down; the sampled row lies 10 pixels lower.
constexpr int kBuildingTop = 168;

}  // namespace

bool frmGrumbo::CheckCharacters() {
    ui::PictureBox& projectile = *imgProjectile;
    for (int i = 0; i < intPlayers; ++i) {
        ui::PictureBox& c = *Player[i];
        const int L = c.Left(), T = c.Top(), W = c.Width();
        const int P = projectile.Left();
        if (i == intCurrentPlayer || T >= field::kOutOfPlay || L - 10 >= P || L + W + 10 <= P)
            continue;

        const int X = projectile.Left() + 1;
        const int height = projectile.Height();
        for (int dy = 0; dy <= height; dy += 10) {
            const int Y = projectile.Top() + dy;
            lngPlayerColor = c.Point(X - L, Y - T);
            if (lngPlayerColor == -1) continue;
            lngBgColor = picBg->Point(X, Y);
            if (lngPlayerColor != lngBgColor) {
                tmrMain.SetEnabled(false);
                PlayerCollision(static_cast<Integer>(i));
                return true;
            }
        }
    }
    return false;
}

void frmGrumbo::CheckBuildings() {
    ui::PictureBox& projectile = *imgProjectile;
    if (projectile.Top() < kBuildingTop) return;
    const int width = projectile.Width();
    for (int dx = 0; dx <= width; dx += 10) {
        const int X = projectile.Left() + dx;
        const int Y = projectile.Top() + 10;
        lngBgColor = picBg->Point(X, Y);
        lngColor = picBld->Point(X, Y);
        if (lngBgColor != lngColor) {
            BuildingCollision(grumbo::CInt(X));
            return;
        }
    }
}

// The war projectile flies on while its crater is cut, and may leave the field meanwhile, which
// ends the throw and hands the turn on; its proximity points then belong to no one.
bool frmGrumbo::SameFlight(Integer thrower) const {
    return tmrCollision.Enabled() && intCurrentPlayer == thrower;
}

void frmGrumbo::tmrCollision_Timer() {
    // The hit handlers yield to window events while the projectile still stands where it hit; the
    // collision timer does not tick into its own running handler, so the same hit is never
    // reported twice by nested checks. A check also stops at the first hit it reports: after a
    // character hit the projectile may already be hidden or parked at the next thrower's hand.
    if (!CheckCharacters()) CheckBuildings();
}

void frmGrumbo::BuildingCollision(Integer intNuke) {
    const Integer thrower = intCurrentPlayer;
    switch (intProjectileKind) {
        case 1:  // the nuke dissolves the building and whoever stands on it
            tmrMain.SetEnabled(false);
            imgProjectile->hide();
            VaporizeBuilding(intNuke);
            // A character on the building has already been scored, and the turn ended with it.
            if (!blnNukedPlayer) {
                DoEvents();
                intMisses[thrower] += 1;
                Points();
                Afterthrow();
            }
            break;
        case 2:  // the war projectile bores on through the city; its craters count no miss
            HitBuilding();
            if (SameFlight(thrower) && imgProjectile->Top() >= 450) Points();
            break;
        default:  // normal and magnetic projectiles stop in the crater
            intMisses[thrower] += 1;
            tmrMain.SetEnabled(false);
            imgProjectile->hide();
            HitBuilding();
            DoEvents();
            Points();
            Afterthrow();
            break;
    }
}
