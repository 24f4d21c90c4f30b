// Records the golden runs of tests/golden/scenarios.txt with the match screen as it stands:
// a picture of the match window after every step, with the window title and every sound and
// tune command since the step before. GOLDEN_DIR names the folder the records go to.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTest>
#include <QTextStream>

#include "../MatchDriver.h"
#include "../TestSupport.h"
#include "modmain/modMain.h"
#include "screens/frmCredits.h"
#include "screens/frmEndgame.h"
#include "screens/frmLoading.h"
#include "screens/frmPlayer.h"
#include "screens/frmSetup.h"
#include "screens/frmSplash.h"
#include "ui/ArrowControl.h"
#include "ui/Keyboard.h"

using namespace testing_support;

namespace {

struct Scenario {
    QString name;
    std::map<QString, QString> options;
    QStringList steps;
};

std::vector<Scenario> ReadScenarios(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly | QIODevice::Text)) << path.toStdString();
    std::vector<Scenario> all;
    QTextStream in(&file);
    while (!in.atEnd()) {
        const QString line = in.readLine();
        if (line.trimmed().isEmpty() || line.startsWith(QLatin1Char('#'))) continue;
        if (line.startsWith(QLatin1String("scenario "))) {
            const QStringList parts = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
            Scenario s;
            s.name = parts[1];
            for (int i = 2; i < parts.size(); ++i)
                s.options[parts[i].section(QLatin1Char('='), 0, 0)] =
                    parts[i].section(QLatin1Char('='), 1);
            all.push_back(s);
        } else {
            all.back().steps << line;
        }
    }
    return all;
}

class Golden : public GameTest {
protected:
    QString dir = QString::fromLocal8Bit(qgetenv("GOLDEN_DIR"));
    QStringList log;
    int shots = 0;
    Scenario current;

    void ResetCarryOver(frmGrumbo& f) {
        for (auto& row : f.intSpecials) row.fill(0);
        f.strCode.clear();
        f.blnFlying = f.blnAllProjectiles = f.blnInvulnerable = false;
        f.intFrame = 0;
        f.intPindCount = 0;
        f.intTune = 0;
    }

    frmGrumbo& Start(const Scenario& s) {
        using namespace modMain;
        const auto opt = [&](const char* key, const char* fallback) {
            const auto it = s.options.find(QLatin1String(key));
            return it == s.options.end() ? QString::fromLatin1(fallback) : it->second;
        };
        ResetCarryOver(frmGrumbo::Instance());
        intTimeOfDay = static_cast<grumbo::Integer>(opt("time", "1").toInt());
        intWindExtremity = static_cast<grumbo::Integer>(opt("wind", "20").toInt());
        blnWindGusts = opt("gusts", "1") == QLatin1String("1");
        intFragLimit = static_cast<grumbo::Integer>(opt("frags", "3").toInt());
        dblGravity = opt("gravity", "9.8").toDouble();
        intBuildingHeight = static_cast<grumbo::Integer>(opt("height", "8").toInt());
        blnMusic = opt("music", "0") == QLatin1String("1");
        ui::Keyboard::instance().Reset();
        return StartMatch(opt("players", "2").toInt(), opt("seed", "1").toULongLong());
    }

    void Settle() { clock.Advance(2500); }

    void Capture(frmGrumbo& f, const QString& what) {
        const QString file =
            QStringLiteral("%1-%2.png").arg(current.name).arg(shots++, 2, 10, QLatin1Char('0'));
        if (!dir.isEmpty()) f.window()->grab().toImage().save(dir + QLatin1Char('/') + file);
        QStringList sounds;
        for (const QString& p : effects.played) sounds << Relative(p);
        QStringList tunes;
        for (const QString& c : music.commands) tunes << Relative(c.section(QLatin1Char(' '), 1));
        log << QStringLiteral("%1 %2 | title=%3 | sounds=%4 | music=%5")
                   .arg(file, what, f.Caption(), sounds.join(QLatin1Char(',')),
                        tunes.join(QLatin1Char(',')));
        effects.played.clear();
        music.commands.clear();
    }

    void Tap(int vk) {
        ui::Keyboard::instance().Press(vk);
        clock.Advance(25);
        ui::Keyboard::instance().Release(vk);
        clock.Advance(25);
    }

