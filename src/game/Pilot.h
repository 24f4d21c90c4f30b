#pragma once
// Someone other than the people at the keyboard who plays a seat. The match asks it on its own
// clock, like any other thing that falls due, so that what it does happens at the same match
// time however the match is advanced, and stands still while the match is paused.
#include <optional>
#include <vector>

#include "game/Command.h"

namespace game {

class Match;

class Pilot {
public:
    virtual ~Pilot() = default;
    // Match time of its next action, or none while it has nothing to do.
    virtual std::optional<int> nextActionAt(const Match& match) const = 0;
    // Its action at the time it gave: the commands its keyboard and mouse send then, which go
    // into the match, and into its record, like anyone else's. It must move on, so that it is not
    // due again at once for the same thing.
    virtual std::vector<Command> act(const Match& match) = 0;
};

}  // namespace game
