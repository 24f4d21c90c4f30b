#pragma once
// The game's text face.
#include <QFont>

namespace ui {

// Tahoma 8.25 pt and 14.25 pt as the game's screens use them, in pixels.
constexpr int kSmallText = 11;
constexpr int kLargeText = 19;

// Tahoma at a pixel size, or the default sans font when it is not installed.
QFont Tahoma(int pixelSize, bool bold = false);

}  // namespace ui
