#include "game/Damage.h"

#include "core/Transparency.h"

namespace game {

namespace {
constexpr core::Colour kCraterRed{130, 20, 20};
constexpr core::Colour kBlastOutline{134, 20, 2};
constexpr core::Colour kBlastFill{125, 20, 2};

bool isSky(const core::Canvas& sky, const core::Canvas& scene, int x, int y) {
    return sky.point(x, y) == scene.point(x, y);
}
}  // namespace

void drawCraterRing(core::Canvas& scene, QPoint centre, int radius) {
    scene.circle(centre.x(), centre.y(), radius, kCraterRed, kCraterRed);
}

void cutCraterHole(core::Canvas& scene, const core::Canvas& sky, QPoint centre) {
    scene.circle(centre.x(), centre.y(), kCraterRadius, core::kWhite, core::kWhite);
    // The white disc becomes a window onto the sky: a rectangle around it, made see-through.
    const auto left = static_cast<float>(centre.x() - 5), top = static_cast<float>(centre.y() - 5);
    core::makeTransparent(scene, left - 5, top - 5, left + 15, top + 15,
                          [&](int x, int y) { return sky.point(x, y); });
}

Span buildingAt(const core::Canvas& sky, const core::Canvas& scene, int x) {
    do --x;
    while (!isSky(sky, scene, x, kScanRow));
    const int left = x + 1;
    do ++x;
    while (!isSky(sky, scene, x, kScanRow));
    return {left, x};
}

int rowAboveRoof(const core::Canvas& sky, const core::Canvas& scene, const Span& b) {
    int y = kScanRow;
    core::Colour c;
    do {
        --y;
        c = sky.point(b.right - 1, y);
    } while (!(c == scene.point(b.right - 1, y) && c == scene.point(b.left, y)));
    return y;
}

void dissolveRow(core::Canvas& scene, const core::Canvas& sky, const Span& b, int y,
                 core::Random& random) {
    const core::Colour c = sky.point(b.left, y);
    for (int i = 0; i < kDissolvePixelsPerRow; ++i)
        scene.setPixel(random.below(b.right - b.left) + b.left, y, c);
}

void clearBuilding(core::Canvas& scene, const core::Canvas& sky, const Span& b, int roof) {
    for (int y = roof; y <= kGroundLine; ++y)
        scene.line(b.left, y, b.right, y, sky.point(b.left, y));
}

void drawBlastRing(Figure& figure, int radius) {
    figure.canvas().circle(figure.width() / 2, figure.height() / 2, radius, kBlastOutline,
                           kBlastFill);
}

void vaporizePick(Figure& figure, const core::Canvas& sky, core::Random& random) {
    const int x = random.below(figure.width());
    const int y = random.below(figure.height());
    const core::Colour behind = sky.point(x + figure.pos.x(), y + figure.pos.y());
    if (figure.canvas().point(x, y) != behind) figure.canvas().setPixel(x, y, behind);
}

}  // namespace game
