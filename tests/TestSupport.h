#pragma once
// Shared ground for tests of the screens: a virtual clock, recorded sound, keys a test presses,
// messages caught instead of shown, and the screen flow of a whole program.
#include <gtest/gtest.h>

#include <QEvent>
#include <QStringList>
#include <QTemporaryDir>
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

// Counts the paint events of the widgets it is installed on.
struct PaintCounter : QObject {
    bool eventFilter(QObject*, QEvent* e) override {
        paints += e->type() == QEvent::Paint;
        return false;
    }
    int paints = 0;
};

// Writes `bytes` to `path`, making the folders on its way; returns `path`.
QString Written(const QString& path, const QByteArray& bytes);

// A WAV file of `frames` frames of PCM, every sample at `level`.
QByteArray Wav(int rate, int channels, int bits, int frames, int level);

// A data folder of the test's own, holding only what the test writes into it.
class OwnData {
public:
    OwnData();
    core::DataFolder folder() const { return core::DataFolder(dir_.path()); }
    // characters/`file`: a dark figure on white, standing on the picture's bottom row.
    void picture(const QString& file, int width, int height);
    // A complete character: the standing picture and both poses, all of one size.
    void character(const QString& name, int width, int height);
    void credits(const QString& text);
    // The colour of the figures.
    static constexpr QRgb kBody = 0xFF283C50;

private:
    QTemporaryDir dir_;
};

class ScreensTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // A program started on its title screen, seeding every match with `seed`, the computer at
    // `seats`.
    app::ScreenFlow& StartProgram(const core::DataFolder& data = ShippedData(),
                                  std::uint64_t seed = 42,
                                  const std::array<screens::Seat, 4>& seats = {});
    // Holds `key` down long enough for one poll of the match's keyboard trap.
    void Tap(int key);
    // Titles of the windows a player could see now.
    static QStringList VisibleWindows();
    // Clicks the button of `window` that carries `caption`.
    static void Click(QWidget* window, const QString& caption);
    // From the title through an untouched setup, but for a frag limit of 1, and the passes of
    // Ann and Bo: the match window.
    screens::MatchView* ToMatch();
    // Runs the program until the match's round stands and its loading box has gone.
    bool RoundStands();
    // Throws what frags the other player, then waits for the box after the final board.
    bool Win();

    ui::VirtualClock clock;
    RecordingSound sound;
    ui::Keyboard keys;
    QStringList messages;
    int quits = 0;
    std::unique_ptr<app::ScreenFlow> flow;
};

}  // namespace testing_support
