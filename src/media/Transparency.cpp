#include "media/Transparency.h"

#include "core/Numeric.h"
#include "ui/PictureBox.h"
#include "ui/Surface.h"

namespace media {

void MakeTransparent(ui::Surface& pic, float StartX, float StartY, float EndX, float EndY,
                     const BehindColour& behind) {
    const grumbo::Integer x1 = grumbo::CInt(StartX), x2 = grumbo::CInt(EndX);
    const grumbo::Integer y1 = grumbo::CInt(StartY), y2 = grumbo::CInt(EndY);
    for (int x = x1; x <= x2; ++x)
        for (int y = y1; y <= y2; ++y)
            if (pic.Point(x, y) == ui::kWhite) pic.PSet(x, y, behind(x, y));
}

void MakeTransparent(ui::PictureBox& pic, float StartX, float StartY, float EndX, float EndY,
                     const BehindColour& behind) {
    MakeTransparent(pic.surface(), StartX, StartY, EndX, EndY, behind);
    pic.Changed();
}

void MakeTransparent(ui::PictureBox& pic, float StartX, float StartY, float EndX, float EndY,
                     std::int32_t screenBackground) {
    MakeTransparent(pic, StartX, StartY, EndX, EndY, [=](int, int) { return screenBackground; });
}

}  // namespace media
