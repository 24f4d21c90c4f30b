// Proximity points for a near miss and the points popup that rises over the scorer.
#include <QLabel>
#include <cstdlib>

#include "impact/ImpactSteps.h"
#include "ui/Labels.h"

using namespace modMain;
using grumbo::CInt;
using grumbo::Int;

namespace {
constexpr int kNoPointsWithin = 5;  // closer than this is no near miss but a hit that missed
constexpr int kRiseSteps = 28;
constexpr int kFadeSteps = 35;

int Centre(const ui::PictureBox& p) { return CInt(p.Left() + p.Width() / 2.0); }

// A colour we cannot show (a channel outside 0..255) leaves the popup as it is.
void TryColour(QLabel* label, int r, int g, int b) {
    if (r < 0 || r > 255 || g < 0 || g > 255 || b < 0 || b > 255) return;
    ui::SetLabelColour(label, QColor(r, g, b));
}
}  // namespace

QString impact::AccuracyText(grumbo::Integer frags, grumbo::Integer misses) {
    if (frags == 0) return QStringLiteral("0 %");
    const double share = static_cast<double>(frags) / (misses + frags) * 100;
    return QString::number(static_cast<long>(Int(share))) + QStringLiteral(" %");
}

void frmGrumbo::Points() {
    const ui::PictureBox& shot = *imgProjectile;
    const int impactX = Centre(shot);
    lblPoint->move(CInt(shot.Left() + shot.Width() / 2.0 - lblPoint->width() / 2.0),
                   shot.Top() - 10);

    double award = 0;
    if (intGameType == 2) {
        const int firstEnemy = intCurrentPlayer <= 1 ? 2 : 0;
        const int d1 = std::abs(Centre(*Player[firstEnemy]) - impactX);
        const int d2 = std::abs(Centre(*Player[firstEnemy + 1]) - impactX);
        if (d1 < kNoPointsWithin || d2 < kNoPointsWithin) return;
        award = Int(2000.0 / (d1 + d2) * 100);
    } else {
        const int d = std::abs(Centre(*Player[1 - intCurrentPlayer]) - impactX);
        if (d < kNoPointsWithin) return;
        award = Int(1000.0 / d * 100);
    }
    lngPoints[intCurrentPlayer] += static_cast<Long>(award);
    ShowPoints(static_cast<Integer>(award));
}

void frmGrumbo::ShowPoints(Integer intPoints) {
    ui::SetLabelColour(lblPoint, Qt::white);
    lblPoint->setText(QString::number(intPoints));
    lblPoint->show();
    lblPoint->raise();

    const int start = lblPoint->y();
    for (int y = start; y >= start - kRiseSteps; --y) {
        lblPoint->move(lblPoint->x(), y);
        Delay(20);
    }

    // Fades into whatever the scene shows at the popup's corner.
    lngColor = picBld->Point(lblPoint->x(), lblPoint->y());
    const double stepR = (255.0 - ui::Red(lngColor)) / kFadeSteps;
    const double stepG = (255.0 - ui::Green(lngColor)) / kFadeSteps;
    const double stepB = (255.0 - ui::Blue(lngColor)) / kFadeSteps;
    double r = 255, g = 255, b = 255;
    for (int i = 0; i < kFadeSteps; ++i) {
        r -= stepR;
        g -= stepG;
        b -= stepB;
        TryColour(lblPoint, CInt(r), CInt(g), CInt(b));
        Delay(5);
        DoEvents();
    }
    lblPoint->hide();
}
