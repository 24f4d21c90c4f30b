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

// The first look tries these angles with velocities from a crawl to far more than the city is
// wide: low gravity with the wind behind carries a slow throw across the whole city, strong
// gravity against the wind needs a fast one. A throw's reach grows with the square of its
// velocity, so the slow ones stand closer together. The best find is then looked at closely.
constexpr int kAngles[] = {20, 30, 40, 50, 60, 70, 80};
constexpr int kSlowest = 1, kFastest = 250, kWidestStep = 12;
constexpr int kCloseAngles = 2, kCloseAngleStep = 2, kCloseVelocities = kWidestStep / 2;
constexpr double kSteepest = kAngles[std::size(kAngles) - 1] + kCloseAngles * kCloseAngleStep;
constexpr double kPi = 3.14159265358979;
// A throw that ends nearer than this to the thrower or his team mate lands too close to them.
constexpr int kClearance = 60;
constexpr int kFar = std::numeric_limits<int>::max();
// A projectile above this row has left the field through its top.
constexpr int kFieldTop = -1800;

enum class Verdict { Frags, OwnGoal, OwnSide, Lands };
struct Outcome {
    Verdict verdict = Verdict::Lands;
    // For a throw that lands on a building: how far from the nearest enemy's middle.
    int distance = kFar;
    // The enemy it frags, or the one nearest to where it ended.
    int target = -1;
};

bool enemies(const game::Match& m, int a, int b) {
    const game::GameType type = m.settings().gameType;
    return game::onLeftSide(type, a) != game::onLeftSide(type, b);
}

// Of the characters in play who are the thrower's enemies (or, without `enemy`, on his side),
// the one whose middle is nearest to `x`, and how near.
std::pair<int, int> nearest(const game::Match& m, int x, bool enemy) {
    std::pair<int, int> found{-1, kFar};
    for (int i = 0; i < m.players(); ++i) {
        const game::Figure& f = m.figure(i);
        if (!f.inPlay() || enemies(m, m.currentPlayer(), i) != enemy) continue;
        const int distance = std::abs(x - (f.pos.x() + f.width() / 2));
        if (distance < found.second) found = {i, distance};
    }
    return found;
}

// The characters in play who stand on the building a nuke touched at `x`.
std::vector<int> onBuilding(const game::Match& m, int x) {
    const game::Span b = game::buildingAt(m.sky(), m.scene(), x);
    std::vector<int> standing;
    for (int i = 0; i < m.players(); ++i)
        if (m.figure(i).inPlay() && b.carries(m.figure(i).pos.x())) standing.push_back(i);
    return standing;
}

