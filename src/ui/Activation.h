#pragma once
// A screen's activation: the moment it becomes the program's active screen.
#include <functional>

class QWidget;

namespace ui {

// Calls `handler` when `window` is shown, and again whenever it becomes the active window after
// it had lost that place. Showing counts as activation by itself, so a desktop without a window
// manager, which activates nothing, still gets it once.
void onActivate(QWidget* window, std::function<void()> handler);

}  // namespace ui
