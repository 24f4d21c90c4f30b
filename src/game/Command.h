#pragma once
// What enters a match from outside: a box's text, a projectile chosen, a throw, a key going down
// or up, the pause ended, the match left. Each takes effect at its match time, so a match is
// wholly given by how it was set up and the list of its commands.
#include <QString>

namespace game {

struct Command {
    enum class Kind {
        Angle,     // the angle box now reads `text`
        Velocity,  // the velocity box now reads `text`
        Choose,    // the projectile of kind `value` is chosen
        Throw,
        KeyDown,  // key `value` went down (the keyboard trap's key codes)
        KeyUp,    // key `value` came up
        Resume,   // the pause box's "Resume"
        Leave,    // the match is left: "Start Over", "Quit", or its window closed
    };
    // Milliseconds since the match began, pauses included.
    int at = 0;
    // The player, 0 to 3, whose keyboard, mouse or computer sent it.
    int seat = 0;
    Kind kind = Kind::Throw;
    QString text{};
    int value = 0;

    bool operator==(const Command&) const = default;
};

}  // namespace game
