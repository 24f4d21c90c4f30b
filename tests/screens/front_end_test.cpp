// The way into a match: the setup screen's controls and what "Next" stores, and player selection
// with its folder scan, secret names, sounds, passes, and its way out without characters.
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QSlider>
#include <QTest>

#include "ScreensFlow.h"
#include "ui/CanvasWidget.h"

using namespace testing_support;

namespace {

using FrontEnd = FlowTest;

// The display boxes beside the controls, in the order of the screen's labels.
QString Shown(const screens::SetupScreen& s) {
    QStringList texts;
    for (const QLineEdit* box : s.findChildren<QLineEdit*>()) texts << box->text();
    return texts.join(QLatin1Char('|'));
}

auto Stored(const game::MatchSettings& s) {
    return std::tuple(s.gravity, int(s.gameType) + 1, int(s.timeOfDay) + 1, s.fragLimit,
                      s.windExtremity, s.buildingHeight, s.windGusts, s.music);
}

TEST_F(FrontEnd, SetupStopsAtTheEndsOfItsControlsAndOpensWithItsDefaultsAgain) {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    app::ScreenFlow& f = StartProgram();
    f.title()->start();
    QTest::keyClick(f.setup()->gravity, Qt::Key_PageUp);
    QTest::keyClicks(f.setup()->findChildren<QLineEdit*>().value(0), "5");
    EXPECT_EQ(Shown(*f.setup()), "10.2|1 vs 1|Random|3|20|8") << "the boxes take no typing";
    const std::tuple<Qt::Key, const char*, decltype(Stored(f.settings()))> ends[] = {
        {Qt::Key_Up, "20|2 vs 2|Night|50|35|12", {20, 2, 3, 50, 35, 12, true, true}},
        {Qt::Key_Down, "0.5|1 vs 1|Random|1|0|4", {0.5, 1, 1, 1, 0, 4, true, false}},
    };
    for (const auto& [key, shown, stored] : ends) {
        screens::SetupScreen& s = *f.setup();
        for (QWidget* control :
             std::initializer_list<QWidget*>{s.gravity, s.gameType, s.timeOfDay, s.fragLimit,
                                             s.windExtremity, s.buildingHeight})
            for (int i = 0; i < 250; ++i) QTest::keyClick(control, key);
        EXPECT_EQ(Shown(s), shown);
        EXPECT_EQ(f.settings().players(), key == Qt::Key_Up ? 4 : 2) << "at once, before Next";
        EXPECT_EQ(s.windGusts->isChecked(), key == Qt::Key_Up) << "no wind, no gusts";
        if (key == Qt::Key_Down) {
            s.windGusts->click();
            s.music->click();
        }
        s.next();
        EXPECT_EQ(Stored(f.settings()), stored);
        f.players()->back();
    }
    EXPECT_EQ(Shown(*f.setup()), "9.8|1 vs 1|Random|3|20|8");
    f.setup()->next();
    EXPECT_EQ(Stored(f.settings()), std::tuple(9.8, 1, 1, 3, 20, 8, true, true));
    QLocale::setDefault(before);
}

void Browse(screens::PlayerScreen& p, int by) {
    for (int i = 0; i < std::abs(by); ++i)
        QTest::mouseClick(p.browser, Qt::LeftButton, {}, QPoint(by > 0 ? 140 : 5, 10));
}

TEST_F(FrontEnd, ShippedCharactersSecretNamesInAnyCaseAndASoundForEveryNameShown) {
    screens::PlayerScreen p(ShippedData(), sound);
    EXPECT_EQ(p.characters(), QStringList({"Classic Grumbo", "Rapper Grumbo", "Robo Grumbo",
                                           "Sorcerer Grumbo", "Space Grumbo", "Suit Grumbo"}));
    Browse(p, 6);
    Browse(p, -2);
    QTest::keyClicks(p.nameBox, "DuNiK");
    p.nameBox->clear();
    QTest::keyClicks(p.nameBox, "vostrel");
    Browse(p, -1);
    EXPECT_EQ(sound.effects.join(' '),
              "sounds/classicG.wav sounds/rapperG.wav sounds/roboG.wav sounds/sorcererG.wav "
              "sounds/spaceG.wav sounds/suitG.wav sounds/spaceG.wav sounds/sorcererG.wav "
              "sounds/dunikG.wav sounds/vostrelG.wav sounds/dunikG.wav");
}

TEST_F(FrontEnd, TheScanListsAtMost41CompleteCharactersOfACharactersSize) {
    OwnData own;
    const std::tuple<const char*, int, int> characters[] = {
        {"beta", 33, 58}, {"Alpha", 40, 60},  {"Corner", 80, 150}, {"Least", 30, 35},
        {"Wide", 81, 60}, {"Narrow", 29, 60}, {"Tall", 40, 151},   {"Short", 40, 34},
        {"Pose", 40, 60}, {"Dunik", 40, 60},  {"Vostrel", 40, 60}};
    for (const auto& [name, width, height] : characters) own.character(name, width, height);
    own.picture("Pose2.bmp", 40, 151);
    own.picture("Lonely.bmp", 40, 60);
    own.picture("Lonely1.bmp", 40, 60);
    QStringList listed{"Alpha", "beta", "Corner", "Least"};
    for (int i = 0; i < 40; ++i) own.character(QString::asprintf("Z%02d", i), 30, 35);
    for (int i = 0; i < 37; ++i) listed << QString::asprintf("Z%02d", i);
    screens::PlayerScreen p(own.folder(), sound);
    EXPECT_EQ(p.characters(), listed);
    QTest::keyClicks(p.nameBox, "vostrel");
    EXPECT_EQ(p.characters().size(), 41) << "no room for a secret character";
}

TEST_F(FrontEnd, TheNameBoxCountsCharactersAsPlayersSeeThemAndHasTheKeyboardAfterAMessage) {
    screens::PlayerScreen& players = ToPlayers();
    QLineEdit& box = *players.nameBox;
    box.insert(QStringLiteral("Ann\tB\no\x1b\x7f\r\u2028"));
    EXPECT_EQ(box.text(), "AnnBo") << "pasted tab, newline, escape, delete and line separator";
    // A thumb with a skin tone is two characters to the computer, four UTF-16 units, one to a
    // player; a family is seven code points joined into one.
    const QString thumb = QStringLiteral("\U0001F44D\U0001F3FD");
    const QString family = QStringLiteral("\U0001F468\u200D\U0001F469\u200D\U0001F467");
    box.clear();
    box.insert(family + thumb.repeated(15));
    EXPECT_EQ(box.text(), family + thumb.repeated(14)) << "cut after the fifteenth, never inside";
    // Back, then Next on the setup screen: the name box has the keyboard again.
    QTest::mouseClick(players.backButton, Qt::LeftButton);
    flow->setup()->next();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&players));
    EXPECT_TRUE(box.hasFocus());
    // A click on "Next" takes the keyboard to the button before the message shows.
    QTest::mouseClick(players.nextButton, Qt::LeftButton);
    EXPECT_EQ(messages, QStringList{"Enter a player name"});
    EXPECT_TRUE(box.hasFocus());
}

TEST_F(FrontEnd, WithoutACompleteCharacterThePlayerScreenSaysWhyAndOnlyBackLeadsOn) {
    OwnData own;
    own.picture("Lonely.bmp", 40, 60);
    own.picture("Lonely1.bmp", 40, 60);
    screens::PlayerScreen players(own.folder(), sound);
    int backs = 0;
    players.onBack = [&] { ++backs; };
    players.showCentred();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&players));
    EXPECT_FALSE(players.nextButton->isEnabled() || players.nameBox->isEnabled());
    EXPECT_TRUE(players.backButton->hasFocus());
    QStringList shown;
    for (const QLabel* label : players.findChildren<QLabel*>())
        if (label->isVisible()) shown << label->text();
    EXPECT_TRUE(shown.join('\n').contains(QLatin1String("No complete character in")));
    players.next();
    EXPECT_TRUE(messages.isEmpty()) << "no name asked for where no match can start";
    QTest::keyClick(players.backButton, Qt::Key_Space);
    EXPECT_EQ(backs, 1);
}

}  // namespace
