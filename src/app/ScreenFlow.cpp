#include "app/ScreenFlow.h"

#include "match/frmGrumbo.h"
#include "screens/frmLoading.h"
#include "screens/frmSplash.h"

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
    WireScreens();
    frmSplash::Instance().Show();
}

}  // namespace grumbo
