#include "media/ProjectileArt.h"

#include <array>
#include <string_view>
#include <utility>

namespace grumbo {
namespace {

constexpr std::uint32_t kWhite = 0xFFFFFF;

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

using Palette = std::array<std::pair<char, std::uint32_t>, 7>;

// clang-format off
constexpr std::array<Palette, 4> kPalettes = {{
    {{{'Y', 0xECEE04}, {'L', 0xD8CE16}, {'S', 0xABA412}, {'T', 0x545401}, {'K', 0x040204}}},
    {{{'Y', 0x67EE04}, {'L', 0x73D816}, {'S', 0x5BAB12}, {'T', 0x255401}, {'K', 0x040203}}},
    {{{'Y', 0x82846E}, {'L', 0x7F806E}, {'S', 0x646557}, {'T', 0x2D2E26}, {'K', 0x030303}}},
    {{{'R', 0xE55130}, {'A', 0x7C7B72}, {'B', 0x666656}, {'C', 0x636359},
      {'D', 0x313123}, {'E', 0x2C2C28}, {'K', 0x030303}}},
}};
// clang-format on

template <std::size_t N>
Sprite fromMap(const std::array<std::string_view, N>& map, const Palette& palette) {
    Sprite s;
    s.width = static_cast<int>(map[0].size());
    s.height = static_cast<int>(N);
    s.rgb.reserve(static_cast<std::size_t>(s.width * s.height));
    for (std::string_view row : map) {
        for (char key : row) {
            std::uint32_t colour = kWhite;
            for (const auto& [k, rgb] : palette) {
                if (k == key && key != '\0') colour = rgb;
            }
            s.rgb.push_back(colour);
        }
    }
    return s;
}

Sprite turnClockwise(const Sprite& in) {
    Sprite out;
    out.width = in.height;
    out.height = in.width;
    out.rgb.resize(in.rgb.size());
    for (int y = 0; y < out.height; ++y) {
        for (int x = 0; x < out.width; ++x) {
            const int srcX = y;
            const int srcY = in.height - 1 - x;
            out.rgb[static_cast<std::size_t>(y * out.width + x)] =
                in.rgb[static_cast<std::size_t>(srcY * in.width + srcX)];
        }
    }
    return out;
}

Sprite firstFrame(int kind) {
    const Palette& palette = kPalettes[static_cast<std::size_t>(kind)];
    switch (kind) {
        case 2: return fromMap(kWarBanana, palette);
        case 3: return fromMap(kMagnet, palette);
        default: return fromMap(kBanana, palette);
    }
}

bool validKind(int kind) { return kind >= 0 && kind <= 3; }

}  // namespace

Sprite projectileFrame(int kind, int frame) {
    if (!validKind(kind) || frame < 0 || frame > 3) return {};
    Sprite s = firstFrame(kind);
    for (int i = 0; i < frame; ++i) s = turnClockwise(s);
    return s;
}

Sprite selectorIcon(int kind) {
    if (!validKind(kind)) return {};
    const Sprite art = kind == 2 ? fromMap(kWarIcon, kPalettes[2]) : firstFrame(kind);
    Sprite icon;
    icon.width = 12;
    icon.height = 12;
    icon.rgb.assign(144, kWhite);
    for (int y = 0; y < art.height; ++y) {
        for (int x = 0; x < art.width; ++x) {
            icon.rgb[static_cast<std::size_t>((y + 1) * 12 + x + 1)] =
                art.rgb[static_cast<std::size_t>(y * art.width + x)];
        }
    }
    return icon;
}

}  // namespace grumbo
