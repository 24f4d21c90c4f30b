#pragma once
// The play field: its size, the rows that matter to the characters, where a projectile counts as
// gone, and its two skies. Pixels, origin at the top-left corner, x to the right, y downwards.
namespace ui {
class PictureBox;
}

namespace field {

constexpr int kWidth = 722;
constexpr int kHeight = 466;
// The status strip below the field.
constexpr int kStripHeight = 44;
// The buildings stand on the field's bottom row; a character whose top edge lies below it is out
// of play.
constexpr int kGroundLine = kHeight;
// Characters out of play are parked here, just below the field, behind the status strip.
constexpr int kOutOfPlay = kGroundLine + 1;
// The skyline ends two pixels short of the right edge.
constexpr int kSkylineEnd = 720;

// A projectile may go 40 pixels beyond either side, 20 below the ground line and far above the
// top before it counts as gone.
constexpr bool OffField(int left, int top) {
    return top > kGroundLine + 20 || top < -1800 || left > kWidth + 40 || left < -40;
}

// A sky runs from its top colour in the first row to its bottom colour in the last.
struct Sky {
    int topRed, topGreen, topBlue;
    int bottomRed, bottomGreen, bottomBlue;
};
constexpr Sky kDaySky{3, 61, 155, 80, 167, 254};
constexpr Sky kNightSky{46, 11, 71, 76, 7, 147};

// Paints `sky` over the whole of `pic`.
void PaintSky(ui::PictureBox& pic, const Sky& sky);

}  // namespace field
