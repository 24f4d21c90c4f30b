// What an impact does to the city and to a hit character.
#include "impact/ImpactSteps.h"

using namespace modMain;
using grumbo::Int;
using grumbo::Rnd;

namespace {
constexpr int kScanRow = 460;  // low enough to cross every building, high enough to miss the ground
constexpr int kCraterRadius = 8;
// Each ring of the growing crater waits this long: long enough to be seen, short enough that the
// window keeps answering. The wait pumps events, it does not spin.
constexpr int kRingPauseMs = 4;

constexpr std::int32_t kCraterRed = ui::RGB(130, 20, 20);
constexpr std::int32_t kBlastOutline = ui::RGB(134, 20, 2);
constexpr std::int32_t kBlastFill = ui::RGB(125, 20, 2);

bool IsSky(const frmGrumbo& f, int x, int y) {
    return f.picBg->Point(x, y) == f.picBld->Point(x, y);
}

struct Span {
    int left, right;  // right is the first sky column past the building
};

// Walks row 460 outwards from the impact to the sky on both sides; the surfaces' edges read alike
// (-1) and so end a building that touches the border.
Span BuildingAt(const frmGrumbo& f, int x) {
    do --x;
    while (!IsSky(f, x, kScanRow));
    const int left = x + 1;
    do ++x;
    while (!IsSky(f, x, kScanRow));
    return {left, x};
}

// The first row above the roof: both side columns show sky there.
int RowAboveRoof(const frmGrumbo& f, const Span& b) {
    int y = kScanRow;
    std::int32_t sky = 0;
    do {
        --y;
        sky = f.picBg->Point(b.right - 1, y);
    } while (!(sky == f.picBld->Point(b.right - 1, y) && sky == f.picBld->Point(b.left, y)));
    return y;
}
}  // namespace

void frmGrumbo::HitBuilding() {
    PlaySoundFile(DataFile(QStringLiteral("sounds/bc.wav")));
    if (intProjectileKind != 2) {
        for (int r = 1; r <= kCraterRadius; ++r) {
            Delay(kRingPauseMs);
            picBld->Circle(imgProjectile->Left() + 5, imgProjectile->Top() + 5, r, kCraterRed, true,
                           kCraterRed);
        }
    } else {
        // The war projectile bores on; its tunnel is a row of plain holes without the red ring.
        blnWarHit = true;
    }
    picBld->Circle(imgProjectile->Left() + 5, imgProjectile->Top() + 5, kCraterRadius, ui::kWhite,
                   true, ui::kWhite);
    const float left = static_cast<float>(imgProjectile->Left());
    const float top = static_cast<float>(imgProjectile->Top());
    MakeTransparent(*picBld, left - 5, top - 5, left + 15, top + 15);
}

void frmGrumbo::VaporizeBuilding(Integer intX) {
    PlaySoundFile(DataFile(QStringLiteral("sounds/vg.wav")));
    const Span b = BuildingAt(*this, intX);
    const int roof = RowAboveRoof(*this, b);

    // Crumbles from the ground up, then the rest of the building's columns turn to sky.
    for (int y = field::kGroundLine; y >= roof; --y) {
        const std::int32_t sky = picBg->Point(b.left, y);
        for (int i = 0; i < 22; ++i)
            picBld->PSet(static_cast<int>(Int(Rnd() * (b.right - b.left))) + b.left, y, sky);
        DoEvents();
    }
    for (int y = roof; y <= field::kGroundLine; ++y)
        picBld->Line(b.left, y, b.right, y, picBg->Point(b.left, y));

    for (int i = 0; i < intPlayers; ++i) {
        const int L = Player[i]->Left();
        if (L <= b.left || L >= b.right) continue;
        if (Player[i]->Top() <= field::kGroundLine) {
            blnNukedPlayer = true;
            PlayerCollision(static_cast<Integer>(i));
            // A decided round has already built a new city (or ended the match): the building is
            // gone, and whoever now stands where it stood is on another roof.
            if (blnRoundOver || strFragged.isEmpty()) return;
        } else {
            blnNukedPlayer = false;
        }
    }
}

void frmGrumbo::Explode(ui::PictureBox& pic) {
    PlaySoundFile(DataFile(QStringLiteral("Explosion-2.au")));
    const int cx = pic.Width() / 2;
    const int cy = pic.Height() / 2;
    for (int r = 1; r <= pic.Height() / 2.0; ++r) {
        Delay(3);
        pic.Circle(cx, cy, r, kBlastOutline, true, kBlastFill);
    }
    pic.SetTop(field::kOutOfPlay);
}

void frmGrumbo::Vaporize(ui::PictureBox& pic) {
    imgProjectile->hide();
    for (int n = 0; n < 4000; ++n) {
        const int x = static_cast<int>(Int(Rnd() * pic.Width()));
        const int y = static_cast<int>(Int(Rnd() * pic.Height()));
        const std::int32_t sky = picBg->Point(x + pic.Left(), y + pic.Top());
        if (pic.Point(x, y) != sky) pic.PSet(x, y, sky);
        DoEvents();
    }
    pic.SetTop(field::kOutOfPlay);
}
