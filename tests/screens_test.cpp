// The way into a match: the title screen, the setup screen, and the flow between them, player
// selection and the match, driven as the players click through it on the virtual clock.
#include <QCheckBox>
#include <QLineEdit>
#include <QLocale>
#include <QSlider>
#include <array>
#include <tuple>

#include "ScreensSupport.h"
#include "app/ScreenFlow.h"
#include "ui/PictureBox.h"

using namespace testing_support;
using namespace modMain;

namespace {
// Which poses are up: 1 the first (boxes 0 to 5), 2 the second, 3 both, 0 a mix or none.
int PosesShown(const frmSplash& t) {
    int shown = 0;
    for (int pose = 0; pose < 2; ++pose) {
        int up = 0;
        for (int i = 0; i < 6; ++i) up += !t.imgSplash[6 * pose + i]->isHidden();
        if (up == 6) shown |= 1 << pose;
        else if (up > 0) return 0;
    }
    return shown;
}

std::int32_t BackgroundOf(const QWidget* w) {
    return ui::FromQRgb(w->palette().color(QPalette::Window).rgb());
}

// What Next hands to the match: gravity, frag limit, wind, buildings, game type, players, time
// of day, gusts, music.
auto Stored() {
    return std::tuple(dblGravity, int{intFragLimit}, int{intWindExtremity}, int{intBuildingHeight},
                      int{intGameType}, int{intPlayers}, int{intTimeOfDay}, blnWindGusts, blnMusic);
}
}  // namespace

class Title : public ScreensTest {};

TEST_F(Title, ProgramStartsOnItAndItsDancersAlternateEvery150ms) {
    grumbo::StartProgram();
    frmSplash& t = frmSplash::Instance();
    ASSERT_TRUE(t.Loaded());
    EXPECT_EQ(VisibleWindows(), QStringList{"Grumbo 2 - Kravenmoor"});
    EXPECT_EQ(t.window()->size(), QSize(323, 180));
    EXPECT_EQ(t.window()->minimumSize(), t.window()->maximumSize());
    EXPECT_EQ(t.lblTitle->text(), "Grumbo 2 - Kravenmoor");
    ASSERT_EQ(effects.played.size(), 1);
    EXPECT_EQ(Relative(effects.played[0]), "sounds/g2intro.wav");
    // Until the first tick both poses of every character stand one over the other.
    EXPECT_EQ(PosesShown(t), 3);
    const std::array<int, 6> columns = {24, 72, 120, 168, 216, 264};
    for (int i = 0; i < 12; ++i) {
        const ui::PictureBox& p = *t.imgSplash[i];
        EXPECT_EQ(p.Left(), columns[i % 6]) << i;
        EXPECT_EQ(p.Top() + p.Height(), 110) << i;
        EXPECT_EQ(p.Point(0, 0), BackgroundOf(t.window())) << "white corner of " << i;
    }

    const int poseAfter[2] = {2, 1};  // dance frame 0 shows the second pose, frame 1 the first
    int frame = t.intDanceFrame;
    clock.Advance(149);
    EXPECT_EQ(PosesShown(t), 3);
    for (int tick = 0; tick < 3; ++tick) {
        clock.Advance(tick == 0 ? 1 : 150);
        frame = 1 - frame;
        EXPECT_EQ(t.intDanceFrame, frame);
        EXPECT_EQ(PosesShown(t), poseAfter[frame]) << "tick " << tick;
    }
    t.cmdStart->click();
    EXPECT_FALSE(t.Loaded());
    EXPECT_FALSE(t.tmrDance.Enabled()) << "a closed title does not dance";
    EXPECT_EQ(VisibleWindows(), QStringList{"Setup"});
    // Coming back plays the intro again, shows both poses again and dances on from the last frame.
    frmSetup::Instance().Unload();
    t.Show();
    EXPECT_EQ(effects.played.size(), 2);
    EXPECT_EQ(PosesShown(t), 3);
    clock.Advance(150);
    EXPECT_EQ(PosesShown(t), poseAfter[1 - frame]);
    t.cmdExit->click();
    EXPECT_EQ(programEnds, 1);
    t.window()->close();
    EXPECT_FALSE(t.Loaded());
    EXPECT_TRUE(VisibleWindows().isEmpty());
}

