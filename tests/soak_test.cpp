// Many seeded matches with random throws, played to the frag limit and left through the
// game-over box, while a restless player pauses, types the codes and flies the thrower about:
// no crash, no hang, and the match stays consistent after every throw.
#include <QLabel>
#include <QPushButton>
#include <deque>
#include <random>

#include "MatchDriver.h"
#include "TestSupport.h"
#include "modmain/modMain.h"
#include "screens/frmEndgame.h"
#include "screens/frmSplash.h"
#include "ui/Keyboard.h"

using namespace testing_support;
using namespace modMain;

namespace {
constexpr int kMatches = 200;
constexpr int kMaxThrowsPerMatch = 3000;

// The characters stand on roofs: the row under each box is building, the row above it sky.
// A thrower flown about while the round was built (`flown`) may stand anywhere.
void ExpectOnRoofs(const frmGrumbo& f, int flown) {
    for (int i = 0; i < intPlayers; ++i) {
        if (i == flown) continue;
        const ui::PictureBox& p = *f.Player[i];
        ASSERT_LE(p.Top(), field::kGroundLine) << "player " << i;
        const int cx = p.Left() + p.Width() / 2, bottom = p.Top() + p.Height();
        ASSERT_NE(f.picBld->Point(cx, bottom), f.picBg->Point(cx, bottom)) << "player " << i;
        ASSERT_EQ(f.picBld->Point(cx, bottom - 1), f.picBg->Point(cx, bottom - 1)) << i;
    }
}

void ExpectConsistent(const frmGrumbo& f, bool over) {
    ASSERT_GE(f.intCurrentPlayer, 0);
    ASSERT_LT(f.intCurrentPlayer, intPlayers);
    const int left = LabelNumber(f.lblLeft), right = LabelNumber(f.lblRight);
    ASSERT_EQ(left + right, LabelNumber(f.lblcRound) - !over) << "every round counted once";
    ASSERT_LE(std::max(left, right), intFragLimit);
    int frags = 0;
    for (int i = 0; i < 4; ++i) {
        ASSERT_GE(f.intMisses[i], 0);
        ASSERT_GE(f.intFrags[i], 0);
        frags += f.intFrags[i];
        for (int held : f.intSpecials[i]) ASSERT_TRUE(held == 0 || held == 1);
        if (i >= intPlayers) {
            ASSERT_EQ(f.lngPoints[i], 0) << "nobody plays in that seat";
        }
    }
    ASSERT_GE(frags, left + right) << "a round is only won by hits";
}

// At the pumps between the match's events, as a player at the keyboard: now and then Escape, a
// typed code or a few arrow keys, and "Resume" a little while after every pause.
class RestlessPlayer {
public:
    RestlessPlayer(ui::VirtualClock& clock, unsigned seed) : clock_(clock), rng_(seed) {}

    void OnPump() {
        const std::int32_t now = clock_.TickCount();
        for (; !keys_.empty() && ui::TicksSince(keys_.front().at, now) >= 0; keys_.pop_front()) {
            const Key k = keys_.front();
            arrows += k.down && k.vk >= ui::VkLeft && k.vk <= ui::VkDown;
            if (k.down) ui::Keyboard::instance().Press(k.vk);
            else ui::Keyboard::instance().Release(k.vk);
        }
        frmEndgame& box = frmEndgame::Instance();
        if (box.Loaded() && box.cmdPlay->text() == QLatin1String("Resume")) {
            if (resumeAt_ < 0) resumeAt_ = now + static_cast<std::int32_t>(rng_() % 3000);
            if (ui::TicksSince(resumeAt_, now) >= 0) {
                resumeAt_ = -1;
                ++resumes;
                box.cmdPlay->click();
            }
            return;
        }
        if (!keys_.empty() || ui::TicksSince(nextAt_, now) < 0) return;
        nextAt_ = now + 500 + static_cast<std::int32_t>(rng_() % 12000);
        static const char* const kTyped[] = {"\\hop fremble", "\\zap plinkos", "\\qix fremble",
                                             "hop \\fr", "zzz"};
        static constexpr int kArrows[] = {ui::VkLeft, ui::VkUp, ui::VkRight, ui::VkDown};
        const unsigned what = rng_() % 5;
        if (what < 2) {
            Tap(ui::VkEscape, now);
        } else if (what == 2) {
            std::int32_t at = now;
            for (const QChar c : QString::fromLatin1(kTyped[rng_() % 5]))
                at +=
                    Tap(c == QLatin1Char('\\') ? int{ui::VkBackslash} : c.toUpper().unicode(), at);
        } else {
            std::int32_t at = now;
            for (unsigned n = 1 + rng_() % 3; n > 0; --n) at += Tap(kArrows[rng_() % 4], at);
        }
    }

