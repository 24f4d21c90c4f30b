#pragma once
// The computer at a seat: on its turn it waits a moment, plans its throw, types angle and velocity
// into the boxes one character at a time, picks its projectile and presses Throw, all in match
// time, so that a pause stops it mid-word and the same seed gives the same throws. Like a person,
// it throws at a new target roughly and corrects every further throw from where the last went.
#include <QPoint>
#include <QString>
#include <array>
#include <cstdint>
#include <deque>

#include "computer/Planner.h"
#include "core/Random.h"
#include "game/Pilot.h"

namespace computer {

// How far a throw is off the one the planner means.
struct Offset {
    int angle = 0;
    int velocity = 0;
};

// How a skill throws. Its first throw at a target is off the plan by up to `guessVelocity` of
// the velocity and `guessAngle` degrees; every further throw takes `gain` of what is left off,
// give or take `slack` of that share. Gain x (1 + slack) stays below 1.5, so that a correction
// never leaves a throw farther off than the last.
struct Style {
    double guessVelocity;
    double guessAngle;
    double gain;
    double slack;
};
Style styleOf(game::Skill skill);

// The first throw at a target: `aim`, roughly.
Offset guess(const Throw& aim, const Style& style, core::Random& random);
// A further throw at the same target: the last one's offset made smaller, by one at least in
// angle and in velocity unless it is nothing already.
Offset correct(const Offset& last, const Style& style, core::Random& random);

class Autopilot : public game::Pilot {
public:
    // How long it thinks before it types, between two keys, between the boxes, from choosing its
    // projectile to pressing Throw, and how long it holds Throw down.
    static constexpr int kThinkMs = 900, kKeyMs = 160, kBetweenBoxesMs = 300, kChoiceShownMs = 600,
                         kThrowHeldMs = 200;

    // What its hands do on its turn, for the window to show: the box it types into, Throw held
    // down.
    enum class Box { None, Angle, Velocity };
    struct Hands {
        Box typingInto = Box::None;
        bool throwDown = false;
    };

    explicit Autopilot(std::uint64_t seed) : random_(seed) {}
    // The computer seats it plays: all of them unless told otherwise, as when another machine
    // plays some of a match's seats.
    void playOnly(const std::array<bool, 4>& seats) { plays_ = seats; }
    // It takes over `seat` at `skill`, as when the person playing it went away.
    void takeOver(int seat, game::Skill skill) { taken_[static_cast<std::size_t>(seat)] = skill; }
    std::optional<int> nextActionAt(const game::Match& match) const override;
    std::vector<game::Command> act(const game::Match& match) override;
    Hands hands(const game::Match& match) const;

private:
    struct Turn {
        int player = -1;
        int since = -1;
        bool operator==(const Turn&) const = default;
    };
    struct Action {
        enum class Kind { Angle, ToVelocity, Velocity, Choose, PressThrow, Throw };
        int at;
        Kind kind;
        QString text;
        game::ProjectileKind projectile = game::ProjectileKind::Normal;
    };
    // At whom and from where a seat threw last, and how far off: a throw at the same enemy
    // standing where he stood, from the same place in the same round, corrects that one.
    struct Sight {
        int round = 0;
        int target = -1;
        QPoint from, at;
        bool operator==(const Sight&) const = default;
    };
    struct LastThrow {
        Sight sight;
        Offset off;
    };

    bool onTurn(const game::Match& m) const;
    std::optional<game::Skill> skillAt(const game::Match& m, int seat) const;
    void decide(const game::Match& m);
    Throw aimFor(const game::Match& m, const Plan& plan);
    void write(const game::Match& m, const Throw& t);

    core::Random random_;
    Turn turn_;
    std::deque<Action> script_;
    Hands hands_;
    std::array<std::optional<LastThrow>, 4> last_;
    std::array<bool, 4> plays_{true, true, true, true};
    std::array<std::optional<game::Skill>, 4> taken_{};
};

}  // namespace computer
