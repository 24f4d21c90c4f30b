// Closing the match window, also in the middle of long work: the match start and the hit
// handling pump window events, and the close box may be clicked at any of those pumps. The
// program must then end once, without touching the closed window again.
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "MatchDriver.h"
#include "TestSupport.h"
#include "screens/frmLoading.h"

using namespace testing_support;

namespace {

class Closing : public GameTest {
protected:
    // At pump `closeAt` from now on, clicks the match window's close box and lets Qt delete the
    // closed windows right there, as a real event loop may.
    void CountPumps(int closeAt = 0) {
        pumps = 0;
        clock.onPump = [this, closeAt] {
            if (++pumps != closeAt) return;
            if (QWidget* w = frmGrumbo::Instance().window()) w->close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        };
    }
    void StopCounting() { clock.onPump = nullptr; }

    // The program was told to end exactly once and no window of the match is left.
    void ExpectClosedOnce(int pump) {
        EXPECT_EQ(programEnds, 1) << "closed at pump " << pump;
        EXPECT_FALSE(frmGrumbo::Instance().Loaded()) << pump;
        clock.Advance(20);
        EXPECT_FALSE(frmLoading::Instance().Loaded()) << pump;
        programEnds = 0;
    }

    // The hit handling, the victory dance, the turn change and a whole new round follow.
    void ThrowIntoTheOpponent(frmGrumbo& f) {
        PutInThePathOfAnUpwardThrow(f, 1);
        f.txtAngle->setText(QStringLiteral("90"));
        f.txtVel->setText(QStringLiteral("60"));
        f.cmdThrow->click();
    }

    int pumps = 0;
};

}  // namespace

TEST_F(Closing, WhileWaitingOrAtAnyPumpOfTheCalibrationOrTheFirstRound) {
    StartMatch(2);
    frmGrumbo::Instance().window()->close();
    ExpectClosedOnce(0);
    CountPumps();
    StartMatch(2);
    StopCounting();
    const int total = pumps;
    LeaveMatch();
    ASSERT_GT(total, 100);
    for (int n = 1; n <= total; ++n) {
        CountPumps(n);
        StartMatch(2);
        StopCounting();
        ExpectClosedOnce(n);
    }
}

TEST_F(Closing, AtAnyPumpOfAHitAndTheNextRound) {
    frmGrumbo& f = StartMatch(2);
    CountPumps();
    ThrowIntoTheOpponent(f);
    ASSERT_TRUE(clock.RunUntil([&] { return InputOpen(f); }, kThrowLimitMs));
    StopCounting();
    ASSERT_EQ(LabelNumber(f.lblLeft), 1) << "the throw must hit and decide the round";
    const int total = pumps;
    LeaveMatch();
    for (int n = 1; n <= total; ++n) {
        StartMatch(2);
        CountPumps(n);
        ThrowIntoTheOpponent(f);
        clock.RunUntil([&] { return !f.Loaded(); }, kThrowLimitMs);
        StopCounting();
        ExpectClosedOnce(n);
    }
}
