#include "app/ScreenFlow.h"

#include "match/frmGrumbo.h"
#include "modmain/modMain.h"
#include "screens/frmLoading.h"

namespace grumbo {

namespace {
class ScreenOverlays : public MatchOverlays {
public:
    LoadingBox& Loading() override { return frmLoading::Instance(); }
    void ShowGameOver() override {}
};
}  // namespace

QStringList IconFiles() {
    QStringList files;
    for (int size : {16, 22, 24, 32, 48, 64, 128, 256})
        files << modMain::DataFile(QStringLiteral("icons/grumbo2-%1.png").arg(size));
    return files;
}

void WireScreens() {
    static ScreenOverlays overlays;
    frmGrumbo::Instance().SetOverlays(&overlays);
}

void StartProgram() {
    using namespace modMain;
    WireScreens();
    // Until the players can choose, a match starts at once with the usual settings and two
    // characters that ship with the game.
    ApplySettings(SetupDefaults());
    strPlayerName[0] = QStringLiteral("Player 1");
    strPlayerName[1] = QStringLiteral("Player 2");
    strCharacter[0] = QStringLiteral("Classic Grumbo");
    strCharacter[1] = QStringLiteral("Rapper Grumbo");
    frmGrumbo::Instance().Show();
}

}  // namespace grumbo
