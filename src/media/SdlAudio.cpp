#include <SDL.h>
#include <SDL_mixer.h>
#include <fluidsynth.h>
#include <sndfile.h>

#include <QFileInfo>
#include <algorithm>
#include <cstring>
#include <optional>

#include "core/DataFile.h"
#include "media/Sound.h"

namespace media {

namespace {
namespace limit = core::limit;
bool deviceOpen = false;

const char* const kSoundFonts[] = {
    "/usr/share/sounds/sf2/TimGM6mb.sf2",
    "/usr/share/sounds/sf2/default-GM.sf2",
    "/usr/share/sounds/sf3/default-GM.sf3",
    "/usr/share/sounds/sf2/FluidR3_GM.sf2",
};

// A file in memory, read by the sound file library.
struct MemoryFile {
    const QByteArray& bytes;
    sf_count_t at;
};

sf_count_t memoryLength(void* f) { return static_cast<MemoryFile*>(f)->bytes.size(); }

sf_count_t memorySeek(sf_count_t offset, int whence, void* f) {
    auto* m = static_cast<MemoryFile*>(f);
    const sf_count_t from = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? m->at : m->bytes.size();
    m->at = std::clamp<sf_count_t>(from + offset, 0, m->bytes.size());
    return m->at;
}

sf_count_t memoryRead(void* out, sf_count_t count, void* f) {
    auto* m = static_cast<MemoryFile*>(f);
    const sf_count_t n = std::clamp<sf_count_t>(m->bytes.size() - m->at, 0, count);
    std::memcpy(out, m->bytes.constData() + m->at, static_cast<std::size_t>(n));
    m->at += n;
    return n;
}

sf_count_t memoryWrite(const void*, sf_count_t, void*) { return 0; }
sf_count_t memoryTell(void* f) { return static_cast<MemoryFile*>(f)->at; }

SF_VIRTUAL_IO memoryIo{memoryLength, memorySeek, memoryRead, memoryWrite, memoryTell};

void put16(std::vector<unsigned char>& v, std::uint16_t x) {
    v.push_back(x & 0xFF);
    v.push_back(x >> 8);
}
void put32(std::vector<unsigned char>& v, std::uint32_t x) {
    put16(v, x & 0xFFFF);
    put16(v, x >> 16);
}
// The mixer plays tunes through FluidSynth, which warns on the terminal about every note it cannot
// give a voice: a dense tune buries it under tens of thousands of lines a second. Only its errors
// are worth a player's eye. This is the library the mixer loaded, so its synthesizer hears it.
void quietSynthesizer() {
    for (int level : {FLUID_WARN, FLUID_INFO, FLUID_DBG})
        fluid_set_log_function(level, nullptr, nullptr);
}
}  // namespace

bool openAudioDevice() {
    if (deviceOpen) return true;
    quietSynthesizer();
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

std::vector<unsigned char> decodeToWav(const QByteArray& file) {
    MemoryFile in{file, 0};
    SF_INFO info{};
    SNDFILE* sf = sf_open_virtual(&memoryIo, SFM_READ, &info, &in);
    if (!sf) return {};
    // Frames are counted before any is decoded: a small compressed file may hold hours.
    std::vector<short> samples;
    if (info.channels > 0 && info.channels <= 2 && info.samplerate > 0 &&
        info.samplerate <= 96000 && info.frames > 0 &&
        info.frames <= sf_count_t{limit::kSoundSeconds} * info.samplerate) {
        samples.resize(static_cast<std::size_t>(info.frames) * info.channels);
        samples.resize(static_cast<std::size_t>(
            sf_read_short(sf, samples.data(), static_cast<sf_count_t>(samples.size()))));
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
    const std::optional<QByteArray> bytes = core::readDataFileOrWarn(file, limit::kSound);
    if (!bytes) return;
    // WAV and Sun audio alike go through the decoder, which knows their length before it
    // decodes; the mixer then takes plain samples.
    const std::vector<unsigned char> wav = decodeToWav(*bytes);
    if (wav.empty()) return;
    // The mixer copies the samples into its own buffer, so `wav` may go.
    chunk_ = Mix_LoadWAV_RW(SDL_RWFromConstMem(wav.data(), static_cast<int>(wav.size())), 1);
    if (chunk_) Mix_PlayChannel(0, chunk_, 0);
}

void SdlSound::stopTune() {
    if (music_) {
        Mix_HaltMusic();
        Mix_FreeMusic(music_);
    }
    music_ = nullptr;
    tune_.clear();
    tuneBytes_.clear();
}

void SdlSound::playTune(const QString& file) {
    if (!deviceOpen) return;
    stopTune();
    std::optional<QByteArray> bytes = core::readDataFileOrWarn(file, limit::kTune);
    if (!bytes) return;
    // The mixer reads the tune from these bytes while it plays, so they stay with it; only a
    // MIDI file is taken for a tune.
    tuneBytes_ = *std::move(bytes);
    music_ = Mix_LoadMUSType_RW(
        SDL_RWFromConstMem(tuneBytes_.constData(), static_cast<int>(tuneBytes_.size())), MUS_MID,
        1);
    if (!music_) {
        tuneBytes_.clear();
        return;
    }
    tune_ = file;
    if (Mix_PlayMusic(music_, 1) != 0) stopTune();
}

void SdlSound::closeTune(const QString& file) {
    if (music_ && file == tune_) stopTune();
}

}  // namespace media
