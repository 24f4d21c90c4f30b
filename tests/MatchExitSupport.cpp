#include "MatchExitSupport.h"

#include <QLabel>
#include <QPushButton>

#include "MatchDriver.h"
#include "modmain/modMain.h"
#include "screens/frmCredits.h"
#include "screens/frmEndgame.h"
#include "screens/frmSetup.h"
#include "screens/frmSplash.h"

namespace testing_support {

namespace {
// The match screen outlives its window, and with it the typed modes.
void SwitchOffModes() {
    frmGrumbo& f = frmGrumbo::Instance();
    f.strCode.clear();
    f.blnFlying = f.blnAllProjectiles = f.blnInvulnerable = false;
    for (auto& held : f.intSpecials) held.fill(0);
    ui::Keyboard::instance().Reset();
}
}  // namespace

QStringList BoxTexts() {
    const frmEndgame& box = frmEndgame::Instance();
    return {box.lblCaption->text(), box.cmdPlay->text(), box.cmdCredits->text(),
            box.cmdQuit->text()};
}

void MatchExitTest::SetUp() {
    GameTest::SetUp();
    SwitchOffModes();
}

void MatchExitTest::TearDown() {
    // The credits lead to the title screen when they close, so they go first.
    frmCredits::Instance().Unload();
    clock.Advance(5);
    frmSplash::Instance().Unload();
    frmSetup::Instance().Unload();
    GameTest::TearDown();
    // The box goes with the match window it stands over.
    EXPECT_FALSE(frmEndgame::Instance().Loaded());
    SwitchOffModes();
}

void MatchExitTest::Tap(int vk) {
    keyboard.Press(vk);
    clock.Advance(kPollMs);
    keyboard.Release(vk);
    clock.Advance(kPollMs);
}

void MatchExitTest::TypeKeys(const QString& text) {
    for (const QChar c : text)
        Tap(c == QLatin1Char('\\') ? int{ui::VkBackslash} : c.toUpper().unicode());
}

frmGrumbo& MatchExitTest::PlayToTheFinalBoard() {
    modMain::intFragLimit = 1;
    frmGrumbo& f = StartMatch(2);
    PutInThePathOfAnUpwardThrow(f, 1);
    EXPECT_TRUE(PlayThrow(clock, f, 90, 50));
    EXPECT_TRUE(MatchOver(f));
    return f;
}

bool MatchExitTest::WaitForBox(std::int32_t limitMs) {
    return clock.RunUntil([] { return frmEndgame::Instance().Loaded(); }, limitMs);
}

}  // namespace testing_support
