#pragma once
// How the front-end screens look: their window frame and the desktop colours they take.
#include <Qt>

#include "core/Colour.h"

class QWidget;

namespace ui {

// A title bar with only a close box, on a normal top-level window: a tool-window frame would
// drop the screen from the desktop's task switcher.
Qt::WindowFlags frontEndFlags();

// The desktop's colours.
core::Colour menuColour();
core::Colour windowColour();
core::Colour buttonFaceColour();

// Paints `widget`'s background (window or text field) in `colour`.
void setBackColour(QWidget* widget, core::Colour colour);

}  // namespace ui
