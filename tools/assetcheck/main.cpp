// Reads every data file the game loads with the same decoding the asset tests use, so an artist
// who regenerates the data sees at once which file the game would choke on.
//   grumbo_assetcheck DATA_DIR
// One line per file; exit status 1 when any file cannot be read.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

#include "assetcheck/DataFiles.h"

namespace fs = std::filesystem;

namespace {

std::vector<fs::path> listed(const fs::path& dir, const std::string& extension) {
    std::vector<fs::path> files;
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator(dir, ec))
        if (entry.path().extension() == extension) files.push_back(entry.path());
    if (ec || files.empty()) files.push_back(dir / ("*" + extension));  // reported as unreadable
    std::sort(files.begin(), files.end());
    return files;
}

std::string describeSound(const assetcheck::Pcm& pcm) {
    int peak = 0;
    for (std::int16_t v : pcm.samples) peak = std::max(peak, std::abs(static_cast<int>(v)));
    char line[96];
    std::snprintf(line, sizeof line, "%d Hz, %d ch, %.2f s, peak %.0f%%", pcm.rate, pcm.channels,
                  static_cast<double>(pcm.samples.size()) / pcm.channels / pcm.rate,
                  peak * 100.0 / 32768);
    return line;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s DATA_DIR\n", argv[0]);
        return 2;
    }
    const fs::path data = argv[1];
    int failures = 0;
    auto check = [&](const fs::path& file, auto describe) {
        try {
            std::printf("ok    %s: %s\n", file.string().c_str(), describe(file.string()).c_str());
        } catch (const std::exception& e) {
            // Most reader messages already start with the path; don't print it twice.
            std::string why = e.what();
            if (why.rfind(file.string() + ": ", 0) == 0) why.erase(0, file.string().size() + 2);
            std::printf("FAIL  %s: %s\n", file.string().c_str(), why.c_str());
            ++failures;
        }
    };
    auto picture = [](const std::string& path) {
        const assetcheck::Image img = assetcheck::loadBmp24(path);
        return std::to_string(img.width) + " x " + std::to_string(img.height);
    };
    auto wav = [](const std::string& path) { return describeSound(assetcheck::loadWav(path)); };
    auto au = [](const std::string& path) { return describeSound(assetcheck::loadAu(path)); };
    auto tune = [](const std::string& path) {
        char line[32];
        std::snprintf(line, sizeof line, "%.1f s", assetcheck::loadMidi(path).seconds);
        return std::string(line);
    };

    for (const fs::path& f : listed(data / "characters", ".bmp")) check(f, picture);
    check(data / "pIndication.bmp", picture);
    for (const fs::path& f : listed(data / "sounds", ".wav")) check(f, wav);
    check(data / "Explosion-2.au", au);
    for (int n = 1; n <= 22; ++n) check(data / "midi" / (std::to_string(n) + ".mid"), tune);

    if (failures) std::printf("%d file(s) cannot be read\n", failures);
    return failures ? 1 : 0;
}
