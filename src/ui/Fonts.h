#pragma once
// The game's text face.
#include <QFont>

namespace ui {

// tahoma 8.25 pt and 14.25 pt as the game's screens use them, in pixels.
constexpr int kSmallText = 11;
constexpr int kLargeText = 19;

// tahoma at a pixel size, or the default sans font when it is not installed.
QFont tahoma(int pixelSize, bool bold = false);

}  // namespace ui
