// Player selection: the folder scan, the centred see-through preview, the character sounds, the
// secret names, the name box, and the passes that end in the match.
#include <QFile>
#include <QLineEdit>

#include "ScreensSupport.h"
#include "ui/PictureBox.h"

using namespace testing_support;
using namespace modMain;

class PlayerSelection : public ScreensTest {
protected:
    frmPlayer& Open() {
        frmPlayer::Instance().Show();
        return frmPlayer::Instance();
    }
    static QStringList Listed(const frmPlayer& p) {
        QStringList names;
        for (int i = 0; i < p.intCharacterCount; ++i) names << strCharacterList[i];
        return names;
    }
    QStringList Sounds() const {
        QStringList s;
        // Folder and file: the program's folder may be the test's own.
        for (const QString& path : effects.played) s << path.section('/', -2);
        return s;
    }
    static QSize ShippedSize(const QString& character) {
        return QImage(QStringLiteral(GRUMBO_DATA_DIR "/characters/") + character + ".bmp").size();
    }
};

TEST_F(PlayerSelection, ShippedFolderOffersTheSixAndTheNameBoxTakesFifteenCharacters) {
    frmPlayer& p = Open();
    EXPECT_EQ(p.window()->size(), QSize(240, 229));
    EXPECT_EQ(p.Caption(), "Player 1");
    EXPECT_EQ(Listed(p), (QStringList{"Classic Grumbo", "Rapper Grumbo", "Robo Grumbo",
                                      "Sorcerer Grumbo", "Space Grumbo", "Suit Grumbo"}));
    EXPECT_EQ(p.FlatScroll->Max(), 5);
    EXPECT_EQ(p.txtName->text(), "Classic Grumbo");
    EXPECT_EQ(QSize(p.imgPlayer->Width(), p.imgPlayer->Height()), ShippedSize("Classic Grumbo"));
    EXPECT_EQ(Sounds(), QStringList{"sounds/classicG.wav"}) << "once, on loading";

    p.cmdOk->click();
    QTest::keyClick(p.txtPname, Qt::Key_Return);
    EXPECT_EQ(messages, (QStringList{"Enter a player name", "Enter a player name"}));
    EXPECT_EQ(p.Caption(), "Player 1");
    QTest::keyClicks(p.txtPname, "ABCDEFGHIJKLMNOP");
    EXPECT_EQ(p.txtPname->text(), "ABCDEFGHIJKLMNO");
    QTest::keyClick(p.txtPname, Qt::Key_Return);  // Enter acts as Next
    EXPECT_EQ(p.Caption(), "Player 2");
    EXPECT_EQ(strPlayerName[0], "ABCDEFGHIJKLMNO");
    EXPECT_EQ(strCharacter[0], "Classic Grumbo");
    EXPECT_TRUE(p.txtPname->text().isEmpty());
}

TEST_F(PlayerSelection, FolderScanRulesAndTheCentredSeeThroughPreview) {
    UseOwnDataFolder();
    WriteCharacter("beta", 33, 58);  // sorted by letter, whatever the case
    WriteCharacter("Alpha", 40, 60);
    WriteCharacter("Corner", 80, 150);  // the limits themselves are inside
    WriteCharacter("Least", 30, 35);
    WriteCharacter("Wide", 81, 60);
    WriteCharacter("Narrow", 29, 60);
    WriteCharacter("Tall", 40, 151);
    WriteCharacter("Short", 40, 34);
    WriteCharacter("Pose", 40, 60);
    WriteBitmap("Pose2.bmp", 40, 151);  // a pose outside the limits
    WriteBitmap("Lonely.bmp", 40, 60);
    WriteBitmap("Lonely1.bmp", 40, 60);  // and no second pose
    WriteCharacter("Case", 40, 60);
    ASSERT_TRUE(QFile::rename(folder.filePath("characters/Case1.bmp"),
                              folder.filePath("characters/case1.bmp")));
    WriteCharacter("Broken", 40, 60);
    QFile broken(folder.filePath("characters/Broken.bmp"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly | QIODevice::Truncate));
    broken.write("BM not a bitmap");
    broken.close();
    WriteCharacter("Dunik", 40, 60);
    WriteCharacter("Vostrel", 40, 60);
    frmPlayer& p = Open();
    EXPECT_EQ(Listed(p), (QStringList{"Alpha", "beta", "Corner", "Least"}));
    EXPECT_EQ(p.FlatScroll->Max(), 3);
    // The preview stands centred and see-through. Left 120 - 20, top 114.5 - 30 = 84.5, which
    // rounds to the even 84.
    EXPECT_EQ(p.imgPlayer->Left(), 100);
    EXPECT_EQ(p.imgPlayer->Top(), 84);
    EXPECT_EQ(p.imgPlayer->Point(0, 0),
              ui::FromQRgb(p.window()->palette().color(QPalette::Window).rgb()));
    EXPECT_EQ(p.imgPlayer->Point(20, 30), ui::FromQRgb(kBody));
    ClickArrow(p.FlatScroll, +1);
    EXPECT_EQ(p.txtName->text(), "beta");
    // Left 120 - 16.5 = 103.5 and top 114.5 - 29 = 85.5 round to the even 104 and 86.
    EXPECT_EQ(QSize(p.imgPlayer->Width(), p.imgPlayer->Height()), QSize(33, 58));
    EXPECT_EQ(p.imgPlayer->Left(), 104);
    EXPECT_EQ(p.imgPlayer->Top(), 86);
    EXPECT_EQ(Sounds(), QStringList{"sounds/classicG.wav"}) << "a character of our own is silent";
}

