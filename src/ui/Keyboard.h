#pragma once
// Keyboard polling for the match screen: per key code, whether the key went down (or repeated
// while held) since the last query and is still down. It sees the keys typed while one of the
// program's windows has the keyboard focus, whichever control of it has the focus; reading the
// whole desktop's keyboard would need privileges a game must not ask for.
#include <QObject>
#include <array>

namespace ui {

// Key codes of the polling interface (the classic virtual-key numbers).
enum Vk : int {
    VkEnter = 13,
    VkEscape = 27,
    VkSpace = 32,
    VkLeft = 37,
    VkUp = 38,
    VkRight = 39,
    VkDown = 40,
    VkNumpad0 = 96,
    VkF1 = 112,
    VkBackslash = 220,
};

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
    // Forgets every key: nothing counts as down or pressed.
    void Reset();
    // The key code of a Qt key; keypad keys have codes of their own. -1 for keys without one.
    static int ToVk(int qtKey, bool keypad = false);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static constexpr int kKeys = 256;
    std::array<bool, kKeys> down_{};
    std::array<bool, kKeys> pressed_{};
    bool installed_ = false;
};

}  // namespace ui
