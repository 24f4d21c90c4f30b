#include "app/ScreenFlow.h"

#include "app/modMain.h"
#include "match/frmGrumbo.h"

namespace grumbo {

void StartProgram() {
    using namespace modMain;
    // Until the players can choose, a match starts at once with the usual settings and two
    // characters that ship with the game.
    ApplySetupDefaults();
    strPlayerName[0] = QStringLiteral("Player 1");
    strPlayerName[1] = QStringLiteral("Player 2");
    strCharacter[0] = QStringLiteral("Classic Grumbo");
    strCharacter[1] = QStringLiteral("Rapper Grumbo");
    frmGrumbo::Instance().Show();
}

}  // namespace grumbo
