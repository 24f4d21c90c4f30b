#pragma once
// How the computer finds its throw: it tries throws on copies of the match, under the very rules
// of the game (gravity, wind, magnetic pull, the city as it stands, craters and all), and keeps
// the one that frags an enemy with the most room for error.
#include "game/Match.h"

namespace computer {

struct Throw {
    int angle = 45;
    int velocity = 50;
    game::ProjectileKind kind = game::ProjectileKind::Normal;
    bool operator==(const Throw&) const = default;
};

// How the current player's throw `t` would end, tried on a copy of `match`.
game::Impact tryThrow(const game::Match& match, const Throw& t);

struct Plan {
    Throw aim;
    // True when the throw frags an enemy; otherwise it lands as near one as could be found.
    bool frags = false;
    // For a throw that frags: how many velocities next to it in a row frag too.
    int room = 0;
    // The enemy it frags or lands nearest to; -1 when no throw came near anyone.
    int target = -1;
};

// The throw the current player means, never one that frags himself or a team mate or lands on
// his own side. A special projectile he may choose is taken where it helps: a nuke that takes an
// enemy's building, a magnetic one with more room, a war projectile where nothing else gets
// through.
Plan planThrow(const game::Match& match);

// True when the current player's throw `t` stays off his own side: it frags nobody of his side,
// and it ends nearer an enemy than himself and his team mate, and not close to either of them.
bool keepsClear(const game::Match& match, const Throw& t);

}  // namespace computer
