// The seeded runs recorded from the game before its rules moved into a model of their own: every
// picture of the match window and of the screens around it, every window title, sound and tune
// must come out as recorded. GOLDEN_OUT names a folder for the pictures that differ and the logs
// of the runs.
#include <QCheckBox>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTest>
#include <QTextStream>
#include <map>

#include "../TestSupport.h"
#include "game/GameSupport.h"
#include "screens/JoinDialog.h"
#include "screens/LoadingBox.h"
#include "screens/MatchBox.h"
#include "screens/MatchStrip.h"
#include "screens/WaitingBox.h"
#include "ui/ArrowControl.h"
#include "ui/CanvasWidget.h"

using namespace testing_support;

namespace {

const QString kGolden = QStringLiteral(GRUMBO_SOURCE_DIR "/tests/golden/");

// The options of scenario `name`, its defaults filled in, and its steps.
std::pair<std::map<QString, QString>, QStringList> ReadScenario(const QString& name) {
    std::map<QString, QString> options{{"players", "2"},   {"seed", "1"},   {"time", "1"},
                                       {"wind", "20"},     {"gusts", "1"},  {"frags", "3"},
                                       {"gravity", "9.8"}, {"height", "8"}, {"music", "0"}};
    QStringList steps;
    QFile file(kGolden + QStringLiteral("scenarios.txt"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly | QIODevice::Text));
    bool mine = false;
    for (QTextStream in(&file); !in.atEnd();) {
        const QString line = in.readLine();
        const QStringList parts = line.split(QLatin1Char(' '));
        if (parts[0] == QLatin1String("scenario")) {
            mine = parts[1] == name;
            for (int i = 2; mine && i < parts.size(); ++i)
                options[parts[i].section(QLatin1Char('='), 0, 0)] =
                    parts[i].section(QLatin1Char('='), 1);
        } else if (mine && !line.startsWith(QLatin1Char('#')) && !line.trimmed().isEmpty()) {
            steps << line;
        }
    }
    return {options, steps};
}

// The picture must match the recording pixel for pixel; GOLDEN_OUT keeps the new one.
testing::AssertionResult SamePicture(const QImage& actual, const QString& file) {
    const QImage a = actual.convertToFormat(QImage::Format_RGB32);
    const QImage e =
        QImage(kGolden + QStringLiteral("expected/") + file).convertToFormat(QImage::Format_RGB32);
    if (a == e) return testing::AssertionSuccess();
    const QString out = qEnvironmentVariable("GOLDEN_OUT");
    if (!out.isEmpty()) a.save(out + QLatin1Char('/') + file);
    int differ = 0;
    for (int y = 0; a.size() == e.size() && y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) differ += a.pixel(x, y) != e.pixel(x, y);
    return testing::AssertionFailure() << file.toStdString() << ": " << differ
                                       << " pixels differ (none counted at another size)";
}

class GoldenRun : public ScreensTest, public testing::WithParamInterface<const char*> {
protected:
    void TearDown() override {
        view.reset();
        ScreensTest::TearDown();
    }

    void Capture(const QString& what) {
        const QString file =
            QStringLiteral("%1-%2.png").arg(name).arg(shots++, 2, 10, QLatin1Char('0'));
        EXPECT_TRUE(SamePicture(view->grab().toImage(), file));
        QStringList tunes;
        for (const QString& t : sound.tunes) tunes << t.section(QLatin1Char(' '), 1);
        log << QStringLiteral("%1 %2 | title=%3 | sounds=%4 | music=%5")
                   .arg(file, what, view->windowTitle(), sound.effects.join(QLatin1Char(',')),
                        tunes.join(QLatin1Char(',')));
        sound.effects.clear();
        sound.tunes.clear();
    }

