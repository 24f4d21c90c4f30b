#pragma once
// A small box over its owner window: it keeps the keyboard while it is up (raised and given the
// focus when it opens, and given it back whenever its owner is activated).
class QWidget;

namespace ui {

// `box` is a window owned by another one; call it once the box is shown.
void keepAboveOwner(QWidget* box);
// Hands the keyboard to `window` (after the box over it has gone).
void giveFocus(QWidget* window);

}  // namespace ui