    // Returns false when the throw could not be made.
    bool Throw(frmGrumbo& f, int angle, int velocity, int kind, bool flight, bool pause,
               bool record) {
        if (kind > 0 && f.picSelect[kind]->isVisible())
            QTest::mouseClick(f.picSelect[kind], Qt::LeftButton, {}, QPoint(5, 5));
        f.txtAngle->setText(QString::number(angle));
        f.txtVel->setText(QString::number(velocity));
        if (!f.cmdThrow->isEnabled()) return false;
        f.cmdThrow->click();
        if (flight || pause) {
            clock.Advance(330);
            if (record) Capture(f, QStringLiteral("flight"));
        }
        if (pause) {
            Tap(ui::VkEscape);
            clock.Advance(1500);
            if (record) Capture(f, QStringLiteral("paused"));
            frmEndgame::Instance().cmdPlay->click();
        }
        clock.RunUntil([&] { return MatchOver(f) || InputOpen(f); }, kThrowLimitMs);
        return true;
    }

    // Plays `steps` of `s` from the start; with `record`, takes the pictures.
    frmGrumbo& Play(const Scenario& s, const QStringList& steps, bool record) {
        current = s;
        shots = 0;
        effects.played.clear();
        music.commands.clear();
        frmGrumbo& f = Start(s);
        Settle();
        if (record) Capture(f, QStringLiteral("start"));
        for (const QString& step : steps) {
            const QStringList w = step.split(QLatin1Char(' '), Qt::SkipEmptyParts);
            if (w[0] == QLatin1String("throw") || w[0] == QLatin1String("pause")) {
                const bool pause = w[0] == QLatin1String("pause");
                const int kind = w.size() > 3 && w[3] != QLatin1String("flight") ? w[3].toInt() : 0;
                const bool flight = w.contains(QLatin1String("flight"));
                if (!Throw(f, w[1].toInt(), w[2].toInt(), kind, flight, pause, record))
                    log << QStringLiteral("no throw possible: ") + step;
            } else if (w[0] == QLatin1String("keys")) {
                const QString text = step.mid(5);
                for (QChar c : text) {
                    if (c == QLatin1Char('\\')) Tap(ui::VkBackslash);
                    else if (c == QLatin1Char(' ')) Tap(ui::VkSpace);
                    else Tap(c.toUpper().unicode());
                }
            } else if (w[0] == QLatin1String("arrow")) {
                const int vk = w[1] == QLatin1String("LEFT")    ? ui::VkLeft
                               : w[1] == QLatin1String("UP")    ? ui::VkUp
                               : w[1] == QLatin1String("RIGHT") ? ui::VkRight
                                                                : ui::VkDown;
                for (int i = 0; i < w[2].toInt(); ++i) Tap(vk);
            }
            Settle();
            if (!record) continue;
            Capture(f, step);
            log << QStringLiteral("  frags=%1,%2,%3,%4 points=%5,%6,%7,%8 misses=%9,%10,%11,%12")
                       .arg(f.intFrags[0])
                       .arg(f.intFrags[1])
                       .arg(f.intFrags[2])
                       .arg(f.intFrags[3])
                       .arg(f.lngPoints[0])
                       .arg(f.lngPoints[1])
                       .arg(f.lngPoints[2])
                       .arg(f.lngPoints[3])
                       .arg(f.intMisses[0])
                       .arg(f.intMisses[1])
                       .arg(f.intMisses[2])
                       .arg(f.intMisses[3]);
        }
        return f;
    }

    // Replaces every "hit KIND" step by the first throw of that kind, found by trying, that
    // frags an enemy.
    Scenario Resolve(Scenario s) {
        for (int i = 0; i < s.steps.size(); ++i) {
            const QStringList w = s.steps[i].split(QLatin1Char(' '), Qt::SkipEmptyParts);
            if (w[0] != QLatin1String("hit")) continue;
            const QStringList prefix = s.steps.mid(0, i);
            frmGrumbo& f = Play(s, prefix, false);
            const int thrower = f.intCurrentPlayer;
            const int base = f.lngPoints[thrower];
            LeaveMatch();
            bool found = false;
            for (int v = 30; v <= 150 && !found; v += 2)
                for (int a = 25; a <= 85 && !found; a += 5) {
                    const QString attempt =
                        QStringLiteral("throw %1 %2 %3").arg(a).arg(v).arg(w[1]);
                    const int after =
                        Play(s, prefix + QStringList{attempt}, false).lngPoints[thrower];
                    LeaveMatch();
                    if (after - base < 25000) continue;
                    s.steps[i] = attempt;
                    std::printf("%s step %d: %s\n", qPrintable(s.name), i, qPrintable(attempt));
                    found = true;
                }
            if (!found) std::printf("%s step %d: no hit found\n", qPrintable(s.name), i);
        }
        return s;
    }
};

}  // namespace

