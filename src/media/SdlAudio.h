#pragma once
#include <vector>

#include "media/Audio.h"

struct Mix_Chunk;
typedef struct _Mix_Music Mix_Music;

namespace media {

class SdlEffects : public EffectService {
public:
    ~SdlEffects() override;
    void Play(const QString& file) override;
    void Stop();

private:
    Mix_Chunk* chunk_ = nullptr;
};

class SdlMusic : public MusicService {
public:
    ~SdlMusic() override;
    void Play(const QString& file) override;
    void Close(const QString& file) override;
    void Stop();

private:
    Mix_Music* music_ = nullptr;
    QString path_;
};

bool OpenSdlAudio();
void CloseSdlAudio();
// The whole of a Sun/NeXT audio file turned into an in-memory WAV image that the mixer reads.
std::vector<unsigned char> DecodeToWav(const QString& file);

}  // namespace media
