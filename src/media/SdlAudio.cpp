#include <SDL.h>
#include <SDL_mixer.h>
#include <sndfile.h>

#include <QFileInfo>
#include <cstring>

#include "media/Sound.h"

namespace media {

namespace {
bool deviceOpen = false;

const char* const kSoundFonts[] = {
    "/usr/share/sounds/sf2/TimGM6mb.sf2",
    "/usr/share/sounds/sf2/default-GM.sf2",
    "/usr/share/sounds/sf3/default-GM.sf3",
    "/usr/share/sounds/sf2/FluidR3_GM.sf2",
};

void put16(std::vector<unsigned char>& v, std::uint16_t x) {
    v.push_back(x & 0xFF);
    v.push_back(x >> 8);
}
void put32(std::vector<unsigned char>& v, std::uint32_t x) {
    put16(v, x & 0xFFFF);
    put16(v, x >> 16);
}
}  // namespace

bool openAudioDevice() {
    if (deviceOpen) return true;
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return false;
    if (Mix_OpenAudio(44100, AUDIO_S16SYS, 2, 2048) != 0) {
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
        return false;
    }
    Mix_Init(MIX_INIT_MID);
    Mix_AllocateChannels(1);
    // The mixer accepts a SoundFont path that does not exist and then plays silence: only hand
    // it one that is really there.
    for (const char* sf : kSoundFonts) {
        if (QFileInfo::exists(QString::fromLatin1(sf))) {
            Mix_SetSoundFonts(sf);
            break;
        }
    }
    deviceOpen = true;
    return true;
}

void closeAudioDevice() {
    if (!deviceOpen) return;
    Mix_HaltChannel(-1);
    Mix_HaltMusic();
    Mix_CloseAudio();
    Mix_Quit();
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    deviceOpen = false;
}

std::vector<unsigned char> decodeToWav(const QString& file) {
    SF_INFO info{};
    SNDFILE* sf = sf_open(QFile::encodeName(file).constData(), SFM_READ, &info);
    if (!sf) return {};
    std::vector<short> samples;
    if (info.frames > 0 && info.channels > 0 && info.channels <= 8 && info.frames < 60LL * 192000) {
        samples.resize(static_cast<std::size_t>(info.frames) * info.channels);
        samples.resize(sf_read_short(sf, samples.data(), static_cast<sf_count_t>(samples.size())));
    }
    sf_close(sf);
    if (samples.empty()) return {};
    const std::uint32_t bytes = static_cast<std::uint32_t>(samples.size() * 2);
    std::vector<unsigned char> wav;
    wav.reserve(44 + bytes);
    for (char c : std::string("RIFF")) wav.push_back(c);
    put32(wav, 36 + bytes);
    for (char c : std::string("WAVEfmt ")) wav.push_back(c);
    put32(wav, 16);
    put16(wav, 1);
    put16(wav, static_cast<std::uint16_t>(info.channels));
    put32(wav, static_cast<std::uint32_t>(info.samplerate));
    put32(wav, static_cast<std::uint32_t>(info.samplerate * info.channels * 2));
    put16(wav, static_cast<std::uint16_t>(info.channels * 2));
    put16(wav, 16);
    for (char c : std::string("data")) wav.push_back(c);
    put32(wav, bytes);
    const auto* raw = reinterpret_cast<const unsigned char*>(samples.data());
    wav.insert(wav.end(), raw, raw + bytes);  // little-endian host, as WAV wants
    return wav;
}

SdlSound::SdlSound() { openAudioDevice(); }

SdlSound::~SdlSound() {
    stopEffect();
    stopTune();
    closeAudioDevice();
}

void SdlSound::stopEffect() {
    if (deviceOpen) Mix_HaltChannel(0);
    if (chunk_) Mix_FreeChunk(chunk_);
    chunk_ = nullptr;
}

void SdlSound::playEffect(const QString& file) {
    if (!deviceOpen) return;
    stopEffect();
    if (file.endsWith(QLatin1String(".au"), Qt::CaseInsensitive)) {
        const std::vector<unsigned char> wav = decodeToWav(file);
        if (wav.empty()) return;
        // The mixer copies the decoded samples into its own buffer, so `wav` may go.
        chunk_ = Mix_LoadWAV_RW(SDL_RWFromConstMem(wav.data(), static_cast<int>(wav.size())), 1);
    } else {
        chunk_ = Mix_LoadWAV(QFile::encodeName(file).constData());
    }
    if (chunk_) Mix_PlayChannel(0, chunk_, 0);
}

void SdlSound::stopTune() {
    if (music_) {
        Mix_HaltMusic();
        Mix_FreeMusic(music_);
    }
    music_ = nullptr;
    tune_.clear();
}

void SdlSound::playTune(const QString& file) {
    if (!deviceOpen) return;
    stopTune();
    music_ = Mix_LoadMUS(QFile::encodeName(file).constData());
    if (!music_) return;
    tune_ = file;
    if (Mix_PlayMusic(music_, 1) != 0) stopTune();
}

void SdlSound::closeTune(const QString& file) {
    if (music_ && file == tune_) stopTune();
}

}  // namespace media
