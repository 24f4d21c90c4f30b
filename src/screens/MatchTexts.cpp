#include "screens/MatchTexts.h"

#include "core/Numbers.h"

namespace screens {

QString matchTitle(const game::Match& m) {
    const auto& h = m.headline();
    if (!h) return QStringLiteral("Grumbo");
    // In one pass: a name may hold "%1" itself.
    return QStringLiteral("%1 - %2 pts").arg(m.name(h->player), QString::number(h->points));
}

QString panelLine(const game::Match& m, int player) {
    const auto points = m.panelPoints(player);
    return points ? QStringLiteral("%1: %2").arg(m.name(player), QString::number(*points))
                  : QString();
}

QString windText(const game::Wind& wind) {
    return core::numberText(wind.strength * 100) + QStringLiteral(" pps");
}

QString accuracyText(int percent) { return QString::number(percent) + QStringLiteral(" %"); }

}  // namespace screens
