#include "modmain/modMain.h"

#include <QCoreApplication>
#include <algorithm>

#include "media/Audio.h"
#include "ui/Clock.h"
#include "ui/Form.h"
#include "ui/PictureBox.h"
#include "ui/Surface.h"

namespace modMain {

double dblWind = 0;
double dblGust = 0;
Integer intWindMode = 0;
double dblMagX = 0;
double dblMagY = 0;
Integer intWindExtremity = 0;
Integer intBuildingHeight = 0;
double dblGravity = 0;
Integer intPlayers = 0;
Integer intFragLimit = 0;
Integer intTimeOfDay = 0;
Integer intGameType = 0;
bool blnWindGusts = false;
bool blnMusic = false;
std::array<QString, 41> strCharacterList;
std::array<QString, 5> strCharacter;
std::array<QString, 5> strPlayerName;
bool blnInMatch = false;
bool blnFlightPaused = false;
bool blnBackToSetup = false;

namespace {
QString appPathOverride;
}

void ResetProgramValues() {
    dblWind = dblGust = dblMagX = dblMagY = 0;
    intWindMode = intWindExtremity = intBuildingHeight = intPlayers = intFragLimit = 0;
    intTimeOfDay = intGameType = 0;
    dblGravity = 0;
    blnWindGusts = blnMusic = blnInMatch = blnFlightPaused = blnBackToSetup = false;
    strCharacterList.fill(QString());
    strCharacter.fill(QString());
    strPlayerName.fill(QString());
}

MatchSettings SetupDefaults() {
    MatchSettings s;
    s.dblGravity = 9.8;
    s.intGameType = 1;
    s.intTimeOfDay = 1;
    s.intFragLimit = 3;
    s.intWindExtremity = 20;
    s.intBuildingHeight = 8;
    s.blnWindGusts = true;
    s.blnMusic = true;
    return s;
}

void ApplySettings(const MatchSettings& s) {
    dblGravity = s.dblGravity;
    intGameType = s.intGameType;
    intPlayers = static_cast<Integer>(2 * s.intGameType);
    intTimeOfDay = s.intTimeOfDay;
    intFragLimit = s.intFragLimit;
    intWindExtremity = s.intWindExtremity;
    intBuildingHeight = s.intBuildingHeight;
    blnWindGusts = s.blnWindGusts;
    blnMusic = s.blnMusic;
}

void Randomize() { grumbo::Reseed(static_cast<std::uint32_t>(ui::clock().TickCount())); }

void Delay(Long ms) {
    ui::Clock& c = ui::clock();
    const std::int32_t start = c.TickCount();
    ui::PumpEvents();
    // Elapsed time is measured as a difference, so the counter's wrap neither hangs nor cuts short.
    while (ui::TicksSince(start, c.TickCount()) <= ms) ui::WaitForEvents(start + ms + 1);
}

namespace {
int Channel(float v) { return std::clamp<int>(grumbo::CInt(v), 0, 255); }
}  // namespace

void DrawGradient(ui::Surface& pic, float R1, float G1, float B1, float R2, float G2, float B2,
                  float X1, float X2, float Y1, float Y2) {
    const float dR = (R2 - R1) / (Y2 - Y1);
    const float dG = (G2 - G1) / (Y2 - Y1);
    const float dB = (B2 - B1) / (Y2 - Y1);
    float R = R1, G = G1, B = B1;
    const int x1 = grumbo::CInt(X1), x2 = grumbo::CInt(X2);
    // Each line's colour is the previous one plus the step, in single precision, not a blend
    // recomputed from y: the skies and the building shades are defined by these accumulated
    // values, whose drift over a tall gradient moves some rows by one step.
    for (float y = Y1; y <= Y2; y += 1.0f) {
        const int row = grumbo::CInt(y);
        pic.Line(x1, row, x2, row, ui::RGB(Channel(R), Channel(G), Channel(B)));
        R += dR;
        G += dG;
        B += dB;
    }
}

void DrawGradient(ui::PictureBox& pic, float R1, float G1, float B1, float R2, float G2, float B2,
                  float X1, float X2, float Y1, float Y2) {
    DrawGradient(pic.surface(), R1, G1, B1, R2, G2, B2, X1, X2, Y1, Y2);
    pic.Changed();
}

void PlaySoundFile(const QString& file) { media::Audio::Effects().Play(file); }

QString AppPath() {
    if (!appPathOverride.isEmpty()) return appPathOverride;
    return QCoreApplication::instance() ? QCoreApplication::applicationDirPath() : QString(".");
}

void SetAppPath(const QString& folder) { appPathOverride = folder; }

QString DataFile(const QString& relative) { return AppPath() + QLatin1Char('/') + relative; }

}  // namespace modMain

namespace modMain {
void DoEvents() { ui::PumpEvents(); }
}  // namespace modMain
