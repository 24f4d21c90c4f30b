#pragma once
// Typed characters and clicks of controls, handed to a screen's handlers.
#include <functional>

class QWidget;

namespace ui {

// The code of a typed character as a key filter sees it: the whole 16-bit code, unsigned, so
// that characters from U+8000 up are no negative numbers. A filter swallows a key by setting it
// to 0.
using CharCode = char16_t;

// Hands every character typed into `control` to `handler` before it arrives there. Keys that type
// nothing (arrows, Delete, Home) are editing keys and pass untouched.
void onKeyPress(QWidget* control, std::function<void(CharCode&)> handler);
// Calls `handler` when the left button is released over `control` while it is visible.
void onClick(QWidget* control, std::function<void()> handler);

}  // namespace ui
