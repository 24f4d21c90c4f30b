#pragma once
// Sound effects and music. Effects play one at a time in the background (a new effect replaces
// the one playing); a tune plays in the background until it is closed. Both stay silent and
// harmless without an audio device, a SoundFont or the file, and with a file that is not a sound
// or a tune of a sensible size.
#include <QByteArray>
#include <QString>
#include <vector>

struct Mix_Chunk;
typedef struct _Mix_Music Mix_Music;

namespace media {

class Sound {
public:
    virtual ~Sound() = default;
    virtual void playEffect(const QString& file) = 0;
    // Opens the tune at `file` and starts it; returns at once.
    virtual void playTune(const QString& file) = 0;
    // Stops the tune opened under `file`; any other path is ignored.
    virtual void closeTune(const QString& file) = 0;
};

// The audio device through SDL2_mixer, open for as long as the object lives.
class SdlSound : public Sound {
public:
    SdlSound();
    ~SdlSound() override;
    SdlSound(const SdlSound&) = delete;
    SdlSound& operator=(const SdlSound&) = delete;
    void playEffect(const QString& file) override;
    void playTune(const QString& file) override;
    void closeTune(const QString& file) override;

private:
    void stopEffect();
    void stopTune();

    Mix_Chunk* chunk_ = nullptr;
    Mix_Music* music_ = nullptr;
    QString tune_;
    QByteArray tuneBytes_;
};

// Opens and closes the audio device (SDL's driver as the environment chooses); opening fails
// quietly and leaves the game silent.
bool openAudioDevice();
void closeAudioDevice();
// A sound file's bytes (WAV, Sun audio, or another kind the sound file library reads) turned into
// a WAV image of 16-bit samples that the mixer reads; empty when they are no sound or would last
// longer than a sound may.
std::vector<unsigned char> decodeToWav(const QByteArray& file);

}  // namespace media
