#include "game/Replay.h"

#include <algorithm>

namespace game {

void Replay::advance(Match& match, int ms) {
    const int until = match.clock() + std::max(ms, 0);
    for (; next_ < commands_.size() && commands_[next_].at <= until; ++next_)
        match.apply(commands_[next_]);
    match.advance(until - match.clock());
}

std::optional<int> Replay::nextAt() const {
    if (next_ == commands_.size()) return std::nullopt;
    return commands_[next_].at;
}

bool playToTheEnd(Match& match, const Record& record) {
    Replay replay(record.commands);
    replay.advance(match, record.endedAt - match.clock());
    return match.over() == record.finished;
}

}  // namespace game
