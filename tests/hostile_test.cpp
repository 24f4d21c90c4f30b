// Whatever the players leave in the data folder under a data file's name: a folder, a named pipe,
// a link to an endless device, a file larger than its kind or beyond it. The game takes none of
// them, neither waiting for them nor filling its memory, and goes on with silence, a stand-in or
// an empty scroll. Keys and names that could fool the screens are here too.
#include <SDL_mixer.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <QApplication>
#include <QBuffer>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <filesystem>

#include "TestSupport.h"
#include "screens/CreditsScreen.h"
#include "screens/TitleScreen.h"
#include "ui/CanvasWidget.h"
#include "ui/MessageBox.h"
#include "ui/OwnedBox.h"
#include "ui/Window.h"

using namespace testing_support;

namespace {

enum class Kind { Sound, Explosion, Tune, Credits, Icon, Dancer, Marker };
enum class Damage { Intact, Folder, Pipe, LinkToZero, Larger, Beyond };

using Row = std::tuple<Kind, Damage>;

const char* const kFiles[] = {"sounds/g2intro.wav",   "Explosion-2.au",
                              "midi/5.mid",           "Credits.txt",
                              "icons/grumbo2-16.png", "characters/Classic Grumbo1.bmp",
                              "pIndication.bmp"};

// A file that is still one of its kind, but far larger than any of ours: a sound of 4 MB (11 s
// at 96 kHz), 100 KB of credits, or a shipped file with bytes after its end that readers ignore,
// to 1 MB for a tune (ours are under 50 KB) or an icon, and to 64 KB for a picture, which no
// picture of a character's or the turn marker's size needs.
QByteArray Larger(Kind kind, const QByteArray& shipped) {
    switch (kind) {
        case Kind::Sound:
        case Kind::Explosion: return Wav(96000, 2, 16, 11 * 96000, 0x4040);
        case Kind::Credits: return "10\n" + QByteArray("A line of credits\n").repeated(5600);
        case Kind::Tune:
        case Kind::Icon: return shipped.leftJustified(1 << 20, '\0');
        default: return shipped.leftJustified(64 << 10, '\0');
    }
}

// One of its kind but beyond what the game takes for it: a sound of 21 s, an icon 513 pixels wide,
// a dancer or a turn marker 81 pixels wide.
QByteArray Beyond(Kind kind) {
    if (kind == Kind::Sound) return Wav(8000, 1, 8, 21 * 8000, 0x40);
    const bool icon = kind == Kind::Icon;
    QImage image(icon ? 513 : 81, icon ? 16 : 70, QImage::Format_RGB32);
    image.fill(Qt::white);
    QByteArray b;
    QBuffer out(&b);
    image.save(&out, icon ? "PNG" : "BMP");
    return b;
}

class HostileData : public ScreensTest, public ::testing::WithParamInterface<Row> {
protected:
    void SetUp() override {
        ScreensTest::SetUp();
        std::filesystem::copy(GRUMBO_DATA_DIR, dir.path().toStdString(),
                              std::filesystem::copy_options::recursive);
    }
    // True when the game used the file of `kind`: played it, scrolled it, showed it.
    bool Used(Kind kind) {
        const core::DataFolder data(dir.path());
        const QString file = data.path(QLatin1String(kFiles[static_cast<int>(kind)]));
        if (kind == Kind::Sound || kind == Kind::Explosion || kind == Kind::Tune) {
            media::SdlSound audio;
            if (kind == Kind::Tune) return audio.playTune(file), Mix_PlayingMusic();
            return audio.playEffect(file), Mix_Playing(0);
        }
        switch (kind) {
            case Kind::Credits: return screens::CreditsScreen(data).buffer().height() > 150;
            case Kind::Icon: {
                ui::setWindowIcon({file});
                const bool shown = !QApplication::windowIcon().isNull();
                QApplication::setWindowIcon(QIcon());
                return shown;
            }
            case Kind::Dancer: {
                // A dancer refused leaves an empty place of the size of the title's others.
                screens::TitleScreen title(data, sound, 0);
                title.showCentred();
                const core::Canvas& shown = title.dancer(0)->canvas();
                return QSize(shown.width(), shown.height()) != QSize(31, 33);
            }
            default: screens::Pictures(data).marker(); return messages.isEmpty();
        }
    }
    QTemporaryDir dir;
};

TEST_P(HostileData, IsRefusedAtOnceAndTheGameGoesOn) {
    const auto [kind, damage] = GetParam();
    const QString path = dir.filePath(QLatin1String(kFiles[static_cast<int>(kind)]));
    QFile shipped(path);
    ASSERT_TRUE(shipped.open(QIODevice::ReadOnly));
    const QByteArray bytes = shipped.readAll();
    if (damage != Damage::Intact) shipped.remove();
    switch (damage) {
        case Damage::Intact: break;
        case Damage::Folder: ASSERT_TRUE(QDir().mkdir(path)); break;
        case Damage::Pipe: ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0); break;
        case Damage::LinkToZero: ASSERT_TRUE(QFile::link(QStringLiteral("/dev/zero"), path)); break;
        case Damage::Larger: Written(path, Larger(kind, bytes)); break;
        case Damage::Beyond: Written(path, Beyond(kind)); break;
    }
    rusage before{}, after{};
    getrusage(RUSAGE_SELF, &before);
    EXPECT_EQ(Used(kind), damage == Damage::Intact);
    getrusage(RUSAGE_SELF, &after);
    // Reading any of them takes some megabytes at most (the SoundFont for a tune), not gigabytes.
    EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 128 << 10) << "kilobytes more at the peak";
}

