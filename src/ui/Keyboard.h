#pragma once
// Whole-keyboard polling for the match screen: per key code, whether the key went down since the
// last query and is still down, whichever window has the focus.
#include <QObject>
#include <array>
#include <cstdint>

namespace ui {

// Key codes of the polling interface (the classic virtual-key numbers).
enum Vk : int { VkEscape = 27, VkLeft = 37, VkUp = 38, VkRight = 39, VkDown = 40 };

class Keyboard : public QObject {
public:
    static Keyboard& instance();
    // Installs the application-wide filter; safe to call more than once.
    void Install();
    // True when `vk` went down since the last query for it and is still down.
    bool GetAsyncKeyState(int vk);
    // Feeds a key change directly (tests, and the event filter).
    void Press(int vk);
    void Release(int vk);
    static int ToVk(int qtKey);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::array<bool, 256> down_{};
    std::array<bool, 256> pressed_{};
    bool installed_ = false;
};

}  // namespace ui
