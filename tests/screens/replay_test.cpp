// A match kept and played again by the program: the flow keeps the record of every match the
// players finish or leave, the folder holds the newest 50, a replay in the match window answers
// Space, + and - and takes no typing, and the check without a window prints the board or refuses
// a record that does not end as it says.
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <sstream>

#include "TestSupport.h"
#include "app/Records.h"
#include "app/Replays.h"
#include "screens/MatchStrip.h"

using namespace testing_support;

namespace {

using Replays = ScreensTest;

TEST_F(Replays, TheFolderKeepsTheNewest50AndTwoOfOneMillisecondBoth) {
    QTemporaryDir folder;
    const app::RecordStore store(folder.path() + QStringLiteral("/replays"));
    game::Record r;
    r.seats[0] = r.seats[1] = {QStringLiteral("Ann"), QStringLiteral("Classic Grumbo"), {}};
    const QDateTime first(QDate(2026, 11, 25), QTime(20, 0));
    for (int i = 0; i < 52; ++i) EXPECT_FALSE(store.keep(r, first.addSecs(i)).isEmpty());
    EXPECT_FALSE(store.keep(r, first.addSecs(51)).isEmpty()) << "the same millisecond again";
    const QStringList names = QDir(store.folder()).entryList(QDir::Files, QDir::Name);
    ASSERT_EQ(names.size(), 50);
    EXPECT_EQ(names.front(), "match-20261125-200003-000.txt") << "the oldest three are gone";
    EXPECT_TRUE(names.contains("match-20261125-200051-000.txt") &&
                names.contains("match-20261125-200051-000-2.txt"));
    // A file where the folder should be: nothing kept, and the match goes on.
    QFile blocker(folder.path() + QStringLiteral("/blocked"));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    EXPECT_TRUE(app::RecordStore(blocker.fileName()).keep(r, first).isEmpty());
}

TEST_F(Replays, TheCheckAndTheWindowPlayTheRecordAndRefuseOneThatEndsOtherwise) {
    // A finished match of Ann and Bo, played by the program.
    std::vector<game::Record> kept;
    app::Services services{sound, keys, ShippedData(), [] { return 42u; }, [this] { ++quits; }};
    services.keepRecord = [&](const game::Record& r) { kept.push_back(r); };
    flow = std::make_unique<app::ScreenFlow>(services);
    flow->start();
    ASSERT_TRUE(ToMatch() && RoundStands() && Win());
    EXPECT_TRUE(kept.empty()) << "kept once the players leave the board";
    Click(flow->box(), "Play Again");
    ASSERT_EQ(kept.size(), 1u);
    const game::Record& record = kept[0];
    ASSERT_TRUE(record.finished);
    QTemporaryDir folder;
    const app::RecordStore store(folder.path());
    const QString file = store.keep(record, QDateTime::currentDateTime());
    std::ostringstream out, err;
    EXPECT_EQ(app::checkReplay(file, ShippedData(), out, err), 0);
    EXPECT_EQ(out.str().substr(0, 6), "Ann\t1\t") << out.str();
    game::Record left = record;
    left.finished = false;
    const QString leftFile = store.keep(left, QDateTime::currentDateTime().addSecs(1));
    out.str({});
    EXPECT_EQ(app::checkReplay(leftFile, ShippedData(), out, err), 2);
    EXPECT_TRUE(out.str().empty());
    EXPECT_NE(err.str().find(leftFile.toStdString()), std::string::npos) << err.str();

    const app::ReplayFile replay = app::openReplay(file, ShippedData());
    ASSERT_TRUE(replay.setup) << replay.error.toStdString();
    flow->startReplay(*replay.setup, game::Replay(replay.record->commands));
    screens::MatchView& v = *flow->match();
    const game::Match& m = v.match();
    // Each key first plays the time before it at the pace it had.
    clock.advance(1000);
    QTest::keyClick(&v, Qt::Key_Space);
    EXPECT_EQ(m.clock(), 1000);
    clock.advance(1000);
    QTest::keyClick(&v, Qt::Key_Space);
    EXPECT_EQ(m.clock(), 1000) << "Space held it";
    for (int i = 0; i < 4; ++i) QTest::keyClick(&v, Qt::Key_Plus);
    EXPECT_EQ(v.speed(), 8) << "8 times at most";
    clock.advance(500);
    QTest::keyClick(&v, Qt::Key_Minus);
    EXPECT_EQ(m.clock(), 5000);
    clock.advance(500);
    QTest::keyClick(&v, Qt::Key_Space);
    EXPECT_EQ(m.clock(), 7000);
    QTest::keyClick(&v, Qt::Key_Space);
    ASSERT_TRUE(clock.runUntil([&] { return m.inputOpen(); }, 20000));
    QTest::keyClicks(v.strip()->angleBox(), QStringLiteral("12"));
    QTest::mouseClick(v.strip()->throwButton(), Qt::LeftButton);
    ASSERT_TRUE(clock.runUntil([&] { return m.gameOverShown(); }, 60000));
    EXPECT_EQ(m.commands(), record.commands) << "the record's commands and nothing typed";
}

}  // namespace