std::string RowName(const ::testing::TestParamInfo<Row>& row) {
    const char* kinds[] = {"Sound", "Explosion", "Tune", "Credits", "Icon", "Dancer", "Marker"};
    const char* damages[] = {"Intact",       "AsFolder",          "AsPipe",
                             "AsLinkToZero", "LargerThanItsKind", "BeyondItsKind"};
    return std::string(kinds[int(std::get<0>(row.param))]) + damages[int(std::get<1>(row.param))];
}

// Every kind of file under every damage; beyond its kind, those with a limit beyond the size.
INSTANTIATE_TEST_SUITE_P(
    Every, HostileData,
    ::testing::Combine(::testing::Values(Kind::Sound, Kind::Explosion, Kind::Tune, Kind::Credits,
                                         Kind::Icon, Kind::Dancer, Kind::Marker),
                       ::testing::Values(Damage::Intact, Damage::Folder, Damage::Pipe,
                                         Damage::LinkToZero, Damage::Larger)),
    RowName);
INSTANTIATE_TEST_SUITE_P(Beyond, HostileData,
                         ::testing::Combine(::testing::Values(Kind::Sound, Kind::Icon, Kind::Dancer,
                                                              Kind::Marker),
                                            ::testing::Values(Damage::Beyond)),
                         RowName);

}  // namespace

using HostileInput = ScreensTest;

TEST_F(HostileInput, AKeyCountsOnceAndOnlyFromTheMomentTheMatchHasTheKeyboard) {
    keys.install();
    // A key no control takes travels up through every widget to the window: one press.
    QWidget window;
    auto* box = new QLineEdit(&window);
    window.show();
    QStringList heard;
    QObject::connect(&keys, &ui::Keyboard::changed, &window, [&](int key, bool down) {
        heard << QStringLiteral("%1%2").arg(key).arg(down);
    });
    QTest::keyPress(box, Qt::Key_Escape);
    QTest::keyRelease(box, Qt::Key_Escape);
    EXPECT_EQ(heard, (QStringList{"271", "270"}));
    // Pressed before the match window has the keyboard, it does not pause; pressed once the
    // window has it, while the match is still starting, it does.
    screens::MatchView view(CalmSetup(), sound, keys, ShippedData());
    keys.press(game::key::kEscape);
    view.showCentred();
    ui::giveFocus(&view);
    clock.advance(100);
    ASSERT_EQ(QGuiApplication::focusWindow(), view.windowHandle());
    EXPECT_FALSE(view.match().paused());
    ASSERT_EQ(view.match().phase(), game::Phase::Starting);
    Tap(game::key::kEscape);
    EXPECT_TRUE(view.match().paused());
    view.resume();
    keys.press(game::key::kEscape);
    screens::MatchView unseen(CalmSetup(), sound, keys, ShippedData());
    clock.runUntil([&] { return unseen.match().phase() == game::Phase::Aiming; }, 5000);
    clock.advance(100);
    EXPECT_FALSE(unseen.match().paused())
        << "a window never given the keyboard hears the first turn";
    Tap(game::key::kEscape);
    EXPECT_TRUE(unseen.match().paused());
}

TEST_F(HostileInput, NamesShowLetterForLetter) {
    const QString name = QStringLiteral("[*] %1 <b>x</b> <img src=q.png>");
    game::MatchSetup setup = CalmSetup();
    setup.players[0].name = name;
    screens::MatchView view(setup, sound, keys, ShippedData());
    view.showCentred();
    clock.runUntil([&] { return view.match().phase() == game::Phase::Aiming; }, 5000);
    EXPECT_EQ(view.windowHandle()->title(), name + QStringLiteral(" - 0 pts"));
    // Messages name files, and a character's name is part of its pictures' names.
    ui::setMessageHook(nullptr);
    Qt::TextFormat format = Qt::RichText;
    QTimer::singleShot(0, [&] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            format = box->textFormat();
            box->done(0);
        }
    });
    ui::showMessage(name, QStringLiteral("Grumbo"));
    EXPECT_EQ(format, Qt::PlainText);
}
