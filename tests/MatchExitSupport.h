#pragma once
// Ground for tests of the keyboard trap and the screens around a match: keys held for a poll of
// the trap, the boxes and screens closed after each test, and the modes that a match screen keeps
// from one match to the next switched off again.
#include <QString>

#include "TestSupport.h"
#include "ui/Keyboard.h"

namespace testing_support {

// The trap polls every 20 ms: a key held this long is seen by exactly one poll.
constexpr int kPollMs = 20;

class MatchExitTest : public GameTest {
protected:
    void SetUp() override;
    void TearDown() override;

    // Holds the key down for one poll, then lets it go and waits one more poll.
    void Tap(int vk);
    // Taps the keys that type `text`: letters, digits, space and the backslash.
    void TypeKeys(const QString& text);
    // Plays a match with frag limit 1 up to the final board: player 0 hits player 1.
    frmGrumbo& PlayToTheFinalBoard();
    // Runs the clock until the game-over or pause box is up.
    bool WaitForBox(std::int32_t limitMs = 10000);

    ui::Keyboard& keyboard = ui::Keyboard::instance();
};

}  // namespace testing_support