TEST_F(Golden, Record) {
    QApplication::setCursorFlashTime(0);
    for (const Scenario& s :
         ReadScenarios(QStringLiteral(GRUMBO_SOURCE_DIR "/tests/golden/scenarios.txt"))) {
        log.clear();
        const Scenario resolved = Resolve(s);
        Play(resolved, resolved.steps, true);
        LeaveMatch();
        if (dir.isEmpty()) continue;
        QFile out(dir + QLatin1Char('/') + s.name + QStringLiteral(".log"));
        ASSERT_TRUE(out.open(QIODevice::WriteOnly | QIODevice::Text));
        QTextStream(&out) << log.join(QLatin1Char('\n')) << '\n';
    }
}

// The screens around a match, each in a few states.
TEST_F(Golden, Screens) {
    QApplication::setCursorFlashTime(0);
    const auto save = [&](QWidget* w, const char* name) {
        if (!dir.isEmpty())
            w->grab().toImage().save(dir +
                                     QStringLiteral("/screen-%1.png").arg(QLatin1String(name)));
    };
    frmSplash& title = frmSplash::Instance();
    title.Show();
    save(title.window(), "title-both");
    clock.Advance(150);
    save(title.window(), "title-dance1");
    clock.Advance(150);
    save(title.window(), "title-dance2");
    title.cmdStart->click();
    frmSetup& setup = frmSetup::Instance();
    save(setup.window(), "setup");
    QTest::mouseClick(setup.FlatScroll1, Qt::LeftButton, {}, QPoint(8, 2));
    QTest::mouseClick(setup.FlatScroll2, Qt::LeftButton, {}, QPoint(8, 2));
    setup.Slider1->setValue(0);
    setup.Slider2->setValue(12);
    QTest::mouseClick(setup.FlatScroll, Qt::LeftButton, {}, QPoint(8, 16));
    save(setup.window(), "setup-changed");
    setup.cmdStart->click();
    frmPlayer& player = frmPlayer::Instance();
    save(player.window(), "player1");
    QTest::keyClicks(player.txtPname, QStringLiteral("Ann"));
    QTest::mouseClick(player.FlatScroll, Qt::LeftButton, {}, QPoint(140, 10));
    QTest::mouseClick(player.FlatScroll, Qt::LeftButton, {}, QPoint(140, 10));
    save(player.window(), "player1-browsed");
    player.cmdOk->click();
    save(player.window(), "player2");
    QTest::keyClicks(player.txtPname, QStringLiteral("vostrel"));
    save(player.window(), "player2-vostrel");
    player.cmdBack->click();
    frmSetup::Instance().Unload();
    player.Unload();
    clock.Advance(20);

    // The boxes over a match, and the loading box while the match starts.
    frmGrumbo& f = StartMatch(2, 3);
    frmLoading::Instance().Open(f.window());
    frmLoading::Instance().SetStatus(QStringLiteral("Rendering Buildings..."));
    frmLoading::Instance().SetProgress(40);
    save(frmLoading::Instance().window(), "loading");
    frmLoading::Instance().Close();
    clock.Advance(2500);
    ui::Keyboard::instance().Press(ui::VkEscape);
    clock.Advance(25);
    ui::Keyboard::instance().Release(ui::VkEscape);
    save(frmEndgame::Instance().window(), "pause-box");
    frmEndgame::Instance().cmdPlay->click();
    clock.Advance(25);
    frmEndgame::Instance().ShowGameOver(f.window());
    save(frmEndgame::Instance().window(), "gameover-box");
    frmEndgame::Instance().cmdCredits->click();
    clock.Advance(25);
    frmCredits& credits = frmCredits::Instance();
    clock.Advance(2000);
    save(credits.window(), "credits-2s");
    clock.Advance(60000);
    save(credits.window(), "credits-end");
    credits.Unload();
    clock.Advance(20);
    frmSplash::Instance().Unload();
    clock.Advance(20);
}
