#pragma once
// Shared ground for tests that drive the real screens: a virtual clock, recorded sound and
// music, the source tree's data folder, a fixed random seed, and message boxes and the program's
// end caught instead of blocking or exiting.
#include <gtest/gtest.h>

#include <QString>
#include <QStringList>

#include "match/frmGrumbo.h"
#include "media/Audio.h"
#include "ui/Clock.h"

namespace testing_support {

class RecordingEffects : public media::EffectService {
public:
    void Play(const QString& file) override { played.push_back(file); }
    QStringList played;
};

class RecordingMusic : public media::MusicService {
public:
    void Play(const QString& file) override { commands.push_back(QStringLiteral("play ") + file); }
    void Close(const QString& file) override {
        commands.push_back(QStringLiteral("close ") + file);
    }
    QStringList commands;
};

// The file name after the data folder ("sounds/throw.wav") of a recorded path.
QString Relative(const QString& path);

// The box has the size of the picture file `relative` of the data folder and shows its every pixel
// but the see-through white ones; given `behind`, those show what `behind` has at their place.
testing::AssertionResult ShowsPicture(const ui::PictureBox& box, const QString& relative,
                                      const ui::PictureBox* behind = nullptr);

class GameTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Starts a match on the match screen with the setup defaults and `players` players;
    // returns once the first round stands.
    frmGrumbo& StartMatch(int players = 2, std::uint64_t seed = 42);
    // Leaves the match as the game-over screen does, without ending the program.
    void LeaveMatch();

    // The characters of players 1 to 4 in the next StartMatch.
    QStringList characters;
    ui::VirtualClock clock;
    RecordingEffects effects;
    RecordingMusic music;
    QStringList messages;
    int programEnds = 0;
};

}  // namespace testing_support
