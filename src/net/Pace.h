#pragma once
// How far ahead of the host's match the joiners may run, and how often they hear it. While a turn
// is aimed every key counts at once, so joiners follow the host closely; while the match plays on
// by itself (a flight, a blast, a new round) only a pause can come, and it may wait a moment on
// every machine alike, so joiners are told a little ahead and less often; while nothing on the
// field moves, they hear only now and then.
#include <array>
#include <optional>

namespace game {
class Match;
}

namespace net {

enum class Pace { Aiming, Running, Still };

// The pace of `match`, whose seats marked `remote` are played on other machines.
Pace paceOf(const game::Match& match, const std::array<bool, 4>& remote);

struct Ticking {
    // How often the host's timer looks whether a tick is due.
    static constexpr int kEveryMs = 50;
    // How far ahead of its match the host tells joiners while the match runs by itself.
    static constexpr int kLeadMs = 250;
    // How often joiners hear of a match where nothing moves.
    static constexpr int kStillMs = 1000;
};

// The tick the host tells at match time `now`, at `pace`, the last it told being `last`; none
// when none is due.
std::optional<int> tickDue(Pace pace, int now, int last);

}  // namespace net
