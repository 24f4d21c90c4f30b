// Flight handlers not written yet; each goes when its real version lands.
#include "match/frmGrumbo.h"

void frmGrumbo::ConnectFlightHandlers() {}
void frmGrumbo::txtAngle_KeyPress(Integer&) {}
void frmGrumbo::txtVel_KeyPress(Integer&) {}
void frmGrumbo::txtAngle_Change() {}
void frmGrumbo::txtVel_Change() {}
void frmGrumbo::picSelect_Click(Integer) {}
void frmGrumbo::cmdThrow_Click() {}
void frmGrumbo::tmrMain_Timer() {}
void frmGrumbo::Magnetic() {}
void frmGrumbo::tmrCollision_Timer() {}
void frmGrumbo::BuildingCollision(Integer) {}
void frmGrumbo::tmrTrap_Timer() {}
