#pragma once
// Pictures have no alpha channel: pure white marks what should show through. This turns each
// pure white pixel of a rectangle into the colour behind it, which the caller supplies.
#include <cstdint>
#include <functional>

namespace ui {
class PictureBox;
class Surface;
}  // namespace ui

namespace media {

using BehindColour = std::function<std::int32_t(int x, int y)>;

// Columns and rows from the rounded start to the rounded end, both included; pixels outside the
// surface read as -1 and are left alone.
void MakeTransparent(ui::Surface& pic, float StartX, float StartY, float EndX, float EndY,
                     const BehindColour& behind);
void MakeTransparent(ui::PictureBox& pic, float StartX, float StartY, float EndX, float EndY,
                     const BehindColour& behind);

// The variant of screens with a flat background (title, player selection): white takes the
// screen's background colour, whatever lies behind the picture.
void MakeTransparent(ui::PictureBox& pic, float StartX, float StartY, float EndX, float EndY,
                     std::int32_t screenBackground);

}  // namespace media
