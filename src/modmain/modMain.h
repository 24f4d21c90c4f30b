#pragma once
// Program-wide values and shared procedures. The setup and player screens write these values,
// the match and game-over screens read them; they live for the whole run, so a later match in
// the same run finds them as the earlier one left them.
#include <QString>
#include <array>

#include "core/Numeric.h"
#include "core/Random.h"

namespace ui {
class Surface;
class PictureBox;
}  // namespace ui

namespace modMain {

using grumbo::Integer;
using grumbo::Long;

// Wind and magnetic pull.
extern double dblWind;
extern double dblGust;
extern Integer intWindMode;
extern double dblMagX;
extern double dblMagY;

// The match settings.
extern Integer intWindExtremity;
extern Integer intBuildingHeight;
extern double dblGravity;
extern Integer intPlayers;
extern Integer intFragLimit;
extern Integer intTimeOfDay;  // 1 random, 2 day, 3 night
extern Integer intGameType;   // 1 "1 vs 1", 2 "2 vs 2"
extern bool blnWindGusts;
extern bool blnMusic;

// Players.
extern std::array<QString, 41> strCharacterList;
extern std::array<QString, 5> strCharacter;
extern std::array<QString, 5> strPlayerName;

// Screen flow.
extern bool blnInMatch;
extern bool blnFlightPaused;
extern bool blnBackToSetup;

// Reseeds the random generator from the clock (or from the pinned seed).
void Randomize();

// The match settings as one value: what the setup screen offers and what a match runs with.
struct MatchSettings {
    double dblGravity = 0;
    Integer intGameType = 0;
    Integer intTimeOfDay = 0;
    Integer intFragLimit = 0;
    Integer intWindExtremity = 0;
    Integer intBuildingHeight = 0;
    bool blnWindGusts = false;
    bool blnMusic = false;
};
// What an untouched setup screen offers.
MatchSettings SetupDefaults();
// Puts `settings` into the program-wide values (the number of players follows the game type).
void ApplySettings(const MatchSettings& settings);

// Every value back to its program-start state.
void ResetProgramValues();

// Waits at least `ms` milliseconds while window events keep being handled. It always pumps at
// least once and blocks between events instead of spinning.
void Delay(Long ms);

// Vertical colour gradient of horizontal lines, colour accumulated in single precision.
void DrawGradient(ui::Surface& pic, float R1, float G1, float B1, float R2, float G2, float B2,
                  float X1, float X2, float Y1, float Y2);
void DrawGradient(ui::PictureBox& pic, float R1, float G1, float B1, float R2, float G2, float B2,
                  float X1, float X2, float Y1, float Y2);

// Starts a sound effect in the background; a missing or broken file plays nothing.
void PlaySoundFile(const QString& file);

// The folder holding the game's data (see DataFolderFor) unless a test points elsewhere.
QString AppPath();
// Where the data of a program in `programFolder` lies: beside it, as in the build tree, or else
// in share/grumbo2 beside the program's bin folder, as after an installation wherever it went.
QString DataFolderFor(const QString& programFolder);
void SetAppPath(const QString& folder);
// AppPath() joined with a relative name such as "sounds/throw.wav".
QString DataFile(const QString& relative);

}  // namespace modMain

namespace modMain {
// Handles the window events that are pending now and returns.
void DoEvents();
}  // namespace modMain
