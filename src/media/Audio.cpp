#include "media/Audio.h"

#include "media/SdlAudio.h"

namespace media {

namespace {
SdlEffects& sdlEffects() {
    static SdlEffects e;
    return e;
}
SdlMusic& sdlMusic() {
    static SdlMusic m;
    return m;
}
EffectService* effects = nullptr;
MusicService* music = nullptr;
}  // namespace

EffectService& Audio::Effects() { return effects ? *effects : sdlEffects(); }
MusicService& Audio::Music() { return music ? *music : sdlMusic(); }

void Audio::Install(EffectService* e, MusicService* m) {
    effects = e;
    music = m;
}

void Audio::OpenDevice() { OpenSdlAudio(); }

void Audio::CloseDevice() {
    sdlEffects().Stop();
    sdlMusic().Stop();
    CloseSdlAudio();
}

}  // namespace media
