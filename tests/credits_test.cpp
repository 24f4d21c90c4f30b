// The credits: the buffer drawn at loading, the scroll one pixel per tick, "Credits Completed",
// and the ways back to the title screen, on the virtual clock and on pixels.
#include <QFile>

#include "ScreensSupport.h"

using namespace testing_support;

namespace {

constexpr int kTickMs = 25;
constexpr int kScreenHeight = 351;
const std::int32_t kBlack = ui::RGB(0, 0, 0);

class CreditsScreen : public ScreensTest {
protected:
    // Opens the credits screen on a credits file of the given lines (none: no file at all).
    frmCredits& Open(const QStringList* lines) {
        QTemporaryDir dir;
        if (lines) {
            QFile file(dir.filePath(QStringLiteral("Credits.txt")));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(lines->join(QLatin1Char('\n')).toUtf8() + "\n");
        }
        modMain::SetAppPath(dir.path());
        frmCredits& c = frmCredits::Instance();
        c.Show();
        modMain::SetAppPath(QStringLiteral(GRUMBO_DATA_DIR));
        return c;
    }

    static bool Lit(const ui::Surface& s, int y) {
        for (int x = 0; x < s.Width(); ++x)
            if (s.Point(x, y) != kBlack) return true;
        return false;
    }
    // First rows of the runs of rows that hold text.
    static std::vector<int> LineTops(const ui::Surface& s) {
        std::vector<int> tops;
        for (int y = 0; y < s.Height(); ++y)
            if (Lit(s, y) && (y == 0 || !Lit(s, y - 1))) tops.push_back(y);
        return tops;
    }
    // Whether the screen shows text in light grey around its middle row.
    static bool Announced(const frmCredits& c) {
        const ui::Surface& s = c.picScreen->surface();
        for (int y = 160; y < 200; ++y)
            for (int x = 0; x < s.Width(); ++x)
                if (s.Point(x, y) == ui::RGB(224, 224, 224)) return true;
        return false;
    }
};

}  // namespace

TEST_F(CreditsScreen, TheBufferHoldsEveryLineCentredAndScrollsOutBeforeTheEndIsAnnounced) {
    QStringList lines{QStringLiteral("10 lines follow")};
    for (int i = 0; i < 10; ++i) lines << QStringLiteral("IIIIIIIIII");
    frmCredits& c = Open(&lines);
    const ui::Surface& buffer = c.picCredits;

    // Ten identical lines, each one text line plus 3 pixels below the one before.
    const std::vector<int> tops = LineTops(buffer);
    ASSERT_EQ(tops.size(), 10u);
    EXPECT_GE(tops[0], 3) << "text 3 pixels below the buffer's top";
    const int pitch = tops[1] - tops[0];
    for (std::size_t i = 1; i < tops.size(); ++i) EXPECT_EQ(tops[i] - tops[i - 1], pitch);
    const int h = pitch - 3;
    EXPECT_EQ(buffer.Width(), 507);
    EXPECT_EQ(buffer.Height(), 10 * h + 150);
    // Centred 3 pixels right of the buffer's middle.
    int first = buffer.Width(), last = 0;
    for (int x = 0; x < buffer.Width(); ++x) {
        bool lit = false;
        for (int y = tops[0]; y < tops[0] + h; ++y) lit |= buffer.Point(x, y) != kBlack;
        if (lit) first = std::min(first, x), last = std::max(last, x);
    }
    EXPECT_NEAR((first + last) / 2.0, 507 / 2.0 + 3, 1.5);

    // One pixel per tick, from below the bottom edge: after tick k the buffer's top row stands
    // at row 352 - k of the screen.
    const int height = buffer.Height();
    const ui::Surface& screen = c.picScreen->surface();
    clock.Advance(kTickMs * 100);
    for (int x = 0; x < 507; ++x)
        ASSERT_EQ(screen.Point(x, 252 + tops[0]), buffer.Point(x, tops[0])) << x;
    EXPECT_EQ(screen.Point(520, 252 + tops[0]), kBlack) << "nothing right of the buffer";

    clock.Advance(kTickMs * (kScreenHeight + height - 100));
    EXPECT_TRUE(c.tmrCredits.Enabled());
    EXPECT_FALSE(Announced(c));
    for (int y = 0; y < kScreenHeight; ++y) ASSERT_FALSE(Lit(screen, y)) << "all passed: " << y;
    clock.Advance(kTickMs);
    EXPECT_FALSE(c.tmrCredits.Enabled()) << "after 351 + buffer height + 1 ticks";
    EXPECT_TRUE(Announced(c));
    clock.Advance(kTickMs * 10);
    EXPECT_TRUE(Announced(c)) << "and it stays";
}

TEST_F(CreditsScreen, SpaceEnterEscapeAndTheCloseBoxLeadToTheTitleScreenWhateverTheFile) {
    frmCredits& c = Open(nullptr);
    // Any other key leaves the screen up, before and after the end.
    QTest::keyClick(c.window(), Qt::Key_A);
    QTest::keyClick(c.window(), Qt::Key_Left);
    EXPECT_TRUE(c.Loaded());
    EXPECT_FALSE(frmSplash::Instance().Loaded());
    c.Unload();
    frmSplash::Instance().Unload();

    for (Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        SCOPED_TRACE(key);
        Open(nullptr);
        clock.Advance(kTickMs * 3);
        QTest::keyClick(c.window(), key);
        EXPECT_FALSE(c.Loaded());
        EXPECT_TRUE(frmSplash::Instance().Loaded());
        frmSplash::Instance().Unload();
    }
    // Without a number of lines, or without the file, the buffer is the black margin alone.
    const QStringList noNumber{"Lines: 3", "a", "b", "c"};
    const QStringList* cases[] = {&noNumber, nullptr};
    for (const QStringList* lines : cases) {
        Open(lines);
        EXPECT_EQ(c.picCredits.Height(), 150);
        clock.Advance(kTickMs * (kScreenHeight + 151));
        EXPECT_TRUE(Announced(c));
        c.window()->close();
        EXPECT_FALSE(c.Loaded());
        EXPECT_TRUE(frmSplash::Instance().Loaded());
        frmSplash::Instance().Unload();
    }
    EXPECT_TRUE(messages.isEmpty());
    EXPECT_EQ(programEnds, 0);
}

TEST_F(CreditsScreen, TheShippedCreditsScrollToTheirEnd) {
    QFile file(modMain::DataFile(QStringLiteral("Credits.txt")));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const int n = QString::fromUtf8(file.readLine()).toInt();
    frmCredits& c = frmCredits::Instance();
    c.Show();
    EXPECT_EQ(c.Caption(), QStringLiteral("Grumbo Credits"));
    EXPECT_EQ(c.window()->size(), QSize(530, 351));
    EXPECT_EQ(c.window()->minimumSize(), c.window()->maximumSize()) << "a fixed size";
    EXPECT_GT(n, 20);
    const std::vector<int> tops = LineTops(c.picCredits);
    EXPECT_GT(tops.size(), 10u);
    EXPECT_FALSE(Lit(c.picCredits, c.picCredits.Height() - 1)) << "no line is cut off";
    EXPECT_TRUE(clock.RunUntil([&] { return !c.tmrCredits.Enabled(); },
                               kTickMs * (kScreenHeight + c.picCredits.Height() + 2)));
}
