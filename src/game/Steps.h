#pragma once
// The phases of a match that take time, each a step of its own kind with only what it needs: the
// start's test throw, the building of a round, what a landing projectile does, the end. A step
// waits for its next moment on the match's clock; the next step starts when it is done.
#include <QRect>
#include <variant>

namespace game::steps {

// The test throw before the first round: a tick every 24 ms until it has crossed its area.
struct Calibrate {
    int ticks = 0;
};
// The test's result stays up a second.
struct ShowCalibration {};
// The turn and the random numbers start afresh.
struct FirstRound {};
// A new city behind the loading box, one readable text after another.
struct BuildRound {
    int stage = 0;
};
// The rings of a crater, then the hole.
struct Crater {
    int rings = 0;
};
// Points for a building hit near the enemy, with their popup.
struct NearMiss {};
// The turn passes.
struct EndTurn {};
// A nuked building crumbles from the ground up; `x` is where the nuke touched it.
struct Dissolve {
    int x = 0;
    int row = 0;
};
// The characters on the nuked building, from `from` on; after a hit it goes on only while the
// round stands.
struct NukeScan {
    int from = 0;
    bool afterHit = false;
};
// A nuke that fragged nobody standing counts as a miss of `thrower`.
struct NukeMiss {
    int thrower = 0;
};
// The explosion over a hit character.
struct Blast {
    int player = 0;
    int rings = 0;
};
// A nuked character turns into the sky behind him.
struct Vaporize {
    int player = 0;
    int picks = 0;
};
// The frag, the round and the points of a hit, with their popup over `anchor`.
struct ScoreHit {
    int player = 0;
    int thrower = 0;
    bool nuke = false;
    QRect anchor;
};
// The thrower's victory dance.
struct Dance {
    int player = 0;
    int frames = 0;
};
// The turn passes, then the match ends or a new round may start.
struct AfterHit {
    int thrower = 0;
};
// The final board; the game-over box five seconds later.
struct FinalBoard {};

}  // namespace game::steps

namespace game {

using Step =
    std::variant<steps::Calibrate, steps::ShowCalibration, steps::FirstRound, steps::BuildRound,
                 steps::Crater, steps::NearMiss, steps::EndTurn, steps::Dissolve, steps::NukeScan,
                 steps::NukeMiss, steps::Blast, steps::Vaporize, steps::ScoreHit, steps::Dance,
                 steps::AfterHit, steps::FinalBoard>;

}  // namespace game
