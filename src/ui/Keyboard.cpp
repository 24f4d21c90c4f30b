#include "ui/Keyboard.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace ui {

namespace {
// Keypad keys that are not digits, by their codes from 106 on.
constexpr int kKeypadMultiply = 106, kKeypadAdd = 107, kKeypadSubtract = 109, kKeypadDecimal = 110,
              kKeypadDivide = 111;
constexpr int kLeftWindows = 91, kRightWindows = 92, kApplications = 93;

int keypadKey(int qtKey) {
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) return game::key::kNumpad0 + (qtKey - Qt::Key_0);
    switch (qtKey) {
        case Qt::Key_Asterisk: return kKeypadMultiply;
        case Qt::Key_Plus: return kKeypadAdd;
        case Qt::Key_Minus: return kKeypadSubtract;
        case Qt::Key_Period:
        case Qt::Key_Comma: return kKeypadDecimal;
        case Qt::Key_Slash: return kKeypadDivide;
        default: return -1;
    }
}
}  // namespace

void Keyboard::install() {
    if (QCoreApplication::instance()) QCoreApplication::instance()->installEventFilter(this);
}

int Keyboard::toKey(int qtKey, bool keypad) {
    using namespace game::key;
    // With Num Lock off the keypad types arrows and the like, which keep their usual codes.
    if (keypad && keypadKey(qtKey) >= 0) return keypadKey(qtKey);
    if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) return kA + (qtKey - Qt::Key_A);
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) return '0' + (qtKey - Qt::Key_0);
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F24) return kF1 + (qtKey - Qt::Key_F1);
    switch (qtKey) {
        case Qt::Key_Escape: return kEscape;
        case Qt::Key_Return:
        case Qt::Key_Enter: return kEnter;
        case Qt::Key_Space: return kSpace;
        case Qt::Key_Left: return kLeft;
        case Qt::Key_Up: return kUp;
        case Qt::Key_Right: return kRight;
        case Qt::Key_Down: return kDown;
        // The key is the same whether Shift makes it type a backslash or a bar.
        case Qt::Key_Backslash:
        case Qt::Key_Bar: return kBackslash;
        case Qt::Key_Super_L: return kLeftWindows;
        case Qt::Key_Super_R: return kRightWindows;
        case Qt::Key_Menu: return kApplications;
        default: return -1;
    }
}

bool Keyboard::eventFilter(QObject* watched, QEvent* event) {
    const bool down = event->type() == QEvent::KeyPress;
    if ((down || event->type() == QEvent::KeyRelease) && watched->isWidgetType()) {
        auto* ke = static_cast<QKeyEvent*>(event);
        const int key = toKey(ke->key(), ke->modifiers().testFlag(Qt::KeypadModifier));
        // A key event reaches the filter once for every widget it travels through, up to the
        // window: it counts once.
        const Seen seen{ke->timestamp(), event->type(), key};
        if (key >= 0 && !(seen == last_)) {
            last_ = seen;
            // A held key repeats as a typed one does, so holding an arrow key keeps the thrower
            // flying; the release that the window system sends between two repeats is no
            // release.
            if (down) press(key);
            else if (!ke->isAutoRepeat()) release(key);
        }
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace ui
