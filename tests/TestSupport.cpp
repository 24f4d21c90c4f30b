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
    const char* characters[4] = {"Classic Grumbo", "Rapper Grumbo", "Robo Grumbo", "Suit Grumbo"};
    for (int i = 0; i < 4; ++i) {
        strPlayerName[i] = QStringLiteral("Player %1").arg(i + 1);
        strCharacter[i] = QString::fromLatin1(characters[i]);
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
