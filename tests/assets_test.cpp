// The shipped data files and the built-in projectile pictures: a broken generator fails here
// before a player sees a stand-in or hears silence or a wrong tune length.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "assetcheck/DataFiles.h"
#include "game/ProjectileArt.h"

namespace {

using assetcheck::be;
using assetcheck::Image;
constexpr std::uint32_t kWhite = 0xFFFFFF;

std::string dataPath(const std::string& relative) {
    return std::string(GRUMBO_DATA_DIR) + "/" + relative;
}

void expectOnWhite(const Image& img) {
    for (int x : {0, img.width - 1})
        for (int y : {0, img.height - 1})
            EXPECT_EQ(img.at(x, y), kWhite) << "corner " << x << "," << y;
    const auto body =
        std::count_if(img.rgb.begin(), img.rgb.end(), [](std::uint32_t c) { return c != kWhite; });
    EXPECT_GT(body, static_cast<long>(img.rgb.size()) / 6) << "figure too small or missing";
}

TEST(DataFiles, CharactersAndTheTurnMarkerArePicturesOnWhite) {
    for (const char* name : {"Classic Grumbo", "Rapper Grumbo", "Robo Grumbo", "Sorcerer Grumbo",
                             "Space Grumbo", "Suit Grumbo", "Dunik", "Vostrel"}) {
        Image first;
        for (const char* suffix : {"", "1", "2"}) {
            const std::string file = std::string(name) + suffix + ".bmp";
            SCOPED_TRACE(file);
            Image img;
            ASSERT_NO_THROW(img = assetcheck::loadBmp24(dataPath("characters/" + file)));
            // The sizes a character may have, the same for its three pictures.
            EXPECT_TRUE(img.width >= 30 && img.width <= 80 && img.height >= 35 &&
                        img.height <= 150);
            if (first.width == 0) first = img;
            EXPECT_TRUE(img.width == first.width && img.height == first.height);
            expectOnWhite(img);
        }
    }
    Image marker;
    ASSERT_NO_THROW(marker = assetcheck::loadBmp24(dataPath("pIndication.bmp")));
    expectOnWhite(marker);
}

void expectAudible(const assetcheck::Pcm& pcm, double minSeconds, double maxSeconds) {
    const double seconds = static_cast<double>(pcm.samples.size()) / pcm.rate / pcm.channels;
    EXPECT_GE(seconds, minSeconds);
    EXPECT_LE(seconds, maxSeconds);
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
        expectAudible(pcm, 0.2, name == "g2intro" ? 4.5 : 2.0);
    }
    // The explosion is Sun audio; its header's data size is taken at its word.
    const std::string au = dataPath("Explosion-2.au");
    const assetcheck::Bytes b = assetcheck::readFile(au);
    ASSERT_GE(b.size(), 24u);
    EXPECT_EQ(be(b, 12, 4), 3u) << "16-bit linear PCM";
    EXPECT_EQ(be(b, 4, 4) + be(b, 8, 4), b.size());
    assetcheck::Pcm pcm;
    ASSERT_NO_THROW(pcm = assetcheck::loadAu(au));
    expectAudible(pcm, 0.5, 5);
}

TEST(DataFiles, EveryTuneLastsItsScheduledTime) {
    // The music timer changes tune after these many seconds.
    const int lengths[22] = {233, 177, 297, 225, 371, 162, 270, 416, 112, 62, 272,
                             211, 345, 179, 88,  193, 97,  50,  156, 44,  24, 126};
    for (int n = 1; n <= 22; ++n) {
        SCOPED_TRACE("tune " + std::to_string(n));
        assetcheck::Tune tune;
        ASSERT_NO_THROW(tune =
                            assetcheck::loadMidi(dataPath("midi/" + std::to_string(n) + ".mid")));
        EXPECT_NEAR(tune.seconds, lengths[n - 1], 0.5);
        EXPECT_GT(tune.notes, lengths[n - 1]) << "too sparse for its length";
    }
}

