// The wind of a round and its arrow.
#include <QLabel>

#include "match/frmGrumbo.h"

using namespace modMain;
using grumbo::Int;
using grumbo::Rnd;

void frmGrumbo::DrawRoundWind() {
    intWindMode = static_cast<Integer>(Int(Rnd() * 2) + 1);
    // A match set to no wind has none, whatever wind an earlier match of this run left behind.
    if (intWindExtremity != 0) DrawWindStrength();
    else dblWind = 0;
}

void frmGrumbo::DrawWindStrength() {
    dblWind = grumbo::Round(intWindExtremity * 0.01 * Rnd() + 0.01, 2);
}

void frmGrumbo::DrawWind() {
    lblWind->setText(grumbo::Str(dblWind * 100) + QStringLiteral(" pps"));
    const int L = 2 * static_cast<int>(Int(dblWind * 100 / 2)) + 2;
    const std::int32_t c = ui::RGB(220, 220, 220);
    ui::Surface& s = picArrow->surface();
    s.Line(42 - L, 6, 42 + L, 6, c);
    if (intWindMode == 1) {
        s.Line(42 - L, 4, 42 - L, 9, c);
        s.Line(41 - L, 5, 41 - L, 8, c);
        s.Line(40 - L, 6, 40 - L, 7, c);
    } else if (intWindMode == 2) {
        s.Line(42 + L, 4, 42 + L, 9, c);
        s.Line(43 + L, 5, 43 + L, 8, c);
        s.Line(44 + L, 6, 44 + L, 7, c);
    }
    picArrow->Changed();
}