TEST_F(Title, DancersOfAnyHeightStandOnTheLineAndAMissingOneLeavesAGap) {
    UseOwnDataFolder();
    for (const char* name : {"Classic", "Rapper", "Robo", "Sorcerer", "Space", "Suit"})
        WriteCharacter(QLatin1String(name) + QStringLiteral(" Grumbo"), 31, 40);
    WriteBitmap("Classic Grumbo1.bmp", 31, 33);
    WriteBitmap("Rapper Grumbo1.bmp", 30, 50);
    ASSERT_TRUE(QFile::remove(folder.filePath("characters/Robo Grumbo2.bmp")));
    frmSplash& t = frmSplash::Instance();
    t.Show();
    EXPECT_EQ(t.imgSplash[0]->Top(), 77);
    EXPECT_EQ(t.imgSplash[1]->Top(), 60);
    EXPECT_EQ(t.imgSplash[6]->Top(), 70);
    const std::int32_t back = BackgroundOf(t.window());
    EXPECT_EQ(t.imgSplash[0]->Point(1, 20), back) << "white turns into the screen's colour";
    EXPECT_EQ(t.imgSplash[0]->Point(15, 20), ui::FromQRgb(kBody)) << "the body stays";
    // The missing picture leaves an empty place of the design size; nothing is reported.
    const ui::PictureBox& gap = *t.imgSplash[8];
    EXPECT_EQ(QSize(gap.Width(), gap.Height()), QSize(31, 33));
    EXPECT_EQ(gap.Point(15, 20), back);
    EXPECT_TRUE(messages.isEmpty());
    clock.Advance(150);
    EXPECT_NE(PosesShown(t), 3) << "the others dance on";
}

class Setup : public ScreensTest {
protected:
    frmSetup& Open() {
        frmSplash::Instance().Show();
        frmSplash::Instance().cmdStart->click();
        return frmSetup::Instance();
    }
    // Presses `key` on the setup window, which hands it to the control with the focus.
    void Press(Qt::Key key, int times = 1) {
        for (int i = 0; i < times; ++i)
            QTest::keyClick(frmSetup::Instance().window()->windowHandle(), key);
    }
};

TEST_F(Setup, UntouchedNextStoresTheDefaults) {
    // What an earlier match may have left: every value must be written anew.
    dblGravity = 1;
    intFragLimit = 9;
    intWindExtremity = 1;
    intBuildingHeight = 5;
    intGameType = 2;
    intPlayers = 4;
    intTimeOfDay = 3;
    blnWindGusts = blnMusic = false;
    frmSetup& s = Open();
    EXPECT_EQ(s.window()->size(), QSize(323, 180));
    EXPECT_EQ(s.Caption(), "Setup");
    // Gravity, game type and time of day count at once; the rest reaches the program at Next.
    EXPECT_EQ(Stored(), std::tuple(9.8, 9, 1, 5, 1, 2, 1, false, false));
    const QStringList shown{s.txtGrav->text(),   s.txtGametype->text(), s.txtTime->text(),
                            s.txtNmatch->text(), s.txtWind->text(),     s.txtBuilding->text()};
    EXPECT_EQ(shown, (QStringList{"9.8", "1 vs 1", "Random", "3", "20", "8"}));
    s.cmdStart->click();
    EXPECT_FALSE(s.Loaded());
    EXPECT_EQ(VisibleWindows(), QStringList{"Player 1"});
    EXPECT_EQ(Stored(), std::tuple(9.8, 3, 20, 8, 1, 2, 1, true, true));
}

TEST_F(Setup, LowerEndsByClicksAndGustsTickedAgainAfterNoWind) {
    frmSetup& s = Open();
    ClickArrow(s.FlatScroll, -1, 100);
    ClickArrow(s.FlatScroll3, -1, 5);
    ClickArrow(s.FlatScroll2, +1, 5);
    EXPECT_EQ(s.txtTime->text(), "Night");
    EXPECT_EQ(intTimeOfDay, 3);
    ClickArrow(s.FlatScroll2, -1);
    ClickArrow(s.FlatScroll1, +1, 3);
    s.Slider1->triggerAction(QAbstractSlider::SliderToMinimum);
    s.Slider2->triggerAction(QAbstractSlider::SliderToMinimum);
    const QStringList shown{s.txtGrav->text(),   s.txtGametype->text(), s.txtTime->text(),
                            s.txtNmatch->text(), s.txtWind->text(),     s.txtBuilding->text()};
    EXPECT_EQ(shown, (QStringList{"0.5", "2 vs 2", "Day", "1", "0", "4"}));
    EXPECT_FALSE(s.chkWind->isChecked()) << "no wind, no gusts";
    s.chkWind->click();
    s.chkMusic->click();
    s.cmdStart->click();
    EXPECT_EQ(Stored(), std::tuple(0.5, 1, 0, 4, 2, 4, 2, true, false));
}

