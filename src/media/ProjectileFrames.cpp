#include "media/ProjectileFrames.h"

#include "media/ProjectileArt.h"

namespace media {

namespace {
ui::Surface ToSurface(const grumbo::Sprite& s) {
    ui::Surface out(s.width, s.height);
    for (int y = 0; y < s.height; ++y)
        for (int x = 0; x < s.width; ++x) {
            const std::uint32_t c = s.rgb[static_cast<std::size_t>(y) * s.width + x];
            out.PSet(x, y, ui::RGB((c >> 16) & 0xFF, (c >> 8) & 0xFF, c & 0xFF));
        }
    out.TakeDirty();
    return out;
}
}  // namespace

ui::Surface ProjectileSurface(int kind, int frame) {
    return ToSurface(grumbo::projectileFrame(kind, frame));
}

ui::Surface SelectorSurface(int kind) { return ToSurface(grumbo::selectorIcon(kind)); }

}  // namespace media
