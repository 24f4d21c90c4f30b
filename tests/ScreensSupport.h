#pragma once
// Shared ground for the screens around a match: data folders made by the test, clicks on the
// arrow controls, keys held for a poll of the match's keyboard trap, and every screen, box and
// typed mode of one test gone before the next.
#include <QApplication>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include "MatchDriver.h"
#include "TestSupport.h"
#include "modmain/modMain.h"
#include "screens/frmCredits.h"
#include "screens/frmEndgame.h"
#include "screens/frmPlayer.h"
#include "screens/frmSetup.h"
#include "screens/frmSplash.h"
#include "ui/ArrowControl.h"
#include "ui/Keyboard.h"

namespace testing_support {

constexpr QRgb kBody = qRgb(200, 30, 60);
// The trap polls every 20 ms: a key held this long is seen by exactly one poll.
constexpr int kPollMs = 20;

// The caption and the three buttons of the box over the match, in its two uses.
const QStringList kPausedBox{"Game Paused", "Resume", "Start Over", "Quit"};
const QStringList kGameOverBox{"Thanks for Playing", "Play Again", "View Credits", "Quit"};

inline QStringList BoxTexts() {
    const frmEndgame& box = frmEndgame::Instance();
    return {box.lblCaption->text(), box.cmdPlay->text(), box.cmdCredits->text(),
            box.cmdQuit->text()};
}

// Clicks the arrow that raises (+1) or lowers (-1) the control's value, `times` times.
inline void ClickArrow(ui::ArrowControl* control, int direction, int times = 1) {
    const int w = control->width(), h = control->height();
    const bool vertical = h > w;
    const QPoint up = vertical ? QPoint(w / 2, 2) : QPoint(w - 3, h / 2);
    const QPoint down = vertical ? QPoint(w / 2, h - 3) : QPoint(2, h / 2);
    for (int i = 0; i < times; ++i)
        QTest::mouseClick(control, Qt::LeftButton, {}, direction > 0 ? up : down);
}

// Titles of the top-level windows a user could see now.
inline QStringList VisibleWindows() {
    QStringList titles;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->isVisible()) titles << w->windowTitle();
    return titles;
}

class ScreensTest : public GameTest {
protected:
    void SetUp() override {
        GameTest::SetUp();
        SwitchOffModes();
    }
    void TearDown() override {
        // Without chosen characters a closing player selection only ends the program, which the
        // test hook swallows; the credits lead to the title screen, so they go first.
        modMain::strCharacter.fill(QString());
        modMain::blnBackToSetup = false;
        frmCredits::Instance().Unload();
        clock.Advance(5);
        frmPlayer::Instance().Unload();
        frmSetup::Instance().Unload();
        frmSplash::Instance().Unload();
        clock.Advance(20);
        GameTest::TearDown();
        EXPECT_FALSE(frmEndgame::Instance().Loaded()) << "the box goes with the match window";
        SwitchOffModes();
    }
    // The match screen outlives its window, and with it the typed modes.
    static void SwitchOffModes() {
        frmGrumbo& f = frmGrumbo::Instance();
        f.strCode.clear();
        f.blnFlying = f.blnAllProjectiles = f.blnInvulnerable = false;
        for (auto& held : f.intSpecials) held.fill(0);
        ui::Keyboard::instance().Reset();
    }

    // Points the program's folder at an empty folder of the test's own with a characters folder.
    void UseOwnDataFolder() {
        ASSERT_TRUE(folder.isValid());
        ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("characters")));
        modMain::SetAppPath(folder.path());
    }
    // A white bitmap in the characters folder with a body in kBody that leaves a white border
    // of 2 pixels at the sides and the top and reaches the bottom row.
    void WriteBitmap(const QString& file, int width, int height) {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::white);
        for (int y = 2; y < height; ++y)
            for (int x = 2; x < width - 2; ++x) image.setPixel(x, y, kBody);
        ASSERT_TRUE(image.save(folder.filePath(QStringLiteral("characters/") + file), "BMP"));
    }
    // A complete character: the standing picture and both poses, all of one size.
    void WriteCharacter(const QString& name, int width, int height) {
        for (const char* suffix : {".bmp", "1.bmp", "2.bmp"})
            WriteBitmap(name + QLatin1String(suffix), width, height);
    }

    // Holds the key down for one poll, then lets it go and waits one more poll.
    void Tap(int vk) {
        keyboard.Press(vk);
        clock.Advance(kPollMs);
        keyboard.Release(vk);
        clock.Advance(kPollMs);
    }
    // Taps the keys that type `text`: letters, digits, space and the backslash.
    void TypeKeys(const QString& text) {
        for (const QChar c : text)
            Tap(c == QLatin1Char('\\') ? int{ui::VkBackslash} : c.toUpper().unicode());
    }
    // Plays a match with frag limit 1 up to the final board: player 0 hits player 1.
    frmGrumbo& PlayToTheFinalBoard() {
        modMain::intFragLimit = 1;
        frmGrumbo& f = StartMatch(2);
        PutInThePathOfAnUpwardThrow(f, 1);
        EXPECT_TRUE(PlayThrow(clock, f, 90, 50));
        EXPECT_TRUE(MatchOver(f));
        return f;
    }
    // Runs the clock until the game-over or pause box is up.
    bool WaitForBox(std::int32_t limitMs = 10000) {
        return clock.RunUntil([] { return frmEndgame::Instance().Loaded(); }, limitMs);
    }

    QTemporaryDir folder;
    ui::Keyboard& keyboard = ui::Keyboard::instance();
};

}  // namespace testing_support