    void Throw(int angle, int velocity, int kind, bool flight, bool pause) {
        screens::MatchStrip& strip = *view->strip();
        if (kind > 0 && strip.selector(kind)->isVisible())
            QTest::mouseClick(strip.selector(kind), Qt::LeftButton, {}, QPoint(5, 5));
        strip.angleBox()->setText(QString::number(angle));
        strip.velocityBox()->setText(QString::number(velocity));
        ASSERT_TRUE(strip.throwButton()->isEnabled());
        strip.throwButton()->click();
        if (flight || pause) {
            // A pause comes 2 ms after the tenth flight tick, so that the keyboard's poll sees
            // it before the eleventh, however the poll falls.
            clock.advance(pause ? 322 : 330);
            Capture(QStringLiteral("flight"));
        }
        if (pause) {
            Tap(game::key::kEscape);
            clock.advance(1500);
            Capture(QStringLiteral("paused"));
            view->resume();
        }
        const game::Match& m = view->match();
        clock.runUntil([&] { return m.over() || m.phase() == game::Phase::Aiming; }, 600000);
        clock.runUntil([&] { return !m.over() || m.gameOverShown(); }, 10000);
    }

    void Step(const QString& step) {
        const QStringList w = step.split(QLatin1Char(' '));
        if (w[0] == QLatin1String("throw") || w[0] == QLatin1String("pause")) {
            // A kind left out, or "flight" in its place, reads as 0.
            Throw(w[1].toInt(), w[2].toInt(), w.value(3).toInt(),
                  w.contains(QLatin1String("flight")), w[0] == QLatin1String("pause"));
        } else if (w[0] == QLatin1String("keys")) {
            for (QChar c : step.mid(5))
                Tap(c == QLatin1Char('\\')  ? game::key::kBackslash
                    : c == QLatin1Char(' ') ? game::key::kSpace
                                            : c.toUpper().unicode());
        } else if (w[0] == QLatin1String("arrow")) {
            // The arrows' key codes follow each other in this order.
            const int key =
                game::key::kLeft + QStringList{"LEFT", "UP", "RIGHT", "DOWN"}.indexOf(w[1]);
            for (int i = 0; i < w[2].toInt(); ++i) Tap(key);
        }
        clock.advance(2500);
        Capture(step);
        // One figure of every seat, 0 for the seats of nobody.
        const auto seats = [&m = view->match()](int game::PlayerStats::*figure) {
            QStringList row;
            for (int i = 0; i < 4; ++i)
                row << QString::number(i < m.players() ? m.stats(i).*figure : 0);
            return row.join(QLatin1Char(','));
        };
        using S = game::PlayerStats;
        log << QStringLiteral("  frags=%1 points=%2 misses=%3")
                   .arg(seats(&S::frags), seats(&S::points), seats(&S::misses));
    }

