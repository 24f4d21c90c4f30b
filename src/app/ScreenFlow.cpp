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

void WireScreens() {
    static ScreenOverlays overlays;
    frmGrumbo::Instance().SetOverlays(&overlays);
}

void StartProgram() {
    WireScreens();
    frmSplash::Instance().Show();
}

}  // namespace grumbo
