#include "app/ScreenFlow.h"

#include "match/frmGrumbo.h"
#include "screens/frmEndgame.h"
#include "screens/frmLoading.h"
#include "screens/frmSplash.h"
#include "ui/Keyboard.h"

namespace grumbo {

namespace {
class ScreenOverlays : public MatchOverlays {
public:
    LoadingBox& Loading() override { return frmLoading::Instance(); }
    void ShowGameOver() override { frmEndgame::Instance().ShowGameOver(Match()); }
    bool CanPause() override { return !frmEndgame::Instance().Loaded(); }
    void ShowPause() override { frmEndgame::Instance().ShowPause(Match()); }

private:
    static QWidget* Match() { return frmGrumbo::Instance().window(); }
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
    // The match's keyboard trap reads the keys through it.
    ui::Keyboard::instance().Install();
    frmGrumbo::Instance().SetOverlays(&overlays);
}

void StartProgram() {
    WireScreens();
    frmSplash::Instance().Show();
}

}  // namespace grumbo
