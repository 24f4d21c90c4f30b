#include "TestSupport.h"

#include "app/ScreenFlow.h"
#include "core/Random.h"
#include "modmain/modMain.h"
#include "screens/frmLoading.h"
#include "ui/MessageBox.h"
#include "ui/Program.h"

namespace testing_support {

QString Relative(const QString& path) {
    const QString root = QStringLiteral(GRUMBO_DATA_DIR "/");
    return path.startsWith(root) ? path.mid(root.size()) : path;
}

testing::AssertionResult ShowsPicture(const ui::PictureBox& box, const QString& relative,
                                      const ui::PictureBox* behind) {
    ui::Surface picture;
    if (!picture.Load(modMain::DataFile(relative)))
        return testing::AssertionFailure() << "cannot read " << relative.toStdString();
    if (box.size() != QSize(picture.Width(), picture.Height()))
        return testing::AssertionFailure() << "a box of " << box.width() << " x " << box.height();
    int seeThrough = 0;
    for (int y = 0; y < picture.Height(); ++y)
        for (int x = 0; x < picture.Width(); ++x) {
            std::int32_t want = picture.Point(x, y);
            if (want == ui::kWhite) {
                if (!behind) continue;
                ++seeThrough;
                want = behind->Point(box.Left() + x, box.Top() + y);
            }
            if (box.Point(x, y) != want)
                return testing::AssertionFailure() << "another pixel at " << x << ", " << y;
        }
    if (behind && seeThrough == 0) return testing::AssertionFailure() << "no white to see through";
    return testing::AssertionSuccess();
}

void GameTest::SetUp() {
    ui::SetClock(&clock);
    grumbo::WireScreens();
    media::Audio::Install(&effects, &music);
    modMain::SetAppPath(QStringLiteral(GRUMBO_DATA_DIR));
    ui::SetMsgBoxHook([this](const QString& text) { messages.push_back(text); });
    ui::SetEndProgramHook([this] { ++programEnds; });
    modMain::ResetProgramValues();
    modMain::ApplySettings(modMain::SetupDefaults());
    grumbo::ScriptRnd(nullptr, 0);
    characters = QStringList{QStringLiteral("Classic Grumbo"), QStringLiteral("Rapper Grumbo"),
                             QStringLiteral("Robo Grumbo"), QStringLiteral("Suit Grumbo")};
}

void GameTest::TearDown() {
    LeaveMatch();
    frmLoading::Instance().onProgress = nullptr;
    frmLoading::Instance().onStatus = nullptr;
    frmLoading::Instance().Unload();
    clock.Advance(5);  // lets closed windows go
    grumbo::PinSeed(std::nullopt);
    grumbo::ScriptRnd(nullptr, 0);
    ui::SetEndProgramHook(nullptr);
    ui::SetMsgBoxHook(nullptr);
    media::Audio::Install(nullptr, nullptr);
    ui::SetClock(nullptr);
}

frmGrumbo& GameTest::StartMatch(int players, std::uint64_t seed) {
    using namespace modMain;
    intGameType = static_cast<grumbo::Integer>(players / 2);
    intPlayers = static_cast<grumbo::Integer>(players);
    for (int i = 0; i < 4; ++i) {
        strPlayerName[i] = QStringLiteral("Player %1").arg(i + 1);
        strCharacter[i] = characters.value(i);
    }
    grumbo::PinSeed(seed);
    frmGrumbo& f = frmGrumbo::Instance();
    f.Show();
    return f;
}

void GameTest::LeaveMatch() {
    frmGrumbo& f = frmGrumbo::Instance();
    if (!f.Loaded()) return;
    modMain::blnInMatch = false;
    f.Unload();
    clock.Advance(5);
}

}  // namespace testing_support
