#include "assetcheck/DataFiles.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>

namespace assetcheck {

Bytes readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw std::runtime_error("cannot open " + path);
    return Bytes(std::istreambuf_iterator<char>(in), {});
}

std::uint32_t le(const Bytes& b, std::size_t at, int n) {
    if (at + static_cast<std::size_t>(n) > b.size()) throw std::runtime_error("truncated");
    std::uint32_t v = 0;
    for (int i = n - 1; i >= 0; --i) v = (v << 8) | b[at + static_cast<std::size_t>(i)];
    return v;
}

std::uint32_t be(const Bytes& b, std::size_t at, int n) {
    if (at + static_cast<std::size_t>(n) > b.size()) throw std::runtime_error("truncated");
    std::uint32_t v = 0;
    for (int i = 0; i < n; ++i) v = (v << 8) | b[at + static_cast<std::size_t>(i)];
    return v;
}

Image loadBmp24(const std::string& path) {
    const Bytes b = readFile(path);
    if (b.size() < 54 || b[0] != 'B' || b[1] != 'M') throw std::runtime_error(path + ": not a BMP");
    const std::uint32_t offset = le(b, 10, 4);
    Image img;
    img.width = static_cast<std::int32_t>(le(b, 18, 4));
    const auto rawHeight = static_cast<std::int32_t>(le(b, 22, 4));
    if (le(b, 28, 2) != 24 || le(b, 30, 4) != 0)
        throw std::runtime_error(path + ": not 24-bit BI_RGB");
    img.height = std::abs(rawHeight);
    // A corrupt header must fail here, not size a buffer from a negative or absurd width.
    if (img.width <= 0 || img.width > 65535 || img.height == 0 || img.height > 65535)
        throw std::runtime_error(path + ": bad dimensions");
    const std::size_t stride = (static_cast<std::size_t>(img.width) * 3 + 3) & ~std::size_t{3};
    if (offset + stride * static_cast<std::size_t>(img.height) > b.size())
        throw std::runtime_error(path + ": short pixel data");
    img.rgb.resize(static_cast<std::size_t>(img.width * img.height));
    for (int y = 0; y < img.height; ++y) {
        const int fileRow = rawHeight > 0 ? img.height - 1 - y : y;  // bottom-up unless negative
        for (int x = 0; x < img.width; ++x) {
            const std::size_t p = offset + static_cast<std::size_t>(fileRow) * stride +
                                  static_cast<std::size_t>(x) * 3;
            img.rgb[static_cast<std::size_t>(y * img.width + x)] =
                (b[p + 2] << 16) | (b[p + 1] << 8) | b[p];
        }
    }
    return img;
}

Pcm loadWav(const std::string& path) {
    const Bytes b = readFile(path);
    if (b.size() < 12 || std::string(b.begin(), b.begin() + 4) != "RIFF" ||
        std::string(b.begin() + 8, b.begin() + 12) != "WAVE")
        throw std::runtime_error(path + ": not RIFF/WAVE");
    Pcm pcm;
    bool haveFormat = false;
    for (std::size_t at = 12; at + 8 <= b.size();) {
        const std::string id(b.begin() + static_cast<long>(at),
                             b.begin() + static_cast<long>(at) + 4);
        const std::uint32_t size = le(b, at + 4, 4);
        const std::size_t body = at + 8;
        if (body + size > b.size()) throw std::runtime_error(path + ": chunk runs past the end");
        if (id == "fmt ") {
            if (le(b, body, 2) != 1 || le(b, body + 14, 2) != 16)
                throw std::runtime_error(path + ": not 16-bit PCM");
            pcm.channels = static_cast<int>(le(b, body + 2, 2));
            pcm.rate = static_cast<int>(le(b, body + 4, 4));
            haveFormat = true;
        } else if (id == "data") {
            if (!haveFormat) throw std::runtime_error(path + ": data before fmt");
            for (std::size_t i = 0; i + 1 < size; i += 2)
                pcm.samples.push_back(static_cast<std::int16_t>(le(b, body + i, 2)));
        }
        at = body + size + (size & 1);
    }
    if (!haveFormat || pcm.samples.empty()) throw std::runtime_error(path + ": no audio");
    return pcm;
}

