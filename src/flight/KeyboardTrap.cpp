// The keyboard trap: Escape pauses, the arrow keys fly the thrower, typed codes switch modes.
#include <QLabel>

#include "match/frmGrumbo.h"
#include "ui/Keyboard.h"

using namespace modMain;

namespace {

constexpr int kFlyStep = 3;
constexpr int kCodeLength = 12;
constexpr int kFirstCodeKey = 65, kLastCodeKey = 124;

bool Pressed(int vk) { return ui::Keyboard::instance().GetAsyncKeyState(vk); }

// From the deciding hit on, the box that opens is the game-over box: a pause box opened then
// would take its place and leave a finished match waiting for "Resume".
bool FragLimitReached(const frmGrumbo& f) {
    return grumbo::Val(f.lblLeft->text()) == intFragLimit ||
           grumbo::Val(f.lblRight->text()) == intFragLimit;
}

struct Code {
    const char* text;
    bool frmGrumbo::*mode;
    const char* sound;  // nullptr: switches on silently
};
constexpr Code kCodes[] = {
    {"\\hop fremble", &frmGrumbo::blnFlying, "sounds/flyg.wav"},
    {"\\zap plinkos", &frmGrumbo::blnAllProjectiles, "sounds/allb.wav"},
    // Recognised, but nothing reads the mode.
    {"\\qix fremble", &frmGrumbo::blnInvulnerable, nullptr},
};

void Recognise(frmGrumbo& f) {
    const QString typed = f.strCode.toLower();
    for (const Code& c : kCodes) {
        if (typed != QLatin1String(c.text)) continue;
        f.*c.mode = true;
        if (c.sound) PlaySoundFile(DataFile(QLatin1String(c.sound)));
    }
}

// The current thrower's box; none while the match start has not yet made it (the turn may
// still name a player of an earlier match with more players).
ui::PictureBox* Thrower(frmGrumbo& f) {
    const auto i = static_cast<std::size_t>(f.intCurrentPlayer);
    return i < f.Player.size() ? f.Player[i] : nullptr;
}

// Only the first arrow key pressed in a poll counts; the others are not even asked, so a key
// still held is seen by the next poll.
bool FlyWithArrows(frmGrumbo& f) {
    static constexpr struct {
        int vk, dx, dy;
    } kArrows[] = {{ui::VkLeft, -kFlyStep, 0},
                   {ui::VkUp, 0, -kFlyStep},
                   {ui::VkRight, kFlyStep, 0},
                   {ui::VkDown, 0, kFlyStep}};
    if (!Thrower(f)) return false;
    for (const auto& a : kArrows) {
        if (!Pressed(a.vk)) continue;
        if (f.blnFlying) {
            ui::PictureBox& flyer = *Thrower(f);
            flyer.Move(flyer.Left() + a.dx, flyer.Top() + a.dy);
        }
        DoEvents();
        // Redrawn at its place whether it moved or not, and the projectile parked at its hand,
        // which also moves the origin of a flight under way. The turn may have passed meanwhile.
        if (ui::PictureBox* thrower = Thrower(f)) {
            thrower->Cls();
            f.MakeTransparent(*thrower);
            f.AlignBanana();
        }
        return true;
    }
    return false;
}

void TypeCodes(frmGrumbo& f) {
    const auto started = [&] { return f.strCode.contains(QLatin1Char('\\')); };
    // Every key is asked whether or not a code has started, so that keys typed before the
    // backslash are gone by the time it comes.
    if (Pressed(ui::VkSpace) && started()) f.strCode += QLatin1Char(' ');
    if (Pressed(ui::VkBackslash)) f.strCode = QStringLiteral("\\");
    for (int k = kFirstCodeKey; k <= kLastCodeKey; ++k) {
        if (!Pressed(k) || !started()) continue;
        f.strCode += QChar(k);
        Recognise(f);
        if (f.strCode.size() > kCodeLength) f.strCode.clear();
    }
}

}  // namespace

void frmGrumbo::tmrTrap_Timer() {
    // A second Escape while the box is up would lose the frozen flight; it does nothing.
    if (Pressed(ui::VkEscape) && !FragLimitReached(*this) && Overlays().CanPause()) {
        blnFlightPaused = tmrMain.Enabled();
        if (blnFlightPaused) {
            tmrMain.Pause();
            tmrCollision.Pause();
        }
        Overlays().ShowPause();
    }
    if (FlyWithArrows(*this)) return;
    TypeCodes(*this);
}
