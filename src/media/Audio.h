#pragma once
// The sound services: effects play one at a time in the background (a new effect replaces the
// one playing), tunes play in the background until closed. Both stay silent and harmless when
// there is no audio device, no SoundFont or no such file.
#include <QString>

namespace media {

class EffectService {
public:
    virtual ~EffectService() = default;
    virtual void Play(const QString& file) = 0;
};

class MusicService {
public:
    virtual ~MusicService() = default;
    // Opens the tune at `file` and starts it; returns at once.
    virtual void Play(const QString& file) = 0;
    // Stops and frees the tune opened under `file`; any other path is ignored.
    virtual void Close(const QString& file) = 0;
};

class Audio {
public:
    static EffectService& Effects();
    static MusicService& Music();
    // Puts other services in place (tests record what is played); nullptr restores the device.
    static void Install(EffectService* effects, MusicService* music);
    // Opens the audio device once for the run; failing quietly leaves the game silent.
    static void OpenDevice();
    static void CloseDevice();
};

}  // namespace media