    QString name;
    int shots = 0;
    QStringList log;
    std::unique_ptr<screens::MatchView> view;
};

TEST_P(GoldenRun, DrawsAndSoundsAsRecorded) {
    name = QString::fromLatin1(GetParam());
    auto [o, steps] = ReadScenario(name);
    game::MatchSetup setup = ShippedSetup(o["players"].toInt(), o["seed"].toULongLong());
    game::MatchSettings& settings = setup.settings;
    settings.timeOfDay = static_cast<game::TimeOfDay>(o["time"].toInt() - 1);
    settings.windExtremity = o["wind"].toInt();
    settings.windGusts = o["gusts"] == QLatin1String("1");
    settings.fragLimit = o["frags"].toInt();
    settings.gravity = o["gravity"].toDouble();
    settings.buildingHeight = o["height"].toInt();
    settings.music = o["music"] == QLatin1String("1");
    view = std::make_unique<screens::MatchView>(setup, sound, keys, ShippedData());
    view->showCentred();
    clock.runUntil([&] { return view->match().phase() == game::Phase::Aiming; }, 5000);
    clock.advance(2500);
    Capture(QStringLiteral("start"));
    for (const QString& step : steps) Step(step);
    if (const QString out = qEnvironmentVariable("GOLDEN_OUT"); !out.isEmpty()) {
        QFile written(out + QLatin1Char('/') + name + QStringLiteral(".log"));
        if (written.open(QIODevice::WriteOnly | QIODevice::Text))
            written.write((log.join(QLatin1Char('\n')) + QLatin1Char('\n')).toUtf8());
    }
    QFile expected(kGolden + QStringLiteral("expected/") + name + QStringLiteral(".log"));
    EXPECT_TRUE(expected.open(QIODevice::ReadOnly | QIODevice::Text));
    EXPECT_EQ(log, QString::fromUtf8(expected.readAll()).split('\n', Qt::SkipEmptyParts));
}

INSTANTIATE_TEST_SUITE_P(Golden, GoldenRun,
                         testing::Values("day1v1", "night1v1", "codes1v1", "teams2v2", "nuke2v2",
                                         "music1v1"));

void Expect(QWidget* window, const char* name) {
    ASSERT_TRUE(window);
    EXPECT_TRUE(SamePicture(window->grab().toImage(),
                            QStringLiteral("screen-%1.png").arg(QLatin1String(name))));
}

using GoldenScreens = ScreensTest;

TEST_F(GoldenScreens, LookAsRecorded) {
    app::ScreenFlow& f = StartProgram();
    Expect(f.title(), "title-both");
    clock.advance(150);
    Expect(f.title(), "title-dance1");
    clock.advance(150);
    Expect(f.title(), "title-dance2");
    f.title()->start();
    screens::SetupScreen& setup = *f.setup();
    Expect(&setup, "setup");
    QTest::mouseClick(setup.gameType, Qt::LeftButton, {}, QPoint(8, 2));
    QTest::mouseClick(setup.timeOfDay, Qt::LeftButton, {}, QPoint(8, 2));
    setup.windExtremity->setValue(0);
    setup.buildingHeight->setValue(12);
    QTest::mouseClick(setup.gravity, Qt::LeftButton, {}, QPoint(8, 16));
    Expect(&setup, "setup-changed");
    setup.next();
    screens::PlayerScreen& players = *f.players();
    Expect(&players, "player1");
    QTest::keyClicks(players.nameBox, QStringLiteral("Ann"));
    for (int i = 0; i < 2; ++i)
        QTest::mouseClick(players.browser, Qt::LeftButton, {}, QPoint(140, 10));
    Expect(&players, "player1-browsed");
    players.next();
    Expect(&players, "player2");
    QTest::keyClicks(players.nameBox, QStringLiteral("vostrel"));
    Expect(&players, "player2-vostrel");
    players.networkBox->setChecked(true);
    Expect(&players, "player2-network");
    screens::PlayerScreen joiner(ShippedData(), sound);
    joiner.beginJoiner(1, {QStringLiteral("Classic Grumbo")});
    joiner.showCentred();
    Expect(&joiner, "player-joiner");

    QWidget owner;
    screens::LoadingBox loading(&owner);
    loading.showState({.shown = true, .stage = game::Loading::Stage::Buildings, .progress = 40});
    Expect(&loading, "loading");
    Expect(new screens::MatchBox(&owner, screens::MatchBox::Kind::Paused), "pause-box");
    Expect(new screens::MatchBox(&owner, screens::MatchBox::Kind::GameOver), "gameover-box");
    screens::WaitingBox host;
    host.setAddress({QStringLiteral("192.168.1.5"), QStringLiteral("fe80::1")}, 4770);
    host.setCode(QStringLiteral("K7Q2"));
    host.setSeat(1, QStringLiteral("Bob, Rapper Grumbo"));
    host.setSeat(3, QStringLiteral("waiting..."));
    host.showCentred();
    Expect(&host, "waiting-host");
    screens::WaitingBox joining;
    joining.setMessage(QStringLiteral("Waiting for the host to start the match..."));
    joining.setSettings({});
    joining.showCentred();
    Expect(&joining, "waiting-joiner");
    screens::JoinDialog join;
    join.addressBox->setText(QStringLiteral("192.168.1.5:4770"));
    join.codeBox->setText(QStringLiteral("K7Q2"));
    join.showError(QStringLiteral("No match is waiting at 192.168.1.5:4770"));
    join.showCentred();
    Expect(&join, "join");
    screens::CreditsScreen credits(ShippedData());
    clock.advance(2025);
    Expect(&credits, "credits-2s");
    clock.advance(60000);
    Expect(&credits, "credits-end");
}

}  // namespace
