#include "computer/Autopilot.h"

#include <algorithm>
#include <cmath>

#include "core/Numbers.h"

namespace computer {

namespace {
// The largest angle and velocity the boxes take: three digits.
constexpr int kMostTyped = 999;
}  // namespace

Style styleOf(game::Skill skill) {
    switch (skill) {
        case game::Skill::Easy: return {0.8, 20, 0.97};
        case game::Skill::Normal: return {0.3, 8, 0.8};
        case game::Skill::Hard: return {0.15, 3, 0.55};
    }
    return {0, 0, 1};
}

Throw spread(const Throw& aim, const Style& style, int earlierThrows, core::Random& random) {
    const double narrowed = std::pow(style.narrowing, earlierThrows);
    // The sum of two draws leans to the middle: most throws land near what was meant.
    const auto draw = [&] { return random.next() + random.next() - 1; };
    Throw t = aim;
    t.velocity = std::clamp(
        core::roundHalfEven(aim.velocity * (1 + style.velocitySpread * narrowed * draw())), 0,
        kMostTyped);
    t.angle = std::clamp(core::roundHalfEven(aim.angle + style.angleSpread * narrowed * draw()), 0,
                         kMostTyped);
    return t;
}

bool Autopilot::onTurn(const game::Match& m) {
    return m.phase() == game::Phase::Aiming && m.inputOpen() && !m.paused() &&
           m.computer(m.currentPlayer()).has_value();
}

std::optional<int> Autopilot::nextActionAt(const game::Match& m) const {
    if (!onTurn(m)) return std::nullopt;
    if (turn_ != Turn{m.currentPlayer(), m.aimingSince()}) return m.aimingSince() + kThinkMs;
    // A script played out while the turn still stands (a throw the match did not take): think
    // again.
    return script_.empty() ? m.now() + kThinkMs : script_.front().at;
}

void Autopilot::act(game::Match& m) {
    const Turn now{m.currentPlayer(), m.aimingSince()};
    if (turn_ != now || script_.empty()) {
        turn_ = now;
        decide(m);
        return;
    }
    const Action a = script_.front();
    script_.pop_front();
    switch (a.kind) {
        case Action::Kind::Angle: m.setAngleText(a.text); break;
        case Action::Kind::Velocity: m.setVelocityText(a.text); break;
        case Action::Kind::Choose: m.chooseProjectile(a.projectile); break;
        case Action::Kind::Throw: m.throwProjectile(); break;
    }
}

void Autopilot::decide(game::Match& m) {
    const int me = m.currentPlayer();
    // The throws it has wasted since the round began.
    const int wasted = m.stats(me).misses - m.stats(me).missMark;
    const Throw t = spread(planThrow(m).aim, styleOf(*m.computer(me)), wasted, random_);
    script_.clear();
    int at = m.now();
    const auto type = [&](Action::Kind kind, int value) {
        const QString text = QString::number(value);
        for (qsizetype n = 1; n <= text.size(); ++n)
            script_.push_back({at += kKeyMs, kind, text.left(n)});
    };
    type(Action::Kind::Angle, t.angle);
    at += kBetweenBoxesMs;
    type(Action::Kind::Velocity, t.velocity);
    if (t.kind != game::ProjectileKind::Normal)
        script_.push_back({at += kBetweenBoxesMs, Action::Kind::Choose, {}, t.kind});
    script_.push_back({at += kBeforeThrowMs, Action::Kind::Throw, {}});
}

}  // namespace computer
