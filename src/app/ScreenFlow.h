#pragma once
// The top of the program: which screens exist and how they reach each other.
namespace grumbo {

// Hands the match screen the boxes it shows over itself.
void WireScreens();
// Opens the program's first screen.
void StartProgram();

}  // namespace grumbo
