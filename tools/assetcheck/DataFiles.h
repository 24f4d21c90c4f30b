// Readers for the data files the game ships: 24-bit BMP pictures, 16-bit PCM WAV and Sun AU
// sounds, Standard MIDI tunes, decoded apart from the game's own readers so that the checker judges
// a regenerated file by the format alone. Every reader throws std::runtime_error with the
// file name when a file is unreadable or in a form the game does not load.
#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace assetcheck {

using Bytes = std::vector<std::uint8_t>;

Bytes readFile(const std::string& path);

// Unsigned n-byte integers (n <= 4) at byte offset `at`, little- and big-endian.
std::uint32_t le(const Bytes& b, std::size_t at, int n);
std::uint32_t be(const Bytes& b, std::size_t at, int n);

struct Image {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> rgb;  // 0xRRGGBB, top row first
    std::uint32_t at(int x, int y) const { return rgb[static_cast<std::size_t>(y * width + x)]; }
};

Image loadBmp24(const std::string& path);

struct Pcm {
    int rate = 0;
    int channels = 0;
    std::vector<std::int16_t> samples;  // interleaved when channels > 1
};

Pcm loadWav(const std::string& path);
Pcm loadAu(const std::string& path);

struct Tune {
    double seconds = 0;
    std::set<int> programs;
    std::set<int> channels;  // channels that sound at least one note
    int notes = 0;
    std::uint32_t firstTempo = 500000;  // microseconds per quarter at tick 0
};

// MIDI variable-length number at `at`, which is advanced past it; may not read beyond `end`.
std::uint32_t readVlq(const Bytes& b, std::size_t& at, std::size_t end);
Tune loadMidi(const std::string& path);

}  // namespace assetcheck
