#pragma once
// The computer at a seat: on its turn it waits a moment, plans its throw, types angle and velocity
// into the boxes one character at a time, picks its projectile and throws, all in match time, so
// that a pause stops it mid-word and the same seed gives the same throws.
#include <QString>
#include <cstdint>
#include <deque>

#include "computer/Planner.h"
#include "core/Random.h"
#include "game/Pilot.h"

namespace computer {

// How a skill plays: the throw it means is spread around by up to about `velocitySpread` of its
// velocity and `angleSpread` degrees, and every further throw in a round keeps `narrowing` of
// the spread of the one before (a patient player learns from his misses).
struct Style {
    double velocitySpread;
    double angleSpread;
    double narrowing;
};
Style styleOf(game::Skill skill);

// What the computer throws when it means `aim`: the spread applied with draws from `random`.
Throw spread(const Throw& aim, const Style& style, int earlierThrows, core::Random& random);

class Autopilot : public game::Pilot {
public:
    // How long it thinks before it types, between two keys, between the boxes, before it throws.
    static constexpr int kThinkMs = 900, kKeyMs = 160, kBetweenBoxesMs = 300, kBeforeThrowMs = 450;

    explicit Autopilot(std::uint64_t seed) : random_(seed) {}
    std::optional<int> nextActionAt(const game::Match& match) const override;
    void act(game::Match& match) override;

private:
    struct Turn {
        int player = -1;
        int since = -1;
        bool operator==(const Turn&) const = default;
    };
    struct Action {
        enum class Kind { Angle, Velocity, Choose, Throw };
        int at;
        Kind kind;
        QString text;
        game::ProjectileKind projectile = game::ProjectileKind::Normal;
    };
    static bool onTurn(const game::Match& m);
    void decide(game::Match& m);

    core::Random random_;
    Turn turn_;
    std::deque<Action> script_;
};

}  // namespace computer
