// The real effect and music services, recorded through SDL's disk audio driver: what the players
// hear, and what the synthesizer says on the terminal meanwhile.
#include <SDL.h>
#include <SDL_mixer.h>
#include <fluidsynth.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QDataStream>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>
#include <functional>

#include "TestSupport.h"
#include "media/Sound.h"

namespace {

// What the services play while `play` runs and until the mixer has finished, as 16-bit samples of
// stereo frames at the mixer's rate of 44.1 kHz. With `seconds`, the recording goes at the pace of
// the clock, whose time the synthesizer's tunes keep, until it holds that many seconds.
std::vector<qint16> Recorded(const std::function<void(media::SdlSound&)>& play, int seconds = 0) {
    QTemporaryDir dir;
    const QString recording = dir.filePath(QStringLiteral("recording.raw"));
    // The device is opened afresh on the recording driver, which writes a buffer a millisecond
    // unless it keeps the clock's pace.
    setenv("SDL_AUDIODRIVER", "disk", 1);
    setenv("SDL_DISKAUDIOFILE", QFile::encodeName(recording).constData(), 1);
    if (!seconds) setenv("SDL_DISKAUDIODELAY", "1", 1);
    const auto going = [&] {
        if (seconds) return QFileInfo(recording).size() < seconds * 44100 * 4;
        return Mix_Playing(0) || Mix_PlayingMusic();
    };
    bool open = false;
    {
        media::SdlSound sound;
        open = media::openAudioDevice();
        if (open) {
            play(sound);
            for (int waited = 0; waited < 20000 && going(); waited += 10) SDL_Delay(10);
            EXPECT_FALSE(going());
        }
    }  // closing the device writes out the last buffer and closes the file
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    unsetenv("SDL_DISKAUDIOFILE");
    unsetenv("SDL_DISKAUDIODELAY");
    EXPECT_TRUE(open) << "SDL's disk audio driver is not available";
    QFile f(recording);
    if (!f.open(QIODevice::ReadOnly)) return {};
    const QByteArray data = f.readAll();
    const auto* samples = reinterpret_cast<const qint16*>(data.constData());
    return std::vector<qint16>(samples, samples + data.size() / 2);
}

// A Sun audio file of 16-bit linear samples, every one at `level`, as the explosion is.
QByteArray Au(int rate, int channels, int frames, qint16 level) {
    QByteArray b;
    QDataStream out(&b, QIODevice::WriteOnly);  // big-endian, as the format wants
    out.writeRawData(".snd", 4);
    out << quint32{24} << quint32(frames * channels * 2) << quint32{3} << quint32(rate)
        << quint32(channels);
    for (int i = 0; i < frames * channels; ++i) out << level;
    return b;
}

// A tune of `chords` chords a tick apart, each of 16 notes held on every one of the 16 channels:
// more notes at once than the synthesizer has voices for.
QByteArray DenseTune(int chords) {
    QByteArray track;
    for (int c = 0; c < chords; ++c)
        for (int channel = 0; channel < 16; ++channel)
            for (int note = 0; note < 16; ++note) {
                // The time since the previous event: a tick before each chord's first note.
                track.append(char(channel == 0 && note == 0 && c > 0 ? 1 : 0));
                track.append(char(0x90 | channel))
                    .append(char(30 + 4 * note + c % 4))
                    .append(char(120));
            }
    // Then every sound stops, and the track ends.
    for (int channel = 0; channel < 16; ++channel)
        track.append(char(channel == 0)).append(char(0xB0 | channel)).append("\x78\x00", 2);
    track.append("\x00\xFF\x2F\x00", 4);
    QByteArray b;
    QDataStream out(&b, QIODevice::WriteOnly);
    out.writeRawData("MThd", 4);
    out << quint32{6} << quint16{0} << quint16{1} << quint16{96};
    out.writeRawData("MTrk", 4);
    out << quint32(track.size());
    return b + track;
}

}  // namespace

TEST(SdlSound, EverySoundFormatPlaysOnceForItsOwnLength) {
    // A fifth of a second of one steady level: WAV as the game's sounds are (22050 Hz, 16-bit
    // mono), at other rates, depths and channels, and Sun audio as the explosion is.
    const std::tuple<const char*, const char*, QByteArray, int> sounds[] = {
        {"22050 Hz, 16-bit mono", "a.wav", testing_support::Wav(22050, 1, 16, 4410, 8000), 8000},
        {"44100 Hz, 16-bit stereo", "b.wav", testing_support::Wav(44100, 2, 16, 8820, 8000), 8000},
        {"11025 Hz, 8-bit mono", "c.wav", testing_support::Wav(11025, 1, 8, 2205, 0xA0), 0x2000},
        {"Sun audio, 11025 Hz stereo", "g.au", Au(11025, 2, 2205, 8000), 8000}};
    QTemporaryDir dir;
    for (const auto& [what, name, bytes, level] : sounds) {
        SCOPED_TRACE(what);
        const QString file = testing_support::Written(dir.filePath(QLatin1String(name)), bytes);
        const std::vector<qint16> s = Recorded([&](media::SdlSound& out) { out.playEffect(file); });
        // Resampling rounds the edges off a few frames; the level stays within a tenth.
        const auto steady = [&](qint16 x) { return std::abs(x - level) <= level / 10; };
        int frames = 0;
        for (std::size_t i = 0; i + 1 < s.size(); i += 2)
            frames += steady(s[i]) && steady(s[i + 1]);
        EXPECT_NEAR(frames, 8820, 88) << "a fifth of a second at 44.1 kHz, once";
    }
}

TEST(SdlSound, TheSynthesizerKeepsItsWarningsButNotItsErrorsOffTheTerminal) {
    QTemporaryDir dir;
    const QByteArray dense = DenseTune(100);
    ASSERT_LT(dense.size(), 512 << 10) << "within a tune's size";
    const QString denseFile =
        testing_support::Written(dir.filePath(QStringLiteral("dense.mid")), dense);
    testing::internal::CaptureStderr();
    const std::vector<qint16> heard =
        Recorded([&](media::SdlSound& out) { out.playTune(denseFile); }, 1);
    const QString said = QString::fromStdString(testing::internal::GetCapturedStderr());
    EXPECT_GT(std::count_if(heard.begin(), heard.end(), [](qint16 x) { return x != 0; }), 22050)
        << "the tune plays";
    EXPECT_FALSE(said.contains(QLatin1String("fluidsynth"))) << said.left(200).toStdString();
    // An error is still worth a line.
    testing::internal::CaptureStderr();
    fluid_log(FLUID_ERR, "a test of errors");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "fluidsynth: error: a test of errors\n");
}
