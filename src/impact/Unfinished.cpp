// Impact handlers not written yet; each goes when its real version lands.
#include "match/frmGrumbo.h"

void frmGrumbo::PlayerCollision(Integer) {}
void frmGrumbo::HitBuilding() {}
void frmGrumbo::VaporizeBuilding(Integer) {}
void frmGrumbo::Explode(ui::PictureBox&) {}
void frmGrumbo::Vaporize(ui::PictureBox&) {}
void frmGrumbo::Afterthrow() {}
void frmGrumbo::Points() {}
void frmGrumbo::ShowPoints(Integer) {}
void frmGrumbo::EndGame() {}
