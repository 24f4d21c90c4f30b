#pragma once
// A player's name as the game takes it, typed or pasted: the characters a player sees, none that
// would break a window title or the board.
#include <QString>

namespace game {

// The longest name, in characters as a player sees them: a letter with its accents, or an emoji
// with its skin tone, counts once.
constexpr int kNameLength = 15;

// `typed` without control characters or line breaks, cut after its fifteenth character.
QString tidyName(const QString& typed);

}  // namespace game