Pcm loadAu(const std::string& path) {
    const Bytes b = readFile(path);
    if (b.size() < 24 || std::string(b.begin(), b.begin() + 4) != ".snd")
        throw std::runtime_error(path + ": not Sun audio");
    const std::uint32_t offset = be(b, 4, 4);
    std::uint32_t size = be(b, 8, 4);
    if (offset < 24 || offset > b.size()) throw std::runtime_error(path + ": bad data offset");
    // All ones means "size unknown": the samples run to the end of the file.
    if (size == 0xFFFFFFFFu) size = static_cast<std::uint32_t>(b.size() - offset);
    if (static_cast<std::size_t>(offset) + size > b.size())
        throw std::runtime_error(path + ": data runs past the end");
    if (be(b, 12, 4) != 3) throw std::runtime_error(path + ": not 16-bit linear PCM");
    Pcm pcm;
    pcm.rate = static_cast<int>(be(b, 16, 4));
    pcm.channels = static_cast<int>(be(b, 20, 4));
    if (pcm.rate <= 0 || pcm.channels <= 0)
        throw std::runtime_error(path + ": bad rate or channels");
    for (std::uint32_t i = 0; i + 1 < size; i += 2)
        pcm.samples.push_back(static_cast<std::int16_t>(be(b, offset + i, 2)));
    if (pcm.samples.empty()) throw std::runtime_error(path + ": no audio");
    return pcm;
}

std::uint32_t readVlq(const Bytes& b, std::size_t& at, std::size_t end) {
    std::uint32_t v = 0;
    for (int i = 0; i < 4; ++i) {
        if (at >= end) throw std::runtime_error("truncated number");
        const std::uint8_t c = b[at++];
        v = (v << 7) | (c & 0x7F);
        if (!(c & 0x80)) return v;
    }
    throw std::runtime_error("number longer than four bytes");
}

// Playing time = time of the last event (the end of the longest track)
// through the tempo map, as a sequencer would play it.
Tune loadMidi(const std::string& path) {
    const Bytes b = readFile(path);
    if (b.size() < 14 || std::string(b.begin(), b.begin() + 4) != "MThd")
        throw std::runtime_error(path + ": no MThd");
    const std::uint32_t format = be(b, 8, 2), tracks = be(b, 10, 2), division = be(b, 12, 2);
    if (format > 1 || (division & 0x8000) || division == 0)
        throw std::runtime_error(path + ": unsupported header");
    Tune tune;
    std::map<std::uint64_t, std::uint32_t> tempo;  // tick -> microseconds per quarter
    std::uint64_t lastTick = 0;
    std::size_t at = 8 + be(b, 4, 4);
    for (std::uint32_t t = 0; t < tracks; ++t) {
        if (at + 8 > b.size() || std::string(b.begin() + static_cast<long>(at),
                                             b.begin() + static_cast<long>(at) + 4) != "MTrk")
            throw std::runtime_error(path + ": missing MTrk");
        const std::size_t end = at + 8 + be(b, at + 4, 4);
        if (end > b.size()) throw std::runtime_error(path + ": track runs past the end");
        at += 8;
        std::uint64_t tick = 0;
        std::uint8_t running = 0;
        bool ended = false;
        while (at < end && !ended) {
            tick += readVlq(b, at, end);
            if (at >= end) throw std::runtime_error(path + ": truncated event");
            std::uint8_t status = b[at];
            if (status == 0xFF) {
                if (at + 2 > end) throw std::runtime_error(path + ": truncated event");
                const std::uint8_t type = b[at + 1];
                at += 2;
                const std::uint32_t len = readVlq(b, at, end);
                if (type == 0x51 && len == 3) tempo[tick] = be(b, at, 3);
                ended = type == 0x2F;
                at += len;
                running = 0;
            } else if (status == 0xF0 || status == 0xF7) {
                ++at;
                at += readVlq(b, at, end);
                running = 0;
            } else {
                if (status & 0x80) {
                    running = status;
                    ++at;
                } else if (!running) {
                    throw std::runtime_error(path + ": data byte without a status");
                }
                const int kind = running & 0xF0;
                const int dataBytes = (kind == 0xC0 || kind == 0xD0) ? 1 : 2;
                if (at + static_cast<std::size_t>(dataBytes) > end)
                    throw std::runtime_error(path + ": truncated event");
                if (kind == 0xC0) tune.programs.insert(b[at]);
                if (kind == 0x90 && b[at + 1] > 0) {
                    tune.channels.insert(running & 0x0F);
                    ++tune.notes;
                }
                at += static_cast<std::size_t>(dataBytes);
            }
        }
        if (!ended) throw std::runtime_error(path + ": track without end-of-track");
        lastTick = std::max(lastTick, tick);
        at = end;
    }
    if (!tempo.empty() && tempo.begin()->first == 0) tune.firstTempo = tempo.begin()->second;
    std::uint64_t prevTick = 0;
    std::uint32_t us = 500000;
    for (const auto& [tick, value] : tempo) {
        if (tick >= lastTick) break;
        tune.seconds += static_cast<double>(tick - prevTick) * us / division / 1e6;
        prevTick = tick;
        us = value;
    }
    tune.seconds += static_cast<double>(lastTick - prevTick) * us / division / 1e6;
    return tune;
}

}  // namespace assetcheck
