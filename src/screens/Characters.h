#pragma once
// The characters the players can choose: every complete character of the data folder's
// "characters" folder, and the two hidden ones that a secret name unlocks.
#include <QString>
#include <QStringList>

#include "core/DataFolder.h"

namespace screens {

// The list holds at most this many names, unlocked ones included.
constexpr int kMostCharacters = 41;

// The complete characters, in the folder's alphabetical order ignoring case: a standing picture
// name + ".bmp" followed in that order by name + "1.bmp" and then name + "2.bmp", all three of a
// character's size. The hidden characters are never listed.
QStringList scanCharacters(const core::DataFolder& data);
}  // namespace screens
