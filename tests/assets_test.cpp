// The shipped data files: a broken generator fails here before a player sees a stand-in or hears
// silence or a wrong tune length.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "assetcheck/DataFiles.h"
#include "game/Music.h"

namespace {

std::string dataPath(const std::string& relative) {
    return std::string(GRUMBO_DATA_DIR) + "/" + relative;
}

// White corners, and a figure that covers more than a sixth of the picture.
void ExpectOnWhite(const assetcheck::Image& img) {
    for (int x : {0, img.width - 1})
        for (int y : {0, img.height - 1}) EXPECT_EQ(img.at(x, y), 0xFFFFFFu) << x << "," << y;
    EXPECT_LT(std::count(img.rgb.begin(), img.rgb.end(), 0xFFFFFFu),
              static_cast<long>(img.rgb.size()) * 5 / 6);
}

TEST(DataFiles, CharactersAndTheTurnMarkerArePicturesOnWhite) {
    for (const char* name : {"Classic Grumbo", "Rapper Grumbo", "Robo Grumbo", "Sorcerer Grumbo",
                             "Space Grumbo", "Suit Grumbo", "Dunik", "Vostrel"}) {
        std::vector<std::pair<int, int>> sizes;
        for (const char* suffix : {"", "1", "2"}) {
            const std::string file = std::string("characters/") + name + suffix + ".bmp";
            SCOPED_TRACE(file);
            assetcheck::Image img;
            ASSERT_NO_THROW(img = assetcheck::loadBmp24(dataPath(file)));
            EXPECT_TRUE(img.width >= 30 && img.width <= 80 && img.height >= 35 &&
                        img.height <= 150);
            sizes.emplace_back(img.width, img.height);
            ExpectOnWhite(img);
        }
        EXPECT_TRUE(sizes[1] == sizes[0] && sizes[2] == sizes[0]) << name << ": one size";
    }
    assetcheck::Image marker;
    ASSERT_NO_THROW(marker = assetcheck::loadBmp24(dataPath("pIndication.bmp")));
    ExpectOnWhite(marker);
}

void ExpectAudible(const assetcheck::Pcm& pcm, double minSeconds, double maxSeconds) {
    const double seconds = static_cast<double>(pcm.samples.size()) / pcm.rate / pcm.channels;
    EXPECT_TRUE(seconds >= minSeconds && seconds <= maxSeconds) << seconds << " s";
    int peak = 0;
    for (std::int16_t v : pcm.samples) peak = std::max(peak, std::abs(static_cast<int>(v)));
    EXPECT_GT(peak, 32768 / 8) << "too quiet to hear in a match";
}

TEST(DataFiles, EverySoundIsShortAudiblePcm) {
    for (const std::string name :
         {"throw",   "sThrow", "dThrow",    "vGrr",   "dHit",  "ge",     "vg",      "bc",
          "nBan",    "wBan",   "mBan",      "flyg",   "allb",  "gn",     "g2intro", "classicG",
          "rapperG", "roboG",  "sorcererG", "spaceG", "suitG", "dunikG", "vostrelG"}) {
        SCOPED_TRACE(name);
        assetcheck::Pcm pcm;
        ASSERT_NO_THROW(pcm = assetcheck::loadWav(dataPath("sounds/" + name + ".wav")));
        ExpectAudible(pcm, 0.2, name == "g2intro" ? 4.5 : 2.0);
    }
    // The explosion is 16-bit linear Sun audio (the reader refuses any other), whose header's
    // data size is taken at its word.
    assetcheck::Pcm pcm;
    ASSERT_NO_THROW(pcm = assetcheck::loadAu(dataPath("Explosion-2.au")));
    ExpectAudible(pcm, 0.5, 5);
    const assetcheck::Bytes b = assetcheck::readFile(dataPath("Explosion-2.au"));
    EXPECT_EQ(assetcheck::be(b, 4, 4) + assetcheck::be(b, 8, 4), b.size());
}

TEST(DataFiles, EveryTuneLastsItsScheduledTime) {
    // The game's schedule is checked against files made apart from it: either may be wrong.
    for (int n = 1; n <= game::kTunes; ++n) {
        SCOPED_TRACE(game::tuneFile(n).toStdString());
        assetcheck::Tune tune;
        ASSERT_NO_THROW(tune = assetcheck::loadMidi(dataPath(game::tuneFile(n).toStdString())));
        EXPECT_NEAR(tune.seconds, game::tuneSeconds(n), 0.5);
        EXPECT_GT(tune.notes, game::tuneSeconds(n)) << "too sparse for its length";
    }
}

}  // namespace
