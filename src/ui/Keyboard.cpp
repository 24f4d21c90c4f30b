#include "ui/Keyboard.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace ui {

namespace {
// Keypad keys that are not digits, by their codes from 106 on.
constexpr int kKeypadMultiply = 106, kKeypadAdd = 107, kKeypadSubtract = 109, kKeypadDecimal = 110,
              kKeypadDivide = 111;
constexpr int kLeftWindows = 91, kRightWindows = 92, kApplications = 93;

int KeypadVk(int qtKey) {
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) return VkNumpad0 + (qtKey - Qt::Key_0);
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

Keyboard& Keyboard::instance() {
    static Keyboard k;
    return k;
}

void Keyboard::Install() {
    if (installed_ || !QCoreApplication::instance()) return;
    QCoreApplication::instance()->installEventFilter(this);
    installed_ = true;
}

int Keyboard::ToVk(int qtKey, bool keypad) {
    // With Num Lock off the keypad types arrows and the like, which keep their usual codes.
    if (keypad && KeypadVk(qtKey) >= 0) return KeypadVk(qtKey);
    if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) return 'A' + (qtKey - Qt::Key_A);
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) return '0' + (qtKey - Qt::Key_0);
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F24) return VkF1 + (qtKey - Qt::Key_F1);
    switch (qtKey) {
        case Qt::Key_Escape: return VkEscape;
        case Qt::Key_Return:
        case Qt::Key_Enter: return VkEnter;
        case Qt::Key_Space: return VkSpace;
        case Qt::Key_Left: return VkLeft;
        case Qt::Key_Up: return VkUp;
        case Qt::Key_Right: return VkRight;
        case Qt::Key_Down: return VkDown;
        // The key is the same whether Shift makes it type a backslash or a bar.
        case Qt::Key_Backslash:
        case Qt::Key_Bar: return VkBackslash;
        case Qt::Key_Super_L: return kLeftWindows;
        case Qt::Key_Super_R: return kRightWindows;
        case Qt::Key_Menu: return kApplications;
        default: return -1;
    }
}

void Keyboard::Press(int vk) {
    if (vk < 0 || vk >= kKeys) return;
    down_[vk] = true;
    pressed_[vk] = true;
}

void Keyboard::Release(int vk) {
    if (vk < 0 || vk >= kKeys) return;
    down_[vk] = false;
}

void Keyboard::Reset() {
    down_.fill(false);
    pressed_.fill(false);
}

bool Keyboard::GetAsyncKeyState(int vk) {
    if (vk < 0 || vk >= kKeys) return false;
    const bool result = pressed_[vk] && down_[vk];
    pressed_[vk] = false;
    return result;
}

bool Keyboard::eventFilter(QObject* watched, QEvent* event) {
    // A key event reaches the filter once for the window and once for every widget it travels
    // through; only the widgets' deliveries count.
    const bool press = event->type() == QEvent::KeyPress;
    if ((press || event->type() == QEvent::KeyRelease) && watched->isWidgetType()) {
        auto* ke = static_cast<QKeyEvent*>(event);
        const int vk = ToVk(ke->key(), ke->modifiers().testFlag(Qt::KeypadModifier));
        // A held key repeats as a typed one does, so holding an arrow key keeps the thrower
        // flying; the release that the window system sends between two repeats is no release.
        if (press) Press(vk);
        else if (!ke->isAutoRepeat()) Release(vk);
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace ui
