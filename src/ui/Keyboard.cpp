#include "ui/Keyboard.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace ui {

Keyboard& Keyboard::instance() {
    static Keyboard k;
    return k;
}

void Keyboard::Install() {
    if (installed_ || !QCoreApplication::instance()) return;
    QCoreApplication::instance()->installEventFilter(this);
    installed_ = true;
}

int Keyboard::ToVk(int qtKey) {
    switch (qtKey) {
        case Qt::Key_Escape: return VkEscape;
        case Qt::Key_Left: return VkLeft;
        case Qt::Key_Up: return VkUp;
        case Qt::Key_Right: return VkRight;
        case Qt::Key_Down: return VkDown;
        default: break;
    }
    if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) return 'A' + (qtKey - Qt::Key_A);
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) return '0' + (qtKey - Qt::Key_0);
    if (qtKey == Qt::Key_Space) return 32;
    return -1;
}

void Keyboard::Press(int vk) {
    if (vk < 0 || vk >= 256) return;
    down_[vk] = true;
    pressed_[vk] = true;
}

void Keyboard::Release(int vk) {
    if (vk < 0 || vk >= 256) return;
    down_[vk] = false;
}

bool Keyboard::GetAsyncKeyState(int vk) {
    if (vk < 0 || vk >= 256) return false;
    const bool result = pressed_[vk] && down_[vk];
    pressed_[vk] = false;
    return result;
}

bool Keyboard::eventFilter(QObject* watched, QEvent* event) {
    // The same key event reaches the filter once per widget it travels through; only the
    // top-level delivery counts, and auto-repeat is not a new press.
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
        auto* ke = static_cast<QKeyEvent*>(event);
        if (watched->isWidgetType() && !ke->isAutoRepeat()) {
            const int vk = ToVk(ke->key());
            if (event->type() == QEvent::KeyPress) Press(vk);
            else Release(vk);
        }
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace ui
