#pragma once
// The top of the program: which screens exist and how they reach each other.
#include <QStringList>

namespace grumbo {

// Hands the match screen the boxes it shows over itself.
void WireScreens();
// The game's icon in every size it ships.
QStringList IconFiles();
// Opens the program's first screen.
void StartProgram();

}  // namespace grumbo
