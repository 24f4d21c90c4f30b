// The city of a round: buildings left to right until the skyline reaches x = 720, every
// character on the roof the roof table chose for him.
#include <array>

#include "match/frmGrumbo.h"

using namespace modMain;
using grumbo::Int;
using grumbo::Rnd;

namespace {

struct Shade {
    int top, bottom;
};
constexpr std::array<Shade, 6> kShades{
    {{98, 78}, {85, 67}, {75, 59}, {150, 128}, {170, 140}, {125, 100}}};
constexpr std::int32_t kLit = ui::RGB(229, 244, 182);
constexpr std::int32_t kDark = ui::RGB(50, 50, 50);

struct Building {
    int left, width, height;
};

std::array<int, 4> DrawRoofTable(int players) {
    std::array<int, 4> roof{-1, -1, -1, -1};
    if (players == 2) {
        roof[0] = static_cast<int>(Int(Rnd() * 3)) + 1;
        roof[1] = static_cast<int>(Int(Rnd() * 3)) + 7;
    } else if (players == 4) {
        roof[0] = static_cast<int>(Int(Rnd() * 2)) + 1;
        roof[1] = static_cast<int>(Int(Rnd() * 2)) + 3;
        roof[2] = static_cast<int>(Int(Rnd() * 2)) + 7;
        roof[3] = static_cast<int>(Int(Rnd() * 2)) + 9;
    }
    return roof;
}

// The last buildings close the skyline exactly at 720.
int ClosingWidth(int x, int width) {
    switch (x) {
        case 612: return 60;
        case 624: return 48;
        case 636: return 84;
        case 648: return 72;
        case 660: return 60;
        case 672: return 48;
        default: return width;
    }
}

void DrawWindows(ui::Surface& scene, const Building& b) {
    for (int wy = 0; wy <= b.height - 18; wy += 18) {
        DoEvents();
        for (int wx = 0; wx <= b.width - 12; wx += 12) {
            const std::int32_t c = Int(Rnd() * 2) == 0 ? kLit : kDark;
            const auto r = static_cast<float>(ui::Red(c)), g = static_cast<float>(ui::Green(c)),
                       bl = static_cast<float>(ui::Blue(c));
            DrawGradient(scene, r, g, bl, r, g, bl, static_cast<float>(b.left + wx + 4),
                         static_cast<float>(b.left + wx + 8),
                         static_cast<float>(field::kGroundLine - wy - 14),
                         static_cast<float>(field::kGroundLine - wy - 5));
        }
    }
}

void StandOnRoof(ui::PictureBox& box, const Building& b) {
    box.Move(static_cast<int>(Int(b.left + b.width / 2.0 - box.Width() / 2.0)),
             field::kGroundLine - b.height - box.Height());
}
}  // namespace

void frmGrumbo::DrawBuildings() {
    const int n = intPlayers;
    const std::array<int, 4> roof = DrawRoofTable(n);
    std::vector<Building> city;
    std::array<bool, 4> placed{};
    int x = 0, k = 0, j = 0;
    ui::Surface& scene = picBld->surface();
    do {
        const Shade s =
            kShades[static_cast<std::size_t>(blnDay ? Int(Rnd() * 3) + 3 : Int(Rnd() * 3))];
        const int h = (static_cast<int>(Int(Rnd() * intBuildingHeight)) + 5) * 18;
        const int w = ClosingWidth(x, (static_cast<int>(Int(Rnd() * 3)) + 4) * 12);
        const Building b{x, w, h};
        x += w;
        DrawGradient(scene, s.top, s.top, s.top, s.bottom, s.bottom, s.bottom,
                     static_cast<float>(b.left + 1), static_cast<float>(x),
                     static_cast<float>(field::kGroundLine - h),
                     static_cast<float>(field::kGroundLine));
        DrawWindows(scene, b);
        if (j < n && roof[j] == k) {
            StandOnRoof(*Player[j], b);
            placed[j] = true;
            ++j;
        }
        city.push_back(b);
        ++k;
        Overlays().Loading().SetProgress(static_cast<double>(x) / field::kSkylineEnd * 60 + 7);
    } while (x < field::kSkylineEnd);
    picBld->Changed();

    // A four-player city may end before the building the roof table chose for the last player.
    // Nobody should sit out a round for that: he takes the rightmost roof nobody stands on.
    for (int p = 0; p < n; ++p) {
        if (placed[p]) continue;
        for (int b = static_cast<int>(city.size()) - 1; b >= 0; --b) {
            bool taken = false;
            for (int q = 0; q < n; ++q) taken = taken || (placed[q] && roof[q] == b);
            if (taken) continue;
            StandOnRoof(*Player[p], city[b]);
            placed[p] = true;
            break;
        }
    }
}