    int resumes = 0;
    int arrows = 0;  // arrow keys pressed so far

private:
    struct Key {
        int vk;
        std::int32_t at;
        bool down;
    };
    // Held for more than one poll of the trap; returns the time the key takes.
    std::int32_t Tap(int vk, std::int32_t at) {
        keys_.push_back({vk, at, true});
        keys_.push_back({vk, at + 30, false});
        return 60;
    }

    ui::VirtualClock& clock_;
    std::mt19937 rng_;
    std::deque<Key> keys_;
    std::int32_t nextAt_ = 0;
    std::int32_t resumeAt_ = -1;
};

class Soak : public GameTest {
protected:
    void TearDown() override {
        clock.onPump = nullptr;
        GameTest::TearDown();
        ui::Keyboard::instance().Reset();
        frmSplash::Instance().Unload();
    }
};
}  // namespace

TEST_F(Soak, TwoHundredRandomMatchesReachTheFragLimit) {
    long throws = 0, resumes = 0;
    for (int m = 0; m < kMatches; ++m) {
        std::mt19937 rng(static_cast<unsigned>(m) * 2654435761u + 17);
        RestlessPlayer player(clock, static_cast<unsigned>(m) + 99);
        clock.onPump = [&] { player.OnPump(); };
        const int players = m % 2 ? 4 : 2;
        intFragLimit = static_cast<grumbo::Integer>(1 + m % 3);
        intWindExtremity = static_cast<grumbo::Integer>(rng() % 31);
        blnWindGusts = rng() % 2;
        intBuildingHeight = static_cast<grumbo::Integer>(4 + rng() % 9);
        intTimeOfDay = static_cast<grumbo::Integer>(1 + rng() % 3);
        frmGrumbo& f = StartMatch(players, static_cast<std::uint64_t>(m) + 1);
        SCOPED_TRACE(testing::Message() << "match " << m << ", " << players << " players");
        const auto flown = [&](int arrowsBefore) {
            return f.blnFlying && player.arrows != arrowsBefore ? int{f.intCurrentPlayer} : -1;
        };
        ExpectOnRoofs(f, flown(0));
        int round = 1;
        for (int n = 1; !MatchOver(f); ++n) {
            ASSERT_LT(n, kMaxThrowsPerMatch) << "the match makes no progress";
            const int kind = static_cast<int>(rng() % 4);
            const int angle = static_cast<int>(rng() % 91);
            const int velocity = static_cast<int>(20 + rng() % 100);
            // A pause may have come at any moment since the input last opened.
            ASSERT_TRUE(clock.RunUntil([&] { return InputOpen(f); }, kThrowLimitMs));
            const int arrowsBefore = player.arrows;
            ASSERT_TRUE(PlayThrow(clock, f, angle, velocity, kind)) << "throw " << n << " hung";
            ++throws;
            ExpectConsistent(f, MatchOver(f));
            if (HasFatalFailure()) return;
            if (MatchOver(f)) break;
            ASSERT_FALSE(frmEndgame::Instance().Loaded()) << "the input is open again";
            ASSERT_TRUE(f.picUI->isEnabled());
            if (LabelNumber(f.lblcRound) != round) {
                round = LabelNumber(f.lblcRound);
                ExpectOnRoofs(f, flown(arrowsBefore));
                if (HasFatalFailure()) return;
            }
        }
        const int left = LabelNumber(f.lblLeft), right = LabelNumber(f.lblRight);
        ASSERT_TRUE(left == intFragLimit || right == intFragLimit);
        // Whatever the player pressed, the box over the final board is the game-over box.
        frmEndgame& box = frmEndgame::Instance();
        ASSERT_TRUE(clock.RunUntil([&] { return box.Loaded(); }, 10000));
        ASSERT_EQ(box.cmdPlay->text(), QStringLiteral("Play Again"));
        ASSERT_FALSE(f.picUI->isEnabled());
        box.cmdPlay->click();
        ASSERT_FALSE(f.Loaded());
        ASSERT_TRUE(frmSplash::Instance().Loaded());
        ASSERT_EQ(programEnds, 0);
        frmSplash::Instance().Unload();
        resumes += player.resumes;
        clock.onPump = nullptr;
    }
    std::printf("%d matches, %ld throws, %ld pauses resumed\n", kMatches, throws, resumes);
}
