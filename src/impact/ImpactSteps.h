#pragma once
// Pieces shared by the impact handlers that are no business of the rest of the match screen.
#include <QString>

#include "match/frmGrumbo.h"

namespace impact {

// True when both characters of one team are among the frags of this round ("2 vs 2").
bool TeamFragged(const QString& fragged);

// "75 %"; a player who never hit shows "0 %" rather than dividing.
QString AccuracyText(grumbo::Integer frags, grumbo::Integer misses);

// Run when a side has reached the frag limit, right after the turn change of the deciding hit.
void FinishMatch(frmGrumbo& f);

}  // namespace impact