// The colours a picture uses besides white.
std::set<std::uint32_t> coloursOf(const core::Canvas& c) {
    std::set<std::uint32_t> used;
    for (int y = 0; y < c.height(); ++y)
        for (int x = 0; x < c.width(); ++x)
            if (c.point(x, y) != core::kWhite)
                used.insert(static_cast<std::uint32_t>(c.point(x, y).value()));
    return used;
}

// The stem's colour: the one with the lowest sum of red, green and blue.
std::uint32_t darkest(const std::set<std::uint32_t>& colours) {
    auto sum = [](std::uint32_t c) { return ((c >> 16) & 0xFF) + ((c >> 8) & 0xFF) + (c & 0xFF); };
    return *std::min_element(colours.begin(), colours.end(),
                             [&](auto a, auto b) { return sum(a) < sum(b); });
}

TEST(ProjectileArt, FramesSpinClockwiseAndTheSelectorIconsShowTheirKindInAWhiteFrame) {
    // Stem corner per frame as (right?, bottom?): bottom-right, bottom-left, top-left, top-right.
    const std::pair<bool, bool> stemCorner[4] = {
        {true, true}, {false, true}, {false, false}, {true, false}};
    for (int k = 0; k < game::kKinds; ++k) {
        const auto kind = static_cast<game::ProjectileKind>(k);
        const std::set<std::uint32_t> palette = coloursOf(game::projectileFrame(kind, 0));
        ASSERT_GE(palette.size(), 4u) << "shading colours missing";
        const std::uint32_t stem = darkest(palette);
        for (int frame = 0; frame < game::kFrames; ++frame) {
            SCOPED_TRACE("kind " + std::to_string(k) + " frame " + std::to_string(frame));
            const core::Canvas& s = game::projectileFrame(kind, frame);
            // The war projectile's 11 x 10 frames turn on their side; the others are 10 x 10.
            const bool war = kind == game::ProjectileKind::War;
            EXPECT_EQ(s.width(), war && frame % 2 == 0 ? 11 : 10);
            EXPECT_EQ(s.height(), war && frame % 2 == 1 ? 11 : 10);
            EXPECT_EQ(coloursOf(s), palette) << "a turned frame keeps its colours";
            double sx = 0, sy = 0;
            int stemPixels = 0;
            for (int y = 0; y < s.height(); ++y)
                for (int x = 0; x < s.width(); ++x)
                    if (static_cast<std::uint32_t>(s.point(x, y).value()) == stem)
                        sx += x, sy += y, ++stemPixels;
            ASSERT_GT(stemPixels, 0);
            EXPECT_EQ(sx / stemPixels > (s.width() - 1) / 2.0, stemCorner[frame].first);
            EXPECT_EQ(sy / stemPixels > (s.height() - 1) / 2.0, stemCorner[frame].second);
        }
        const core::Canvas& icon = game::selectorIcon(kind);
        ASSERT_TRUE(icon.width() == 12 && icon.height() == 12);
        for (int y = 0; y < 12; ++y)
            for (int x = 0; x < 12; ++x)
                if (x % 11 == 0 || y % 11 == 0) {
                    EXPECT_EQ(icon.point(x, y), core::kWhite) << x << "," << y;
                }
        const std::set<std::uint32_t> shown = coloursOf(icon);
        EXPECT_TRUE(std::includes(palette.begin(), palette.end(), shown.begin(), shown.end()) &&
                    shown.size() >= 3)
            << "kind " << k;
    }
}

TEST(DataFiles, CreditsCountTheirLinesAndFitTheScroll) {
    std::ifstream in(dataPath("Credits.txt"));
    ASSERT_TRUE(in);
    std::string first;
    std::getline(in, first);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    EXPECT_EQ(std::strtoul(first.c_str(), nullptr, 10), lines.size());
    for (const auto& line : lines) EXPECT_LE(line.size(), 42u) << line;
}

}  // namespace