TEST_F(Setup, UpperEndsByKeyboardWithThePointInAnyLocale) {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    frmSetup& s = Open();
    s.FlatScroll->setFocus();
    Press(Qt::Key_PageUp, 30);
    EXPECT_EQ(s.txtGrav->text(), "20");
    Press(Qt::Key_Down);
    EXPECT_EQ(s.txtGrav->text(), "19.9");
    Press(Qt::Key_Left, 99);
    EXPECT_EQ(s.txtGrav->text(), "10");
    Press(Qt::Key_Right, 7);
    s.FlatScroll3->setFocus();
    Press(Qt::Key_Up, 60);
    EXPECT_EQ(s.txtNmatch->text(), "50");
    s.Slider1->triggerAction(QAbstractSlider::SliderToMaximum);
    s.Slider2->triggerAction(QAbstractSlider::SliderToMaximum);
    // The display boxes take no focus and no typing: Tab never lands on them.
    const std::array<const QWidget*, 6> boxes = {s.txtGrav,   s.txtGametype, s.txtTime,
                                                 s.txtNmatch, s.txtWind,     s.txtBuilding};
    for (int i = 0; i < 12; ++i) {
        Press(Qt::Key_Tab);
        EXPECT_EQ(std::count(boxes.begin(), boxes.end(), QApplication::focusWidget()), 0);
    }
    QTest::keyClicks(s.txtGrav, "5");
    EXPECT_EQ(s.txtGrav->text(), "10.7");
    s.cmdStart->click();
    QLocale::setDefault(before);
    EXPECT_EQ(Stored(), std::tuple(10.7, 50, 35, 12, 1, 2, 1, true, true));
}

class Flow : public ScreensTest {
protected:
    // Title, setup with the game type chosen, player selection: as the players click through.
    frmPlayer& ToPlayerSelection(int gameType = 1) {
        frmSplash::Instance().Show();
        frmSplash::Instance().cmdStart->click();
        ClickArrow(frmSetup::Instance().FlatScroll1, gameType == 1 ? -1 : +1);
        frmSetup::Instance().cmdStart->click();
        return frmPlayer::Instance();
    }
    void Pass(frmPlayer& p, const char* name) {
        QTest::keyClicks(p.txtPname, QString::fromLatin1(name));
        p.cmdOk->click();
    }
};

TEST_F(Flow, BackHidesPlayerSelectionWhichComesBackAsItWasAfterFreshSetup) {
    frmPlayer& p = ToPlayerSelection(2);
    Pass(p, "Ann");
    QTest::keyClicks(p.txtPname, "dunik");
    const qsizetype sounds = effects.played.size();
    p.cmdBack->click();
    frmSetup& s = frmSetup::Instance();
    EXPECT_EQ(VisibleWindows(), QStringList{"Setup"});
    EXPECT_TRUE(p.Loaded()) << "hidden, not closed";
    EXPECT_EQ(p.Caption(), "Player 1");
    EXPECT_TRUE(p.txtPname->text().isEmpty());
    EXPECT_EQ(s.txtGametype->text(), "1 vs 1") << "setup starts from its defaults again";
    s.cmdStart->click();
    EXPECT_EQ(VisibleWindows(), QStringList{"Player 1"});
    EXPECT_EQ(p.FlatScroll->Max(), 6) << "not loaded again: Dunik is still in the list";
    EXPECT_EQ(effects.played.size(), sounds);
    Pass(p, "Bo");
    Pass(p, "Cy");
    EXPECT_FALSE(p.Loaded());
    EXPECT_EQ(VisibleWindows(), QStringList{"Bo - 0 pts"});
}

TEST_F(Flow, ClosingSetupAfterBackClosesPlayerSelectionWhichDecides) {
    frmPlayer& p = ToPlayerSelection();
    p.cmdBack->click();
    frmSetup::Instance().window()->close();
    EXPECT_FALSE(p.Loaded());
    EXPECT_EQ(programEnds, 1) << "nobody has a character yet";
    EXPECT_FALSE(frmGrumbo::Instance().Loaded());
    // After an earlier match the characters left from it start the next one.
    strPlayerName[0] = "Ann";
    strCharacter[0] = "Classic Grumbo";
    strCharacter[1] = "Robo Grumbo";
    ToPlayerSelection();
    p.cmdBack->click();
    frmSetup::Instance().window()->close();
    EXPECT_EQ(programEnds, 1);
    EXPECT_EQ(VisibleWindows(), QStringList{"Ann - 0 pts"});
}

TEST_F(Flow, CloseBoxesOfSetupAndPlayerSelection) {
    frmPlayer& p = ToPlayerSelection(2);
    frmSplash::Instance().Show();
    Pass(p, "Ann");
    Pass(p, "Bo");
    p.window()->close();
    EXPECT_EQ(programEnds, 1) << "players 3 and 4 have not chosen";
    EXPECT_FALSE(frmGrumbo::Instance().Loaded());
    frmSplash::Instance().cmdStart->click();
    frmSetup::Instance().window()->close();
    EXPECT_FALSE(p.Loaded());
    EXPECT_TRUE(VisibleWindows().isEmpty()) << "the last screen closed";
    EXPECT_EQ(programEnds, 1);
}
