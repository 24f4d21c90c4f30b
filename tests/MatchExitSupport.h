#pragma once
// Ground for tests of the keyboard trap and the screens around a match: keys held for a poll of
// the trap, and the boxes, screens and typed modes of one test gone before the next.
#include <QStringList>

#include "TestSupport.h"
#include "ui/Keyboard.h"

namespace testing_support {

// The trap polls every 20 ms: a key held this long is seen by exactly one poll.
constexpr int kPollMs = 20;

// The box's caption and its three buttons, in its two uses.
const QStringList kPausedBox{"Game Paused", "Resume", "Start Over", "Quit"};
const QStringList kGameOverBox{"Thanks for Playing", "Play Again", "View Credits", "Quit"};
QStringList BoxTexts();

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
