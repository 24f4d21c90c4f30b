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

QString loadingText(const game::Loading& loading) {
    using Stage = game::Loading::Stage;
    switch (loading.stage) {
        case Stage::Loading: break;
        case Stage::Synchronizing: return QStringLiteral("Synchronizing Timers...");
        case Stage::Synchronized:
            return QStringLiteral("Test completed in %1 ms, adjusted timers to %2")
                .arg(loading.testMs)
                .arg(loading.tickMs);
        case Stage::Sky: return QStringLiteral("Rendering Sky...");
        case Stage::Buildings: return QStringLiteral("Rendering Buildings...");
        case Stage::Player: return QStringLiteral("Rendering Player %1...").arg(loading.player + 1);
        case Stage::Wind: return QStringLiteral("Creating Wind...");
    }
    return QStringLiteral("Loading");
}

}  // namespace screens
