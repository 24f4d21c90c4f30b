// The real effect service, recorded through SDL's disk audio driver: what the players hear.
#include <SDL.h>
#include <SDL_mixer.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <cstdlib>

#include "TestSupport.h"
#include "media/Sound.h"

TEST(SdlSound, AnEffectPlaysOnceFromStartToEnd) {
    QTemporaryDir dir;
    const QString wav = dir.filePath(QStringLiteral("steady.wav"));
    const QString recording = dir.filePath(QStringLiteral("recording.raw"));
    QFile out(wav);
    // Stereo at the mixer's own rate and depth, so that the recording holds the frames unchanged.
    ASSERT_TRUE(out.open(QIODevice::WriteOnly) &&
                out.write(testing_support::Wav(44100, 2, 16, 4410, 1000)) > 0);
    out.close();
    // The device is opened afresh on the recording driver, which writes a buffer a millisecond.
    setenv("SDL_AUDIODRIVER", "disk", 1);
    setenv("SDL_DISKAUDIOFILE", QFile::encodeName(recording).constData(), 1);
    setenv("SDL_DISKAUDIODELAY", "1", 1);
    bool open = false;
    {
        media::SdlSound effects;
        open = media::openAudioDevice();
        if (open) {
            effects.playEffect(wav);
            for (int waited = 0; waited < 20000 && Mix_Playing(0); waited += 10) SDL_Delay(10);
            EXPECT_FALSE(Mix_Playing(0));
        }
    }  // closing the device writes out the last buffer and closes the file
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    unsetenv("SDL_DISKAUDIOFILE");
    unsetenv("SDL_DISKAUDIODELAY");
    ASSERT_TRUE(open) << "SDL's disk audio driver is not available";

    QFile f(recording);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray data = f.readAll();
    const auto* samples = reinterpret_cast<const qint16*>(data.constData());
    int frames = 0;
    for (qsizetype i = 0; i + 1 < data.size() / 2; i += 2)
        frames += samples[i] == 1000 && samples[i + 1] == 1000;
    EXPECT_EQ(frames, 4410) << "every frame of the effect, once";
}
