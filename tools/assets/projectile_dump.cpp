// Prints the built-in projectile pictures as text so the artwork page can
// show exactly what the game draws: one "kind frame width height" line per
// sprite (frame -1 is the selector icon), then its pixels as hex, row by row.
#include <cstdio>

#include "media/ProjectileArt.h"

int main() {
    for (int kind = 0; kind < 4; ++kind) {
        for (int frame = -1; frame < 4; ++frame) {
            const grumbo::Sprite s =
                frame < 0 ? grumbo::selectorIcon(kind) : grumbo::projectileFrame(kind, frame);
            std::printf("%d %d %d %d\n", kind, frame, s.width, s.height);
            for (int y = 0; y < s.height; ++y) {
                for (int x = 0; x < s.width; ++x)
                    std::printf("%06x ", static_cast<unsigned>(s.rgb[y * s.width + x]));
                std::printf("\n");
            }
        }
    }
}
