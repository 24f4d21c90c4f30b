#pragma once
// What the screens before a match share: the game's title, their look, the display boxes.
#include <QString>
#include <cstdint>

class QLineEdit;
class QWidget;

namespace frontend {

QString GameTitle();

// The screen's small Tahoma face for every control, on a flat background of `background`.
void PrepareWindow(QWidget* window, std::int32_t background);

// A box the program writes and the user only reads: it takes neither typing nor the focus.
QLineEdit* MakeDisplayBox(QWidget* parent, int left, int top, int width, int height,
                          const QString& text);

}  // namespace frontend
