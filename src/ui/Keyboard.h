#pragma once
// The keyboard as the match hears it: every key going down (or repeating while held) and coming
// up, by the classic virtual-key numbers, while one of the program's windows has the keyboard
// focus, whichever control of it has the focus; reading the whole desktop's keyboard would need
// privileges a game must not ask for.
#include <QEvent>
#include <QObject>

#include "game/Keys.h"

namespace ui {

class Keyboard : public QObject {
    Q_OBJECT
public:
    // Watches every key event of the application.
    void install();
    // Feeds a key change directly (the event filter, and tests).
    void press(int key) { emit changed(key, true); }
    void release(int key) { emit changed(key, false); }
    // The key code of a Qt key; keypad keys have codes of their own. -1 for keys without one.
    static int toKey(int qtKey, bool keypad = false);

signals:
    void changed(int key, bool down);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Seen {
        quint64 timestamp = 0;
        int type = 0;
        int key = -1;
        bool operator==(const Seen&) const = default;
    };
    Seen last_;
};

}  // namespace ui
