// Reads every data file the game loads, and every file it needs, and judges each as a player
// would meet it: a character or the turn marker is a figure on white, a character's three
// pictures share a size the game takes, a sound is short and loud enough to hear, a tune lasts
// the time the game gives it. An artist who regenerates the data sees at once which file is off.
//   grumbo_assetcheck DATA_DIR
// One line per file; exit status 1 when any file cannot be read or breaks a rule.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "assetcheck/DataFiles.h"
#include "game/Characters.h"
#include "game/Music.h"

namespace fs = std::filesystem;

namespace {

// The effects the game plays besides the characters' own.
const char* const kEffects[] = {"throw", "ge",   "vg",   "bc", "nBan",   "wBan",
                                "mBan",  "flyg", "allb", "gn", "g2intro"};

std::vector<fs::path> listed(const fs::path& dir, const std::string& extension) {
    std::vector<fs::path> files;
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator(dir, ec))
        if (entry.path().extension() == extension) files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

// `files` with `needed` added where missing, each once.
std::vector<fs::path> withNeeded(std::vector<fs::path> files, const std::vector<fs::path>& needed) {
    for (const fs::path& f : needed)
        if (std::find(files.begin(), files.end(), f) == files.end()) files.push_back(f);
    return files;
}

void require(bool rule, const std::string& why) {
    if (!rule) throw std::runtime_error(why);
}

// White corners, and a figure that covers more than a sixth of the picture.
void onWhite(const assetcheck::Image& img) {
    for (int x : {0, img.width - 1})
        for (int y : {0, img.height - 1})
            require(img.at(x, y) == 0xFFFFFFu, "a corner is not white");
    require(std::count(img.rgb.begin(), img.rgb.end(), 0xFFFFFFu) <
                static_cast<long>(img.rgb.size()) * 5 / 6,
            "hardly any figure on the white");
}

std::string describeSound(const assetcheck::Pcm& pcm, double shortest, double longest) {
    int peak = 0;
    for (std::int16_t v : pcm.samples) peak = std::max(peak, std::abs(static_cast<int>(v)));
    const double seconds = static_cast<double>(pcm.samples.size()) / pcm.channels / pcm.rate;
    char line[128];
    std::snprintf(line, sizeof line, "%d Hz, %d ch, %.2f s, peak %.0f%%", pcm.rate, pcm.channels,
                  seconds, peak * 100.0 / 32768);
    const std::string said = line;
    std::snprintf(line, sizeof line, "%s: not %.1f to %.1f s long", said.c_str(), shortest,
                  longest);
    require(seconds >= shortest && seconds <= longest, line);
    require(peak > 32768 / 8, said + ": too quiet to hear in a match");
    return said;
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

    // Characters: each picture on white and of a size the game takes; a character's three
    // pictures of one size.
    std::vector<fs::path> needed;
    for (const game::CharacterTraits& c : game::kKnownCharacters)
        for (const char* suffix : {"", "1", "2"})
            needed.push_back(data / "characters" / (std::string(c.name) + suffix + ".bmp"));
    std::map<std::string, std::set<std::pair<int, int>>> sizes;
    for (const fs::path& f : withNeeded(listed(data / "characters", ".bmp"), needed))
        check(f, [&](const std::string& path) {
            const assetcheck::Image img = assetcheck::loadBmp24(path);
            std::string stem = f.stem().string();
            if (!stem.empty() && (stem.back() == '1' || stem.back() == '2')) stem.pop_back();
            sizes[stem].insert({img.width, img.height});
            const std::string size = std::to_string(img.width) + " x " + std::to_string(img.height);
            require(img.width >= 30 && img.width <= 80 && img.height >= 35 && img.height <= 150,
                    size + ": a character is 30 to 80 pixels wide and 35 to 150 high");
            require(sizes[stem].size() == 1, size + ": not the size of its other pictures");
            onWhite(img);
            return size;
        });
    check(data / "pIndication.bmp", [](const std::string& path) {
        const assetcheck::Image img = assetcheck::loadBmp24(path);
        onWhite(img);
        return std::to_string(img.width) + " x " + std::to_string(img.height);
    });

    // Sounds: short and audible; the title's intro may take longer.
    needed.clear();
    for (const char* e : kEffects) needed.push_back(data / "sounds" / (std::string(e) + ".wav"));
    for (const game::CharacterTraits& c : game::kKnownCharacters)
        for (const char* s : {c.chosen, c.throwing, c.hit})
            if (s) needed.push_back(data / s);
    for (const fs::path& f : withNeeded(listed(data / "sounds", ".wav"), needed))
        check(f, [&](const std::string& path) {
            return describeSound(assetcheck::loadWav(path), 0.2, f.stem() == "g2intro" ? 4.5 : 2.0);
        });
    // The explosion's header gives its data size, which the game takes at its word.
    check(data / "Explosion-2.au", [](const std::string& path) {
        const assetcheck::Bytes b = assetcheck::readFile(path);
        require(assetcheck::be(b, 4, 4) + assetcheck::be(b, 8, 4) == b.size(),
                "the header's data size is not the file's");
        return describeSound(assetcheck::loadAu(path), 0.5, 5);
    });

    // Tunes: each lasts, within half a second, the time after which the game changes the tune,
    // with more notes than seconds.
    for (int n = 1; n <= game::kTunes; ++n)
        check(data / game::tuneFile(n).toStdString(), [n](const std::string& path) {
            const assetcheck::Tune tune = assetcheck::loadMidi(path);
            char line[64];
            std::snprintf(line, sizeof line, "%.1f s, %d notes", tune.seconds, tune.notes);
            require(std::abs(tune.seconds - game::tuneSeconds(n)) <= 0.5,
                    std::string(line) + ": the game gives it " +
                        std::to_string(game::tuneSeconds(n)) + " s");
            require(tune.notes > game::tuneSeconds(n), std::string(line) + ": too sparse");
            return std::string(line);
        });

    if (failures) std::printf("%d file(s) cannot be read or break a rule\n", failures);
    return failures ? 1 : 0;
}
