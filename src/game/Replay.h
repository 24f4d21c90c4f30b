#pragma once
// A match played again from its record: the commands go into the match at the very times they
// went in when it was played, so that it draws, sounds and ends the same.
#include <optional>
#include <vector>

#include "game/Match.h"
#include "game/Record.h"

namespace game {

class Replay {
public:
    explicit Replay(std::vector<Command> commands) : commands_(std::move(commands)) {}

    // Moves `match` on by `ms` of its clock, applying on the way every command that falls due.
    void advance(Match& match, int ms);
    // The match clock of the next command, if one is left.
    std::optional<int> nextAt() const;

private:
    std::vector<Command> commands_;
    std::size_t next_ = 0;
};

// Plays `record` into `match` (set up as the record says) to the moment it ended; false when the
// match did not end there as the record says it did (with its final board, or left before).
bool playToTheEnd(Match& match, const Record& record);

}  // namespace game
