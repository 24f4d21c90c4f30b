#pragma once
// The typed codes of the keyboard trap: a backslash starts one, and at its twelfth character a
// code switches a mode on for the rest of the match, and for the matches after it in the run.
#include <QString>
#include <QStringList>

#include "game/Keys.h"

namespace game {

struct Modes {
    // "\hop fremble": the arrow keys fly the thrower around.
    bool flying = false;
    // "\zap plinkos": every thrower holds every special projectile from the next turn on.
    bool allProjectiles = false;
    // "\qix fremble": recognised, but nothing reads it.
    bool invulnerable = false;
    bool operator==(const Modes&) const = default;
};

class CodeBuffer {
public:
    explicit CodeBuffer(QString text = {}) : text_(std::move(text)) {}
    // Asks `keys` about the code keys of one poll, in their order (Space, the backslash, then the
    // codes 65 to 124), and switches on the mode of a code typed in full. Returns the sounds of
    // the codes recognised.
    QStringList read(Keys& keys, Modes& modes);
    const QString& text() const { return text_; }

private:
    QString text_;
};

}  // namespace game
