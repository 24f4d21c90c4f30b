#include "match/Field.h"

#include "modmain/modMain.h"
#include "ui/PictureBox.h"

namespace field {

void PaintSky(ui::PictureBox& pic, const Sky& sky) {
    modMain::DrawGradient(pic, static_cast<float>(sky.topRed), static_cast<float>(sky.topGreen),
                          static_cast<float>(sky.topBlue), static_cast<float>(sky.bottomRed),
                          static_cast<float>(sky.bottomGreen), static_cast<float>(sky.bottomBlue),
                          0, static_cast<float>(pic.Width()), 0, static_cast<float>(pic.Height()));
}

}  // namespace field
