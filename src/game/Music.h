#pragma once
// Background music: 22 tunes, each replaced by a random one when it has played its length.
#include <QString>

namespace game {

constexpr int kTunes = 22;

// Seconds tune `tune` lasts; 0 for a number that is no tune.
int tuneSeconds(int tune);
// "midi/7.mid".
QString tuneFile(int tune);

}  // namespace game
