#pragma once
// The way to player selection that most screen tests take, and the codes typed into a match.
#include <QTest>

#include "TestSupport.h"
#include "ui/ArrowControl.h"

namespace testing_support {

class FlowTest : public ScreensTest {
protected:
    // The program, the computer at `seats`, through the title and an untouched setup (but for
    // "2 vs 2" when `players` is 4) to player selection.
    screens::PlayerScreen& ToPlayers(int players = 2,
                                     const std::array<screens::Seat, 4>& seats = {}) {
        StartProgram(ShippedData(), 7, seats).title()->start();
        if (players == 4) QTest::keyClick(flow->setup()->gameType, Qt::Key_Up);
        flow->setup()->next();
        return *flow->players();
    }
    // Types `code` on the match's keyboard, '\\' as the backslash.
    void TypeCode(const QString& code) {
        for (QChar c : code) Tap(c == u'\\' ? game::key::kBackslash : c.unicode());
    }
};

}  // namespace testing_support
