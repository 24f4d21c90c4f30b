#pragma once
// Where the program starts and how it ends.
namespace grumbo {

// Opens the program's first screen.
void StartProgram();

}  // namespace grumbo
