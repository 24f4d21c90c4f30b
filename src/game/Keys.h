#pragma once
// The keyboard as the match's keyboard trap sees it: every 20 ms it asks, key by key, whether a
// key went down since it last asked and is still down. Keys have the classic virtual-key numbers.
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
    virtual ~Keys() = default;
    // True when `key` went down since the last question about it and is still down.
    virtual bool pressed(int key) = 0;
};

}  // namespace game
