#include "net/Pace.h"

#include "game/Match.h"

namespace net {

Pace paceOf(const game::Match& m, const std::array<bool, 4>& remote) {
    if (m.paused()) return Pace::Still;
    if (m.phase() != game::Phase::Aiming || !m.inputOpen()) return Pace::Running;
    // A joiner's computer acts on its match's time, and the turn marker and a points popup move.
    const int seat = m.currentPlayer();
    const bool remoteComputer = remote[static_cast<std::size_t>(seat)] && m.computer(seat);
    if (remoteComputer || m.indicator().running() || m.popup().visible()) return Pace::Aiming;
    return Pace::Still;
}

std::optional<int> tickDue(Pace pace, int now, int last) {
    switch (pace) {
        case Pace::Aiming:
            if (now > last) return now;
            break;
        case Pace::Running:
            // Before the joiners reach the last tick, the next one is on its way.
            if (last - now <= Ticking::kEveryMs) return now + Ticking::kLeadMs;
            break;
        case Pace::Still:
            if (now - last >= Ticking::kStillMs) return now;
            break;
    }
    return std::nullopt;
}

}  // namespace net
