#pragma once
// How the front-end screens look: their window frame and the desktop colours they take.
#include <Qt>

#include "core/Colour.h"

class QWidget;

namespace ui {

// The small frame of a tool window with only a close box: the front-end screens are small fixed
// boxes, nothing to minimise or maximise. Some desktops leave tool windows out of the taskbar;
// the match window, which players leave and come back to, stays an ordinary window.
Qt::WindowFlags frontEndFlags();

// The desktop's colours.
core::Colour menuColour();
core::Colour windowColour();
core::Colour buttonFaceColour();

// Paints `widget`'s background (window or text field) in `colour`.
void setBackColour(QWidget* widget, core::Colour colour);

}  // namespace ui