TEST_F(PlayerSelection, ListStopsAt41NamesAndASecretNameAddsNoFortySecond) {
    UseOwnDataFolder();
    for (int i = 0; i < 43; ++i)
        WriteCharacter(QStringLiteral("C%1").arg(i, 2, 10, QChar('0')), 30, 35);
    frmPlayer& p = Open();
    EXPECT_EQ(p.intCharacterCount, 41);
    EXPECT_EQ(strCharacterList[40], "C40");
    QTest::keyClicks(p.txtPname, "vostrel");
    EXPECT_EQ(p.FlatScroll->Max(), 40);
    EXPECT_EQ(p.txtName->text(), "C00");
    EXPECT_EQ(p.txtPname->text(), "vostrel");
}

TEST_F(PlayerSelection, EveryNameChangeBetweenTheArrowsPlaysItsSoundAndSecretsUnlock) {
    frmPlayer& p = Open();
    effects.played.clear();
    ClickArrow(p.FlatScroll, +1, 6);  // the sixth click is past the end
    ClickArrow(p.FlatScroll, -1, 2);
    QTest::keyClicks(p.txtPname, "DuNi");
    EXPECT_EQ(p.FlatScroll->Max(), 5);
    QTest::keyClicks(p.txtPname, "K");
    EXPECT_EQ(p.FlatScroll->Max(), 6);
    EXPECT_EQ(p.FlatScroll->Value(), 6);
    EXPECT_EQ(p.txtName->text(), "Dunik");
    EXPECT_EQ(QSize(p.imgPlayer->Width(), p.imgPlayer->Height()), ShippedSize("Dunik"));
    EXPECT_EQ(p.txtPname->text(), "DuNiK") << "the secret name stays typed";
    p.txtPname->clear();
    QTest::keyClicks(p.txtPname, "Vostrel");
    EXPECT_EQ(strCharacterList[7], "Vostrel");
    ClickArrow(p.FlatScroll, -1);
    EXPECT_EQ(Sounds(),
              (QStringList{"sounds/rapperG.wav", "sounds/roboG.wav", "sounds/sorcererG.wav",
                           "sounds/spaceG.wav", "sounds/suitG.wav", "sounds/spaceG.wav",
                           "sounds/sorcererG.wav", "sounds/dunikG.wav", "sounds/vostrelG.wav",
                           "sounds/dunikG.wav"}));
}

TEST_F(PlayerSelection, LastPassStartsTheMatchWithTheChosenNamesAndCharacters) {
    const char* names[] = {"Ann", "Bo", "Cy", "Dee"};
    for (int type : {1, 2}) {
        SCOPED_TRACE(type);
        intGameType = static_cast<grumbo::Integer>(type);
        intPlayers = static_cast<grumbo::Integer>(2 * type);
        frmPlayer& p = Open();
        for (int k = 0; k < 2 * type; ++k) {
            ASSERT_TRUE(p.Loaded());
            EXPECT_EQ(p.Caption(), QStringLiteral("Player %1").arg(k + 1));
            ClickArrow(p.FlatScroll, +1);
            QTest::keyClicks(p.txtPname, names[k]);
            p.cmdOk->click();
        }
        EXPECT_FALSE(p.Loaded());
        frmGrumbo& f = frmGrumbo::Instance();
        ASSERT_TRUE(f.Loaded());
        EXPECT_EQ(f.window()->windowTitle(), "Ann - 0 pts");
        const char* chosen[] = {"Rapper Grumbo", "Robo Grumbo", "Sorcerer Grumbo", "Space Grumbo"};
        for (int k = 0; k < 2 * type; ++k) {
            EXPECT_EQ(strPlayerName[k], names[k]);
            EXPECT_EQ(strCharacter[k], chosen[k]);
            EXPECT_EQ(QSize(f.Player[k]->Width(), f.Player[k]->Height()), ShippedSize(chosen[k]));
            EXPECT_LE(f.Player[k]->Top(), field::kGroundLine) << "on a roof";
        }
        LeaveMatch();
    }
}

TEST_F(PlayerSelection, WithoutAnyCompleteCharacterItSaysSoAndNextDoesNothing) {
    UseOwnDataFolder();
    WriteBitmap("Lonely.bmp", 40, 60);
    frmPlayer& p = Open();
    EXPECT_TRUE(p.lblNoCharacters->isVisible());
    EXPECT_TRUE(p.lblNoCharacters->text().contains("characters"));
    QTest::keyClicks(p.txtPname, "dunik");
    EXPECT_TRUE(p.txtName->text().isEmpty());
    p.cmdOk->click();
    EXPECT_EQ(p.Caption(), "Player 1");
    EXPECT_TRUE(messages.isEmpty());
    EXPECT_FALSE(frmGrumbo::Instance().Loaded());
    p.cmdBack->click();
    EXPECT_TRUE(frmSetup::Instance().Loaded());
}
