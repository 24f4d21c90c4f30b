#include "game/Codes.h"

namespace game {

namespace {
constexpr int kCodeLength = 12;
constexpr int kFirstCodeKey = 65, kLastCodeKey = 124;

struct Code {
    const char* text;
    bool Modes::*mode;
    const char* sound;  // none: switches on silently
};
constexpr Code kCodes[] = {
    {"\\hop fremble", &Modes::flying, "sounds/flyg.wav"},
    {"\\zap plinkos", &Modes::allProjectiles, "sounds/allb.wav"},
    {"\\qix fremble", &Modes::invulnerable, nullptr},
};
}  // namespace

QStringList CodeBuffer::read(Keys& keys, Modes& modes) {
    QStringList sounds;
    const auto started = [&] { return text_.contains(QLatin1Char('\\')); };
    // Every key is asked whether or not a code has started, so that keys typed before the
    // backslash are gone by the time it comes.
    if (keys.pressed(key::kSpace) && started()) text_ += QLatin1Char(' ');
    if (keys.pressed(key::kBackslash)) text_ = QStringLiteral("\\");
    for (int k = kFirstCodeKey; k <= kLastCodeKey; ++k) {
        if (!keys.pressed(k) || !started()) continue;
        // Letter keys give capitals, the keypad and function keys the characters of their codes.
        text_ += QChar(k);
        const QString typed = text_.toLower();
        for (const Code& c : kCodes) {
            if (typed != QLatin1String(c.text)) continue;
            modes.*c.mode = true;
            if (c.sound) sounds << QString::fromLatin1(c.sound);
        }
        if (text_.size() > kCodeLength) text_.clear();
    }
    return sounds;
}

}  // namespace game
