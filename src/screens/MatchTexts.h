#pragma once
// Every text the match window shows, written from the match's numbers.
#include <QString>

#include "game/Match.h"

namespace screens {

// "Ann - 25000 pts", or the window's first title before the first round stands.
QString matchTitle(const game::Match& match);
// "Ann: 1500" in the points box; empty until the end of his first throw.
QString panelLine(const game::Match& match, int player);
// "21 pps" for a strength of 0.21.
QString windText(const game::Wind& wind);
// "66 %".
QString accuracyText(int percent);
// The loading box's line: "Rendering Player 2...", "Test completed in 720 ms, adjusted timers
// to 32".
QString loadingText(const game::Loading& loading);

}  // namespace screens
