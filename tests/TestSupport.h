#pragma once
// Shared ground for tests of the screens: a virtual clock, recorded sound, keys a test presses,
// messages caught instead of shown, and the screen flow of a whole program.
#include <gtest/gtest.h>

#include <QStringList>
#include <memory>

#include "app/ScreenFlow.h"
#include "game/GameSupport.h"
#include "media/Sound.h"
#include "ui/Clock.h"
#include "ui/Keyboard.h"

namespace testing_support {

// The source tree's data folder.
core::DataFolder ShippedData();
// `path` inside its data folder ("sounds/throw.wav").
QString Relative(const QString& path);

// What the game asks to be played, by the files' places in the data folder; tunes as
// "play midi/3.mid" or "close midi/3.mid".
class RecordingSound : public media::Sound {
public:
    void playEffect(const QString& file) override { effects << Relative(file); }
    void playTune(const QString& file) override {
        tunes << QStringLiteral("play ") + Relative(file);
    }
    void closeTune(const QString& file) override {
        tunes << QStringLiteral("close ") + Relative(file);
    }
    QStringList effects, tunes;
};

class ScreensTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // A program started on its title screen, seeding every match with `seed`.
    app::ScreenFlow& StartProgram(const core::DataFolder& data = ShippedData(),
                                  std::uint64_t seed = 42);
    // Holds `key` down long enough for one poll of the match's keyboard trap.
    void Tap(int key);
    // Titles of the windows a player could see now.
    static QStringList VisibleWindows();

    ui::VirtualClock clock;
    RecordingSound sound;
    ui::Keyboard keys;
    QStringList messages;
    int quits = 0;
    std::unique_ptr<app::ScreenFlow> flow;
};

}  // namespace testing_support
