#pragma once
// How the front-end screens look: their window frame and the desktop colours they take.
#include <Qt>
#include <cstdint>

class QWidget;

namespace ui {

// A title bar with only a close box, on a normal top-level window: a tool-window frame would
// drop the screen from the desktop's task switcher and from the program's last-window count.
Qt::WindowFlags FrontEndFlags();

// The desktop's colours as 24-bit values.
std::int32_t MenuColour();
std::int32_t WindowColour();
std::int32_t ButtonFaceColour();

// Paints `widget`'s background (window or text field) in `colour`.
void SetBackColour(QWidget* widget, std::int32_t colour);

}  // namespace ui
