// The keyboard trap's poll.
#include "match/frmGrumbo.h"

// Escape and typed codes are handled by a later change.
void frmGrumbo::tmrTrap_Timer() {}