// How a throw of `kind` that ended with `impact` turns out for the thrower.
Outcome judge(const game::Match& m, ProjectileKind kind, const Impact& impact) {
    const int me = m.currentPlayer();
    std::vector<int> hit;
    if (impact.what == Impact::What::Character) hit = {impact.player};
    else if (impact.what == Impact::What::Building && kind == ProjectileKind::Nuke)
        hit = onBuilding(m, impact.at.x());
    if (std::any_of(hit.begin(), hit.end(), [&](int p) { return !enemies(m, me, p); }))
        return {Verdict::OwnGoal};
    if (!hit.empty()) return {Verdict::Frags, 0, hit.front()};
    // Where it ended, on a building or where it left the field, must be the enemies' side.
    const auto [enemy, enemyDistance] = nearest(m, impact.at.x(), true);
    const int ownDistance = nearest(m, impact.at.x(), false).second;
    if (ownDistance < kClearance || ownDistance <= enemyDistance) return {Verdict::OwnSide};
    if (impact.what != Impact::What::Building) return {Verdict::Lands, kFar, enemy};
    return {Verdict::Lands, enemyDistance, enemy};
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

// True when a throw of `kind` left the field beyond the enemies' side or through its top, far
// above the city: any faster one at the same angle flies above it all the way and leaves the
// field sooner. Not so for the war projectile, which may have passed below an enemy.
bool flewPast(const game::Match& m, ProjectileKind kind, const Impact& impact) {
    if (impact.what != Impact::What::Missed || kind == ProjectileKind::War) return false;
    if (impact.at.y() < kFieldTop) return true;
    return game::onLeftSide(m.settings().gameType, m.currentPlayer())
               ? impact.at.x() > game::kFieldWidth
               : impact.at.x() < 0;
}

// Kinds that fly alike until they touch something, as the usual projectile and the nuke do: a
// throw of the first tells how a throw of each would end.
using Kinds = std::vector<ProjectileKind>;

// Along one angle, the `velocities` in increasing order, for each of `kinds`: the middle of the
// longest row of fragging throws, or the throw that lands nearest.
std::vector<Candidate> sweep(const game::Match& m, const Kinds& kinds, int angle,
                             const std::vector<int>& velocities) {
    struct Row {
        Candidate best;
        int start = 0, length = 0;
    };
    std::vector<Row> rows(kinds.size());
    for (const int v : velocities) {
        const Impact impact = tryThrow(m, {angle, v, kinds.front()});
        if (flewPast(m, kinds.front(), impact)) break;
        for (std::size_t k = 0; k < kinds.size(); ++k) {
            Row& row = rows[k];
            const Outcome o = judge(m, kinds[k], impact);
            if (o.verdict == Verdict::Frags) {
                if (row.length++ == 0) row.start = v;
                const Throw middle{angle, (row.start + v) / 2, kinds[k]};
                const Candidate c{{middle, true, row.length, o.target}, 0};
                if (c.beats(row.best)) row.best = c;
                continue;
            }
            row.length = 0;
            const Candidate c{{{angle, v, kinds[k]}, false, 0, o.target}, o.distance};
            if (o.verdict == Verdict::Lands && c.beats(row.best)) row.best = c;
        }
    }
    std::vector<Candidate> best;
    for (const Row& row : rows) best.push_back(row.best);
    return best;
}

// No throw needs to be faster than one that flies twice across the field, calm, at the steepest
// angle looked at: under low gravity that is well below the fastest.
std::vector<int> firstLookVelocities(double gravity) {
    const double twiceAcross =
        2 * game::kFieldWidth * gravity / std::sin(2 * kSteepest * kPi / 180);
    const int fastest = std::min(kFastest, static_cast<int>(std::ceil(std::sqrt(twiceAcross))));
    std::vector<int> velocities;
    for (int v = kSlowest; v <= fastest; v += std::clamp(v / 8, 1, kWidestStep))
        velocities.push_back(v);
    return velocities;
}

// The first look, for each of `kinds`.
std::vector<Candidate> firstLook(const game::Match& m, const Kinds& kinds) {
    const std::vector<int> velocities = firstLookVelocities(m.settings().gravity);
    std::vector<Candidate> best(kinds.size());
    for (const int angle : kAngles) {
        const std::vector<Candidate> found = sweep(m, kinds, angle, velocities);
        for (std::size_t k = 0; k < kinds.size(); ++k)
            if (found[k].beats(best[k])) best[k] = found[k];
    }
    return best;
}

// A closer look around a find of the first look, every velocity and every other angle: its steps
// are too coarse to tell where the row of fragging throws has its middle.
Candidate closer(const game::Match& m, const Candidate& found) {
    if (found.distance == kFar && !found.plan.frags) return found;
    const Throw& a = found.plan.aim;
    std::vector<int> velocities;
    for (int v = std::max(kSlowest, a.velocity - kCloseVelocities);
         v <= a.velocity + kCloseVelocities; ++v)
        velocities.push_back(v);
    Candidate best;
    for (int angle = a.angle - kCloseAngles * kCloseAngleStep;
         angle <= a.angle + kCloseAngles * kCloseAngleStep; angle += kCloseAngleStep) {
        const Candidate c = sweep(m, {a.kind}, angle, velocities).front();
        if (c.beats(best)) best = c;
    }
    return best;
}

Candidate search(const game::Match& m, ProjectileKind kind) {
    return closer(m, firstLook(m, {kind}).front());
}
}  // namespace

game::Impact tryThrow(const game::Match& match, const Throw& t) {
    game::Match trial = match.sandbox();
    using Kind = game::Command::Kind;
    const auto send = [&](Kind kind, const QString& text = {}, int value = 0) {
        trial.apply({trial.clock(), trial.currentPlayer(), kind, text, value});
    };
    send(Kind::Choose, {}, static_cast<int>(t.kind));
    send(Kind::Angle, QString::number(t.angle));
    send(Kind::Velocity, QString::number(t.velocity));
    send(Kind::Throw);
    while (trial.phase() == game::Phase::Flying)
        trial.advance(std::max(1, trial.msUntilNextEvent()));
    return trial.lastImpact();
}

Plan planThrow(const game::Match& m) {
    const auto held = [&](ProjectileKind kind) { return m.selectorShown(kind); };
    const bool nuke = held(ProjectileKind::Nuke);
    const std::vector<Candidate> found =
        firstLook(m, nuke ? Kinds{ProjectileKind::Normal, ProjectileKind::Nuke}
                          : Kinds{ProjectileKind::Normal});
    // A nuke that takes an enemy's building is the surest frag there is.
    if (nuke)
        if (const Candidate n = closer(m, found.back()); n.plan.frags) return n.plan;
    Candidate best = closer(m, found.front());
    if (held(ProjectileKind::Magnetic))
        if (const Candidate pulled = search(m, ProjectileKind::Magnetic);
            pulled.plan.frags && pulled.beats(best))
            best = pulled;
    if (!best.plan.frags && held(ProjectileKind::War))
        if (const Candidate war = search(m, ProjectileKind::War); war.plan.frags) best = war;
    return best.plan;
}

bool keepsClear(const game::Match& match, const Throw& t) {
    const Verdict v = judge(match, t.kind, tryThrow(match, t)).verdict;
    return v == Verdict::Frags || v == Verdict::Lands;
}

}  // namespace computer
