#pragma once
// The keyboard as the match's keyboard trap sees it: every 20 ms it asks, key by key, whether a
// key went down since it last asked and is still down. Keys have the classic virtual-key numbers;
// they reach the match as commands, so that the trap hears the same keys at the same moments
// however the match is played or played again.
#include <array>

namespace game {

namespace key {
constexpr int kEnter = 13;
constexpr int kEscape = 27;
constexpr int kSpace = 32;
constexpr int kLeft = 37, kUp = 38, kRight = 39, kDown = 40;
// Letters are their capitals' codes, 65 to 90.
constexpr int kA = 65;
constexpr int kNumpad0 = 96;
constexpr int kF1 = 112;
// The key that types the backslash on a US keyboard.
constexpr int kBackslash = 220;
}  // namespace key

class Keys {
public:
    static constexpr int kCount = 256;

    void down(int key) {
        if (key < 0 || key >= kCount) return;
        down_[static_cast<std::size_t>(key)] = pressed_[static_cast<std::size_t>(key)] = true;
    }
    void up(int key) {
        if (key >= 0 && key < kCount) down_[static_cast<std::size_t>(key)] = false;
    }
    // True when `key` went down since the last question about it and is still down.
    bool pressed(int key) {
        if (key < 0 || key >= kCount) return false;
        const auto k = static_cast<std::size_t>(key);
        const bool result = pressed_[k] && down_[k];
        pressed_[k] = false;
        return result;
    }

private:
    std::array<bool, kCount> down_{};
    std::array<bool, kCount> pressed_{};
};

}  // namespace game
