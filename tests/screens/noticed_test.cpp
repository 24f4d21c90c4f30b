// What players noticed on the screens around a match: the final board's score on either sky, the
// player selection's name box and its way out without characters, and the screens' small frames.
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <cmath>
#include <map>

#include "TestSupport.h"
#include "screens/CreditsScreen.h"
#include "screens/MatchField.h"

using namespace testing_support;

namespace {

// The contrast ratio of two colours, from their relative luminance, as the web's readability
// guidelines measure it: 1 for the same colour, 21 for black on white.
double Contrast(QRgb a, QRgb b) {
    const auto luminance = [](QRgb c) {
        const auto linear = [](int v) {
            const double s = v / 255.0;
            return s <= 0.04045 ? s / 12.92 : std::pow((s + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(qRed(c)) + 0.7152 * linear(qGreen(c)) + 0.0722 * linear(qBlue(c));
    };
    const double la = luminance(a), lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

TEST(FinalBoard, TheSideScoreReadsOnTheDayAndOnTheNightSky) {
    for (const game::TimeOfDay time : {game::TimeOfDay::Day, game::TimeOfDay::Night}) {
        SCOPED_TRACE(time == game::TimeOfDay::Day ? "day" : "night");
        game::MatchSetup setup = CalmSetup(2, 3);
        setup.settings.fragLimit = 1;
        setup.settings.timeOfDay = time;
        Play play(setup);
        play.started();
        ASSERT_TRUE(play.dropOn(1));
        ASSERT_TRUE(play.match.board());
        screens::MatchField field(nullptr, play.match);
        const QImage shot = field.grab().toImage();
        const QImage& behind = play.match.scene().image();
        // The two numbers' places. Their text colour is the one that most often covers the sky
        // there (the edges of the letters are blends); it must stand out from every sky pixel.
        for (const QRect number : {QRect(344, 40, 25, 25), QRect(408, 40, 25, 25)}) {
            std::map<QRgb, int> drawn;
            for (int y = number.top(); y <= number.bottom(); ++y)
                for (int x = number.left(); x <= number.right(); ++x)
                    if (shot.pixel(x, y) != behind.pixel(x, y)) ++drawn[shot.pixel(x, y)];
            ASSERT_FALSE(drawn.empty()) << "no number at " << number.x();
            const QRgb text = std::max_element(drawn.begin(), drawn.end(), [](auto a, auto b) {
                                  return a.second < b.second;
                              })->first;
            double worst = 21;
            for (int y = number.top(); y <= number.bottom(); ++y)
                for (int x = number.left(); x <= number.right(); ++x)
                    worst = std::min(worst, Contrast(text, behind.pixel(x, y)));
            EXPECT_GE(worst, 4.5) << "the number at " << number.x();
        }
    }
}

class Noticed : public ScreensTest {};

TEST_F(Noticed, ScreensAreSmallToolWindowsWithOnlyACloseBox) {
    const auto expectToolWindow = [](const QWidget* w) {
        ASSERT_TRUE(w);
        SCOPED_TRACE(w->windowTitle().toStdString());
        EXPECT_EQ(w->windowType(), Qt::Tool);
        EXPECT_EQ(w->windowFlags() & (Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint |
                                      Qt::WindowCloseButtonHint | Qt::CustomizeWindowHint),
                  Qt::WindowCloseButtonHint | Qt::CustomizeWindowHint);
    };
    app::ScreenFlow& f = StartProgram();
    expectToolWindow(f.title());
    f.title()->start();
    expectToolWindow(f.setup());
    f.setup()->next();
    expectToolWindow(f.players());
    expectToolWindow(std::make_unique<screens::CreditsScreen>(ShippedData()).get());
}

TEST_F(Noticed, AfterTheEmptyNameMessageTheNameBoxHasTheKeyboard) {
    app::ScreenFlow& f = StartProgram();
    f.title()->start();
    f.setup()->next();
    screens::PlayerScreen& players = *f.players();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&players));
    // A click on "Next" takes the keyboard to the button before the message shows.
    QTest::mouseClick(players.nextButton, Qt::LeftButton);
    EXPECT_EQ(messages, QStringList{QStringLiteral("Enter a player name")});
    ASSERT_TRUE(players.nameBox->hasFocus());
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Ann"));
    EXPECT_EQ(players.nameBox->text(), QStringLiteral("Ann"));
}

TEST_F(Noticed, WithoutACompleteCharacterThePlayerScreenSaysWhyAndOnlyBackLeadsOn) {
    // A standing picture and its first pose, but no second pose: no character.
    QTemporaryDir dir;
    ASSERT_TRUE(QDir(dir.path()).mkdir(QStringLiteral("characters")));
    for (const char* pose : {"", "1"})
        ASSERT_TRUE(
            QFile::copy(QStringLiteral(GRUMBO_DATA_DIR "/characters/Rapper Grumbo%1.bmp").arg(pose),
                        dir.filePath(QStringLiteral("characters/Lonely%1.bmp").arg(pose))));
    screens::PlayerScreen players(core::DataFolder(dir.path()), sound);
    int backs = 0;
    players.onBack = [&] { ++backs; };
    players.showCentred();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&players));
    EXPECT_FALSE(players.nextButton->isEnabled());
    EXPECT_FALSE(players.nameBox->isEnabled());
    EXPECT_TRUE(players.backButton->hasFocus());
    QStringList shown;
    for (const QLabel* label : players.findChildren<QLabel*>())
        if (label->isVisible()) shown << label->text();
    EXPECT_TRUE(shown.join('\n').contains(QLatin1String("No complete character in")))
        << shown.join('\n').toStdString();
    QTest::keyClick(players.backButton, Qt::Key_Space);
    EXPECT_EQ(backs, 1);
}

}  // namespace
