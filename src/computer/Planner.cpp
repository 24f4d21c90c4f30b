#include "computer/Planner.h"

#include <QString>
#include <algorithm>
#include <cmath>
#include <limits>

#include "game/Damage.h"
#include "game/Scoring.h"

namespace computer {

namespace {
using game::Impact;
using game::ProjectileKind;

// The first look covers these angles and velocities; the best find is then looked at closely.
constexpr int kAngles[] = {20, 30, 40, 50, 60, 70, 80};
constexpr int kSlowest = 15, kFastest = 160, kVelocityStep = 5;
constexpr int kCloseAngles = 2, kCloseAngleStep = 2, kCloseVelocities = 6;
constexpr int kFar = std::numeric_limits<int>::max();

enum class Verdict { Frags, OwnGoal, Lands };
struct Outcome {
    Verdict verdict = Verdict::Lands;
    // For a throw that lands: how far from the nearest enemy's middle.
    int distance = kFar;
};

bool enemies(const game::Match& m, int a, int b) {
    const game::GameType type = m.settings().gameType;
    return game::onLeftSide(type, a) != game::onLeftSide(type, b);
}

// The characters in play who stand on the building a nuke touched at `x`.
std::vector<int> onBuilding(const game::Match& m, int x) {
    const game::Span b = game::buildingAt(m.sky(), m.scene(), x);
    std::vector<int> standing;
    for (int i = 0; i < m.players(); ++i)
        if (m.figure(i).inPlay() && b.carries(m.figure(i).pos.x())) standing.push_back(i);
    return standing;
}

Outcome judge(const game::Match& m, const Throw& t) {
    const int me = m.currentPlayer();
    const Impact impact = tryThrow(m, t);
    std::vector<int> hit;
    if (impact.what == Impact::What::Character) hit = {impact.player};
    else if (impact.what == Impact::What::Building && t.kind == ProjectileKind::Nuke)
        hit = onBuilding(m, impact.at.x());
    if (std::any_of(hit.begin(), hit.end(), [&](int p) { return !enemies(m, me, p); }))
        return {Verdict::OwnGoal};
    if (!hit.empty()) return {Verdict::Frags, 0};
    if (impact.what != Impact::What::Building) return {};
    int nearest = kFar;
    for (int i = 0; i < m.players(); ++i) {
        const game::Figure& f = m.figure(i);
        if (!enemies(m, me, i) || !f.inPlay()) continue;
        nearest = std::min(nearest, std::abs(impact.at.x() - (f.pos.x() + f.width() / 2)));
    }
    return {Verdict::Lands, nearest};
}

// Better of two plans: one that frags beats one that does not; then more room, then nearer.
struct Candidate {
    Plan plan;
    int distance = kFar;
    bool beats(const Candidate& other) const {
        if (plan.frags != other.plan.frags) return plan.frags;
        if (plan.frags) return plan.room > other.plan.room;
        return distance < other.distance;
    }
};

// Along one angle, the velocities from `from` to `to` by `step`: the middle of the longest row of
// fragging throws, or the throw that lands nearest.
Candidate sweep(const game::Match& m, ProjectileKind kind, int angle, int from, int to, int step) {
    Candidate best;
    int rowStart = 0, rowLength = 0;
    for (int v = from; v <= to; v += step) {
        const Throw t{angle, v, kind};
        const Outcome o = judge(m, t);
        if (o.verdict == Verdict::Frags) {
            if (rowLength++ == 0) rowStart = v;
            const Throw middle{angle, rowStart + (rowLength - 1) * step / 2, kind};
            const Candidate c{{middle, true, rowLength}, 0};
            if (c.beats(best)) best = c;
            continue;
        }
        rowLength = 0;
        const Candidate c{{t, false, 0}, o.distance};
        if (o.verdict == Verdict::Lands && c.beats(best)) best = c;
    }
    return best;
}

Candidate search(const game::Match& m, ProjectileKind kind) {
    Candidate coarse;
    for (int angle : kAngles) {
        const Candidate c = sweep(m, kind, angle, kSlowest, kFastest, kVelocityStep);
        if (c.beats(coarse)) coarse = c;
    }
    if (coarse.distance == kFar && !coarse.plan.frags) return coarse;
    // A closer look around the best find, one velocity at a time: the first look's steps are
    // too coarse to tell where the row of fragging throws has its middle.
    Candidate close;
    const Throw& a = coarse.plan.aim;
    for (int angle = a.angle - kCloseAngles * kCloseAngleStep;
         angle <= a.angle + kCloseAngles * kCloseAngleStep; angle += kCloseAngleStep) {
        const Candidate c = sweep(m, kind, angle, std::max(1, a.velocity - kCloseVelocities),
                                  a.velocity + kCloseVelocities, 1);
        if (c.beats(close)) close = c;
    }
    return close;
}
}  // namespace

game::Impact tryThrow(const game::Match& match, const Throw& t) {
    game::Match trial = match.sandbox();
    trial.chooseProjectile(t.kind);
    trial.setAngleText(QString::number(t.angle));
    trial.setVelocityText(QString::number(t.velocity));
    trial.throwProjectile();
    while (trial.phase() == game::Phase::Flying)
        trial.advance(std::max(1, trial.msUntilNextEvent()));
    return trial.lastImpact();
}

Plan planThrow(const game::Match& m) {
    const auto held = [&](ProjectileKind kind) { return m.selectorShown(kind); };
    // A nuke that takes an enemy's building is the surest frag there is.
    if (held(ProjectileKind::Nuke))
        if (const Candidate nuke = search(m, ProjectileKind::Nuke); nuke.plan.frags)
            return nuke.plan;
    Candidate best = search(m, ProjectileKind::Normal);
    if (held(ProjectileKind::Magnetic))
        if (const Candidate pulled = search(m, ProjectileKind::Magnetic);
            pulled.plan.frags && pulled.beats(best))
            best = pulled;
    if (!best.plan.frags && held(ProjectileKind::War))
        if (const Candidate war = search(m, ProjectileKind::War); war.plan.frags) best = war;
    return best.plan;
}

}  // namespace computer
