#include "game/ProjectileArt.h"

#include <array>
#include <string_view>
#include <utility>

namespace game {

namespace {

// Shapes are drawn in their first frame, stem at the bottom right; the other
// frames are produced by turning the shape, so an edit here follows through
// the whole spin. '.' is background, every other letter is looked up in the
// kind's palette.
//   L light edge   Y body   S shaded edge   T stem   K stem end (darkest)
// clang-format off
constexpr std::array<std::string_view, 10> kBanana = {
    "..........",
    ".L........",
    ".YL.......",
    ".YYL......",
    "SYYYL.....",
    "SYYYYL....",
    ".SYYYYLL..",
    ".SSYYYYYLT",
    "..SSSSSSTK",
    "..........",
};

// The war banana carries tail fins at its tip, one column wider than the rest.
constexpr std::array<std::string_view, 10> kWarBanana = {
    ".TT........",
    ".TL........",
    "TTYL.......",
    "..YYL......",
    ".SYYYL.....",
    ".SYYYYL....",
    "..SYYYYLL..",
    "..SSYYYYYLT",
    "...SSSSSSTK",
    "...........",
};

// The selector box is only 12 x 12, so the war icon folds its fins inside
// ten columns.
constexpr std::array<std::string_view, 10> kWarIcon = {
    ".TT.......",
    "TTL.......",
    ".TYL......",
    "..YYL.....",
    ".SYYYL....",
    ".SYYYYL...",
    "..SYYYYLL.",
    "..SSYYYYLT",
    "...SSSSSTK",
    "..........",
};

// The magnet banana: grey ends, red middle, a dark metal tip where the stem
// would be.
//   A/B/C greys   R red   D/E dark tip   K darkest point
constexpr std::array<std::string_view, 10> kMagnet = {
    "..........",
    ".B........",
    ".AB.......",
    ".AAB......",
    "CRRRB.....",
    "CRRRRR....",
    ".CRRRRRR..",
    ".CCRRRRABD",
    "..CCCCCBEK",
    "..........",
};

// clang-format on

using Palette = std::array<std::pair<char, core::Colour>, 7>;

// clang-format off
constexpr std::array<Palette, 4> kPalettes = {{
    {{{'Y', core::Colour(236, 238, 4)}, {'L', core::Colour(216, 206, 22)}, {'S', core::Colour(171, 164, 18)}, {'T', core::Colour(84, 84, 1)}, {'K', core::Colour(4, 2, 4)}}},
    {{{'Y', core::Colour(103, 238, 4)}, {'L', core::Colour(115, 216, 22)}, {'S', core::Colour(91, 171, 18)}, {'T', core::Colour(37, 84, 1)}, {'K', core::Colour(4, 2, 3)}}},
    {{{'Y', core::Colour(130, 132, 110)}, {'L', core::Colour(127, 128, 110)}, {'S', core::Colour(100, 101, 87)}, {'T', core::Colour(45, 46, 38)}, {'K', core::Colour(3, 3, 3)}}},
    {{{'R', core::Colour(229, 81, 48)}, {'A', core::Colour(124, 123, 114)}, {'B', core::Colour(102, 102, 86)}, {'C', core::Colour(99, 99, 89)},
      {'D', core::Colour(49, 49, 35)}, {'E', core::Colour(44, 44, 40)}, {'K', core::Colour(3, 3, 3)}}},
}};
// clang-format on
core::Canvas fromMap(const std::string_view* rows, int height, const Palette& palette) {
    core::Canvas c(static_cast<int>(rows[0].size()), height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < c.width(); ++x)
            for (const auto& [key, colour] : palette)
                if (key == rows[y][static_cast<std::size_t>(x)] && key != '\0')
                    c.setPixel(x, y, colour);
    return c;
}

template <std::size_t N>
core::Canvas fromMap(const std::array<std::string_view, N>& map, const Palette& palette) {
    return fromMap(map.data(), static_cast<int>(N), palette);
}

core::Canvas turnClockwise(const core::Canvas& in) {
    core::Canvas out(in.height(), in.width());
    for (int y = 0; y < out.height(); ++y)
        for (int x = 0; x < out.width(); ++x) out.setPixel(x, y, in.point(y, in.height() - 1 - x));
    return out;
}

core::Canvas firstFrame(int kind) {
    const Palette& palette = kPalettes[static_cast<std::size_t>(kind)];
    switch (kind) {
        case 2: return fromMap(kWarBanana, palette);
        case 3: return fromMap(kMagnet, palette);
        default: return fromMap(kBanana, palette);
    }
}

struct Art {
    std::array<std::array<core::Canvas, kFrames>, kKinds> frames;
    std::array<core::Canvas, kKinds> icons;
};

Art makeArt() {
    Art art;
    for (int kind = 0; kind < kKinds; ++kind) {
        core::Canvas frame = firstFrame(kind);
        for (int f = 0; f < kFrames; ++f) {
            art.frames[static_cast<std::size_t>(kind)][static_cast<std::size_t>(f)] = frame;
            frame = turnClockwise(frame);
        }
        const core::Canvas picture = kind == 2 ? fromMap(kWarIcon, kPalettes[2]) : firstFrame(kind);
        core::Canvas icon(12, 12);
        icon.blit(picture, 1, 1);
        art.icons[static_cast<std::size_t>(kind)] = icon;
    }
    return art;
}

const Art& art() {
    static const Art a = makeArt();
    return a;
}

}  // namespace

const core::Canvas& projectileFrame(ProjectileKind kind, int frame) {
    return art().frames[static_cast<std::size_t>(kind)][static_cast<std::size_t>(frame)];
}

const core::Canvas& selectorIcon(ProjectileKind kind) {
    return art().icons[static_cast<std::size_t>(kind)];
}

}  // namespace game
