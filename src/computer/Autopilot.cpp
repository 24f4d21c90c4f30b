#include "computer/Autopilot.h"

#include <algorithm>

#include "core/Numbers.h"

namespace computer {

namespace {
// The largest angle and velocity the boxes take: three digits.
constexpr int kMostTyped = 999;

// Between -1 and 1, most often near 0: the sum of two draws leans to the middle.
double draw(core::Random& random) { return random.next() + random.next() - 1; }

// `off` made `share` smaller, by one at least: a correction that rounds to nothing would throw
// the same miss again.
int smaller(int off, double share) {
    if (off == 0) return 0;
    const int step = core::roundHalfEven(off * share);
    return off - (step != 0 ? step : (off > 0 ? 1 : -1));
}

// `aim` off by `offset`, as far as the boxes can take it.
Throw offBy(const Throw& aim, const Offset& offset) {
    Throw t = aim;
    t.angle = std::clamp(aim.angle + offset.angle, 0, kMostTyped);
    t.velocity = std::clamp(aim.velocity + offset.velocity, 0, kMostTyped);
    return t;
}

int halfway(int from, int to) { return to + (from - to) / 2; }

// `t` drawn towards `aim` until it stays off the thrower's own side: a rough throw may land
// short, never on its own roofs or beside its team mate.
Throw keptClear(const game::Match& m, Throw t, const Throw& aim) {
    while (t != aim && !keepsClear(m, t)) {
        t.angle = halfway(t.angle, aim.angle);
        t.velocity = halfway(t.velocity, aim.velocity);
    }
    return t;
}
}  // namespace

Style styleOf(game::Skill skill) {
    switch (skill) {
        case game::Skill::Easy: return {0.8, 20, 0.08, 0.6};
        case game::Skill::Normal: return {0.3, 8, 0.3, 0.4};
        case game::Skill::Hard: return {0.15, 3, 0.85, 0.25};
    }
    return {0, 0, 1, 0};
}

Offset guess(const Throw& aim, const Style& style, core::Random& random) {
    Offset off;
    off.velocity = core::roundHalfEven(aim.velocity * style.guessVelocity * draw(random));
    off.angle = core::roundHalfEven(style.guessAngle * draw(random));
    return off;
}

Offset correct(const Offset& last, const Style& style, core::Random& random) {
    const auto share = [&] { return style.gain * (1 + style.slack * draw(random)); };
    Offset off;
    off.velocity = smaller(last.velocity, share());
    off.angle = smaller(last.angle, share());
    return off;
}

bool Autopilot::onTurn(const game::Match& m) const {
    return m.phase() == game::Phase::Aiming && m.inputOpen() && !m.paused() &&
           skillAt(m, m.currentPlayer()).has_value();
}

std::optional<game::Skill> Autopilot::skillAt(const game::Match& m, int seat) const {
    const auto k = static_cast<std::size_t>(seat);
    if (taken_[k]) return taken_[k];
    return plays_[k] ? m.computer(seat) : std::nullopt;
}

std::optional<int> Autopilot::nextActionAt(const game::Match& m) const {
    if (!onTurn(m)) return std::nullopt;
    if (turn_ != Turn{m.currentPlayer(), m.aimingSince()}) return m.aimingSince() + kThinkMs;
    // A script played out while the turn still stands (a throw the match did not take): think
    // again.
    return script_.empty() ? m.now() + kThinkMs : script_.front().at;
}

std::vector<game::Command> Autopilot::act(const game::Match& m) {
    const Turn now{m.currentPlayer(), m.aimingSince()};
    if (turn_ != now || script_.empty()) {
        turn_ = now;
        decide(m);
        return {};
    }
    const Action a = script_.front();
    script_.pop_front();
    using Kind = game::Command::Kind;
    const auto send = [&](Kind kind, const QString& text = {}, int value = 0) {
        return std::vector<game::Command>{{m.clock(), m.currentPlayer(), kind, text, value}};
    };
    switch (a.kind) {
        case Action::Kind::Angle: return send(Kind::Angle, a.text);
        case Action::Kind::ToVelocity: hands_.typingInto = Box::Velocity; break;
        case Action::Kind::Velocity: return send(Kind::Velocity, a.text);
        case Action::Kind::Choose: return send(Kind::Choose, {}, static_cast<int>(a.projectile));
        case Action::Kind::PressThrow: hands_.throwDown = true; break;
        case Action::Kind::Throw: hands_.throwDown = false; return send(Kind::Throw);
    }
    return {};
}

Autopilot::Hands Autopilot::hands(const game::Match& m) const {
    if (!onTurn(m)) return {};
    // While it thinks it sits at the angle box, where every turn begins.
    if (turn_ != Turn{m.currentPlayer(), m.aimingSince()}) return {Box::Angle, false};
    return hands_;
}

void Autopilot::decide(const game::Match& m) {
    const Throw t = aimFor(m, planThrow(m));
    hands_ = {Box::Angle, false};
    write(m, t);
}

// Its throw starts from its last one, moved as far as the plan moved (the wind turned, a crater
// opened a way), and takes off part of what that one missed by.
Throw Autopilot::aimFor(const game::Match& m, const Plan& plan) {
    const int me = m.currentPlayer();
    const Style style = styleOf(*skillAt(m, me));
    const Sight sight{m.round(), plan.target, m.figure(me).pos,
                      plan.target < 0 ? QPoint() : m.figure(plan.target).pos};
    std::optional<LastThrow>& last = last_[static_cast<std::size_t>(me)];
    const Offset off = last && last->sight == sight ? correct(last->off, style, random_)
                                                    : guess(plan.aim, style, random_);
    const Throw t = keptClear(m, offBy(plan.aim, off), plan.aim);
    last = LastThrow{sight, {t.angle - plan.aim.angle, t.velocity - plan.aim.velocity}};
    return t;
}

void Autopilot::write(const game::Match& m, const Throw& t) {
    script_.clear();
    int at = m.now();
    const auto type = [&](Action::Kind kind, int value) {
        const QString text = QString::number(value);
        for (qsizetype n = 1; n <= text.size(); ++n)
            script_.push_back({at += kKeyMs, kind, text.left(n)});
    };
    type(Action::Kind::Angle, t.angle);
    script_.push_back({at += kBetweenBoxesMs, Action::Kind::ToVelocity, {}});
    type(Action::Kind::Velocity, t.velocity);
    at += kBetweenBoxesMs;
    // The frame moves to its projectile a while before the throw, for the others to see.
    if (t.kind != game::ProjectileKind::Normal) {
        script_.push_back({at, Action::Kind::Choose, {}, t.kind});
        at += kChoiceShownMs;
    }
    script_.push_back({at, Action::Kind::PressThrow, {}});
    script_.push_back({at += kThrowHeldMs, Action::Kind::Throw, {}});
}

}  // namespace computer
