// The match screen's start and its rounds, driven offscreen on the virtual clock.
#include <QLabel>
#include <QPushButton>

#include "TestSupport.h"
#include "app/modMain.h"
#include "screens/frmLoading.h"

using namespace testing_support;
using namespace modMain;

class MatchStart : public GameTest {};

TEST_F(MatchStart, FirstRoundStandsWithTitleAndSky) {
    frmGrumbo& f = StartMatch(2);
    EXPECT_EQ(f.Caption(), QStringLiteral("Player 1 - 0 pts"));
    EXPECT_EQ(f.window()->width(), 722);
    EXPECT_EQ(f.window()->height(), 510);
    EXPECT_FALSE(f.cmdThrow->isEnabled());
    EXPECT_TRUE(messages.isEmpty()) << messages.join(QLatin1Char('\n')).toStdString();
}
