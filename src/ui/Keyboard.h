#pragma once
// The keyboard as the match's keyboard trap sees it: per key, whether it went down (or repeated
// while held) since the last question and is still down. It sees the keys typed while one of the
// program's windows has the keyboard focus, whichever control of it has the focus; reading the
// whole desktop's keyboard would need privileges a game must not ask for. A key is down only as
// long as the window that saw it go down is there: a window closed by a key never hears it come up.
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <array>

#include "game/Keys.h"

namespace ui {

class Keyboard : public QObject, public game::Keys {
public:
    // Watches every key event of the application.
    void install();
    bool pressed(int key) override;
    // Feeds a key change directly (the event filter, and tests); a key pressed in `window` counts
    // only while that window exists.
    void press(int key, QWidget* window = nullptr);
    void release(int key);
    // The key code of a Qt key; keypad keys have codes of their own. -1 for keys without one.
    static int toKey(int qtKey, bool keypad = false);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static constexpr int kKeys = 256;
    std::array<bool, kKeys> down_{};
    std::array<bool, kKeys> pressed_{};
    std::array<bool, kKeys> inWindow_{};
    std::array<QPointer<QWidget>, kKeys> window_{};
};

}  // namespace ui
