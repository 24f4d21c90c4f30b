// Checks on the shipped data files and the built-in projectile pictures:
// the game loads these blindly, so a broken generator must fail here first.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "assetcheck/DataFiles.h"
#include "media/ProjectileArt.h"

namespace {

using assetcheck::be;
using assetcheck::Image;
constexpr std::uint32_t kWhite = 0xFFFFFF;

std::string dataPath(const std::string& relative) {
    return std::string(GRUMBO_DATA_DIR) + "/" + relative;
}

// --- pictures ---------------------------------------------------------------

bool nearWhite(std::uint32_t c) {
    return c != kWhite && ((c >> 16) & 0xFF) >= 240 && ((c >> 8) & 0xFF) >= 240 &&
           (c & 0xFF) >= 240;
}

// Pure white pixels that touch a light body colour. Every figure is ringed by
// a dark outline, so white may only ever meet dark pixels; white next to skin
// or cloth is a hole that the keying would punch into the body.
int whiteInsideBody(const Image& img) {
    int holes = 0;
    for (int y = 0; y < img.height; ++y)
        for (int x = 0; x < img.width; ++x) {
            if (img.at(x, y) != kWhite) continue;
            for (auto [dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) {
                const int nx = x + dx, ny = y + dy;
                if (nx < 0 || ny < 0 || nx >= img.width || ny >= img.height) continue;
                const std::uint32_t c = img.at(nx, ny);
                const auto brightest = std::max({(c >> 16) & 0xFFu, (c >> 8) & 0xFFu, c & 0xFFu});
                if (c != kWhite && brightest >= 100) {
                    ++holes;
                    break;
                }
            }
        }
    return holes;
}

// Body pixels in the top 40 % of the figure, left and right of the middle.
std::pair<int, int> upperSides(const Image& img) {
    int top = 0;
    while (top < img.height &&
           std::all_of(img.rgb.begin() + top * img.width, img.rgb.begin() + (top + 1) * img.width,
                       [](std::uint32_t c) { return c == kWhite; }))
        ++top;
    const int limit = top + (img.height - top) * 2 / 5;
    int left = 0, right = 0;
    for (int y = 0; y < limit; ++y) {
        for (int x = 0; x < img.width; ++x) {
            if (img.at(x, y) == kWhite) continue;
            if (x < img.width / 2 - 4) ++left;
            if (x >= img.width / 2 + 4) ++right;
        }
    }
    return {left, right};
}

const std::vector<std::string> kCharacters = {"Classic Grumbo",  "Rapper Grumbo", "Robo Grumbo",
                                              "Sorcerer Grumbo", "Space Grumbo",  "Suit Grumbo",
                                              "Dunik",           "Vostrel"};

TEST(CharacterArt, EveryCharacterShipsThreeCleanPicturesOfOneSize) {
    for (const auto& name : kCharacters) {
        std::vector<Image> poses;
        for (const char* suffix : {"", "1", "2"}) {
            const std::string file = name + suffix + ".bmp";
            SCOPED_TRACE(file);
            Image img;
            ASSERT_NO_THROW(img = assetcheck::loadBmp24(dataPath("characters/" + file)));
            EXPECT_GE(img.width, 30);
            EXPECT_LE(img.width, 80);
            EXPECT_GE(img.height, 35);
            EXPECT_LE(img.height, 150);
            for (auto [x, y] : {std::pair{0, 0},
                                {img.width - 1, 0},
                                {0, img.height - 1},
                                {img.width - 1, img.height - 1}})
                EXPECT_EQ(img.at(x, y), kWhite) << "corner " << x << "," << y;
            const auto body = std::count_if(img.rgb.begin(), img.rgb.end(),
                                            [](std::uint32_t c) { return c != kWhite; });
            EXPECT_GT(body, static_cast<long>(img.rgb.size()) / 6) << "figure too small or missing";
            EXPECT_LT(body, static_cast<long>(img.rgb.size()) * 3 / 4)
                << "background mostly painted over";
            EXPECT_EQ(whiteInsideBody(img), 0) << "white touches the body without an outline";
            int fringe = 0;
            for (int y = 0; y < img.height; ++y)
                for (int x = 0; x < img.width; ++x) {
                    if (!nearWhite(img.at(x, y))) continue;
                    for (auto [dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) {
                        const int nx = x + dx, ny = y + dy;
                        if (nx >= 0 && ny >= 0 && nx < img.width && ny < img.height &&
                            img.at(nx, ny) == kWhite) {
                            ++fringe;
                            break;
                        }
                    }
                }
            EXPECT_EQ(fringe, 0)
                << "near-white pixels touch the background and would show as a halo";
            poses.push_back(std::move(img));
        }
        SCOPED_TRACE(name);
        for (const Image& pose : poses) {
            EXPECT_EQ(pose.width, poses[0].width);
            EXPECT_EQ(pose.height, poses[0].height);
        }
        // Pose 1 throws to the right, pose 2 to the left: the raised arm shows
        // up as extra body in that upper corner.
        const auto [l1, r1] = upperSides(poses[1]);
        const auto [l2, r2] = upperSides(poses[2]);
        EXPECT_GT(r1 * 2, l1 * 3) << "pose 1 should raise its arm on the right";
        EXPECT_GT(l2 * 2, r2 * 3) << "pose 2 should raise its arm on the left";
    }
}

TEST(CharacterArt, TurnMarkerPointsDownOnWhite) {
    const Image img = assetcheck::loadBmp24(dataPath("pIndication.bmp"));
    EXPECT_EQ(img.at(0, 0), kWhite);
    EXPECT_EQ(img.at(img.width - 1, 0), kWhite);
    EXPECT_EQ(img.at(0, img.height - 1), kWhite);
    EXPECT_EQ(img.at(img.width - 1, img.height - 1), kWhite);
    EXPECT_EQ(whiteInsideBody(img), 0);
    // A down arrow is widest in its lower half and ends in a narrow tip.
    std::vector<int> widths;
    for (int y = 0; y < img.height; ++y)
        widths.push_back(static_cast<int>(
            std::count_if(img.rgb.begin() + y * img.width, img.rgb.begin() + (y + 1) * img.width,
                          [](std::uint32_t c) { return c != kWhite; })));
    const auto widest = std::max_element(widths.begin(), widths.end()) - widths.begin();
    int last = img.height - 1;
    while (last > 0 && widths[static_cast<std::size_t>(last)] == 0) --last;
    EXPECT_GT(widest, img.height / 3);
    EXPECT_GT(last, widest);
    EXPECT_LT(widths[static_cast<std::size_t>(last)] * 3, widths[static_cast<std::size_t>(widest)]);
}

// --- sound ------------------------------------------------------------------

void expectCleanLevels(const std::vector<std::int16_t>& s) {
    int peak = 0;
    long clipped = 0;
    double sum = 0;
    for (std::int16_t v : s) {
        peak = std::max(peak, std::abs(static_cast<int>(v)));
        clipped += (v >= 32767 || v <= -32768);
        sum += v;
    }
    EXPECT_GT(peak, 32768 / 8) << "too quiet to hear in a match";
    EXPECT_LT(clipped, 5) << "clipped";
    EXPECT_LT(std::abs(sum / static_cast<double>(s.size())), 327.68) << "DC offset above 1 %";
}

TEST(SoundEffects, EveryEventSoundIsShortAudiblePcm) {
    const std::vector<std::string> names = {
        "throw.wav",     "sThrow.wav", "dThrow.wav",  "vGrr.wav",     "dHit.wav",    "ge.wav",
        "vg.wav",        "bc.wav",     "nBan.wav",    "wBan.wav",     "mBan.wav",    "flyg.wav",
        "allb.wav",      "gn.wav",     "g2intro.wav", "classicG.wav", "rapperG.wav", "roboG.wav",
        "sorcererG.wav", "spaceG.wav", "suitG.wav",   "dunikG.wav",   "vostrelG.wav"};
    for (const auto& name : names) {
        SCOPED_TRACE(name);
        assetcheck::Pcm pcm;
        ASSERT_NO_THROW(pcm = assetcheck::loadWav(dataPath("sounds/" + name)));
        EXPECT_EQ(pcm.channels, 1);
        EXPECT_TRUE(pcm.rate == 22050 || pcm.rate == 44100) << pcm.rate;
        const double seconds = static_cast<double>(pcm.samples.size()) / pcm.rate;
        EXPECT_GE(seconds, 0.2);
        EXPECT_LE(seconds, name == "g2intro.wav" ? 4.5 : 2.0);
        expectCleanLevels(pcm.samples);
    }
}

TEST(SoundEffects, ExplosionIsSunAudioPcm) {
    const std::string path = dataPath("Explosion-2.au");
    const assetcheck::Bytes b = assetcheck::readFile(path);
    ASSERT_GE(b.size(), 24u);
    EXPECT_EQ(std::string(b.begin(), b.begin() + 4), ".snd");
    const std::uint32_t offset = be(b, 4, 4);
    EXPECT_GE(offset, 24u);
    EXPECT_EQ(be(b, 12, 4), 3u) << "16-bit linear PCM";
    // The game takes the header's size at its word, so no "unknown size" and no trailing bytes.
    ASSERT_EQ(offset + be(b, 8, 4), b.size());
    assetcheck::Pcm pcm;
    ASSERT_NO_THROW(pcm = assetcheck::loadAu(path));
    EXPECT_TRUE(pcm.rate == 22050 || pcm.rate == 44100 || pcm.rate == 8000);
    EXPECT_EQ(pcm.channels, 1);
    EXPECT_GT(static_cast<double>(pcm.samples.size()) / pcm.rate, 0.5);
    expectCleanLevels(pcm.samples);
}

// --- music ------------------------------------------------------------------

TEST(Music, EveryTuneLastsExactlyItsScheduledTime) {
    const int lengths[22] = {233, 177, 297, 225, 371, 162, 270, 416, 112, 62, 272,
                             211, 345, 179, 88,  193, 97,  50,  156, 44,  24, 126};
    std::set<std::uint32_t> tempos;
    std::set<std::set<int>> instrumentations;
    int withDrums = 0;
    for (int n = 1; n <= 22; ++n) {
        SCOPED_TRACE("tune " + std::to_string(n));
        assetcheck::Tune tune;
        ASSERT_NO_THROW(tune =
                            assetcheck::loadMidi(dataPath("midi/" + std::to_string(n) + ".mid")));
        EXPECT_NEAR(tune.seconds, lengths[n - 1], 0.5);
        EXPECT_FALSE(tune.programs.empty()) << "no General MIDI instruments chosen";
        EXPECT_GT(tune.notes, static_cast<int>(lengths[n - 1])) << "too sparse for its length";
        withDrums += tune.channels.count(9) ? 1 : 0;
        tempos.insert(tune.firstTempo);
        instrumentations.insert(tune.programs);
    }
    // The playlist should not sound like one tune 22 times.
    EXPECT_GE(tempos.size(), 15u);
    EXPECT_GE(instrumentations.size(), 18u);
    EXPECT_GE(withDrums, 8);
    EXPECT_LE(withDrums, 21);
}

// --- projectiles ------------------------------------------------------------

const std::vector<std::set<std::uint32_t>> kKindColours = {
    {0xECEE04, 0xD8CE16, 0xABA412, 0x545401, 0x040204},
    {0x67EE04, 0x73D816, 0x5BAB12, 0x255401, 0x040203},
    {0x82846E, 0x7F806E, 0x646557, 0x2D2E26, 0x030303},
    {0xE55130, 0x7C7B72, 0x666656, 0x636359, 0x313123, 0x2C2C28, 0x030303},
};

std::uint32_t darkest(const std::set<std::uint32_t>& colours) {
    auto sum = [](std::uint32_t c) { return ((c >> 16) & 0xFF) + ((c >> 8) & 0xFF) + (c & 0xFF); };
    return *std::min_element(colours.begin(), colours.end(),
                             [&](auto a, auto b) { return sum(a) < sum(b); });
}

TEST(ProjectileArt, FramesUseOnlyTheirKindsColoursAndSpinClockwise) {
    // Stem corner per frame as (right?, bottom?): bottom-right, bottom-left, top-left, top-right.
    const std::pair<bool, bool> stemCorner[4] = {
        {true, true}, {false, true}, {false, false}, {true, false}};
    for (int kind = 0; kind < 4; ++kind) {
        const std::uint32_t stem = darkest(kKindColours[static_cast<std::size_t>(kind)]);
        for (int frame = 0; frame < 4; ++frame) {
            SCOPED_TRACE("kind " + std::to_string(kind) + " frame " + std::to_string(frame));
            const grumbo::Sprite s = grumbo::projectileFrame(kind, frame);
            if (kind == 2) {
                EXPECT_EQ(s.width, frame % 2 == 0 ? 11 : 10);
                EXPECT_EQ(s.height, frame % 2 == 0 ? 10 : 11);
            } else {
                EXPECT_EQ(s.width, 10);
                EXPECT_EQ(s.height, 10);
            }
            ASSERT_EQ(s.rgb.size(), static_cast<std::size_t>(s.width * s.height));
            std::set<std::uint32_t> used;
            double sx = 0, sy = 0;
            int stemPixels = 0, body = 0;
            for (int y = 0; y < s.height; ++y)
                for (int x = 0; x < s.width; ++x) {
                    const std::uint32_t c = s.rgb[static_cast<std::size_t>(y * s.width + x)];
                    if (c == kWhite) continue;
                    ++body;
                    used.insert(c);
                    if (c == stem) sx += x, sy += y, ++stemPixels;
                }
            for (std::uint32_t c : used)
                EXPECT_TRUE(kKindColours[static_cast<std::size_t>(kind)].count(c)) << std::hex << c;
            EXPECT_GE(used.size(), 4u) << "shading colours missing";
            EXPECT_GT(body, 25);
            ASSERT_GT(stemPixels, 0);
            EXPECT_EQ(sx / stemPixels > (s.width - 1) / 2.0, stemCorner[frame].first);
            EXPECT_EQ(sy / stemPixels > (s.height - 1) / 2.0, stemCorner[frame].second);
        }
    }
    EXPECT_TRUE(grumbo::projectileFrame(4, 0).rgb.empty());
    EXPECT_TRUE(grumbo::projectileFrame(-1, 0).rgb.empty());
    EXPECT_TRUE(grumbo::projectileFrame(0, 4).rgb.empty());
    EXPECT_EQ(grumbo::projectileFrame(1, -1).width, 0);
}

TEST(ProjectileArt, SelectorIconsShowTheirKindInsideAWhiteFrame) {
    for (int kind = 0; kind < 4; ++kind) {
        SCOPED_TRACE("kind " + std::to_string(kind));
        const grumbo::Sprite icon = grumbo::selectorIcon(kind);
        ASSERT_EQ(icon.width, 12);
        ASSERT_EQ(icon.height, 12);
        ASSERT_EQ(icon.rgb.size(), 144u);
        int inside = 0;
        for (int y = 0; y < 12; ++y)
            for (int x = 0; x < 12; ++x) {
                const std::uint32_t c = icon.rgb[static_cast<std::size_t>(y * 12 + x)];
                if (x == 0 || y == 0 || x == 11 || y == 11) {
                    EXPECT_EQ(c, kWhite) << x << "," << y;
                } else if (c != kWhite) {
                    ++inside;
                    EXPECT_TRUE(kKindColours[static_cast<std::size_t>(kind)].count(c))
                        << std::hex << c;
                }
            }
        EXPECT_GT(inside, 25);
    }
    EXPECT_TRUE(grumbo::selectorIcon(4).rgb.empty());
}

// --- credits ----------------------------------------------------------------

TEST(Credits, LineCountMatchesAndEveryLineFitsTheScroll) {
    std::ifstream in(dataPath("Credits.txt"));
    ASSERT_TRUE(in);
    std::string first;
    std::getline(in, first);
    ASSERT_FALSE(first.empty());
    ASSERT_TRUE(std::all_of(first.begin(), first.end(), [](char c) {
        return c >= '0' && c <= '9';
    })) << first;
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    EXPECT_EQ(std::stoul(first), lines.size());
    EXPECT_NE(std::find(lines.begin(), lines.end(), "Grumbo 2 - Kravenmoor"), lines.end());
    for (const auto& line : lines) {
        EXPECT_LE(line.size(), 42u) << "may not fit the 507 pixel credits buffer: " << line;
        EXPECT_EQ(line.find('\r'), std::string::npos);
    }
}

}  // namespace
