#pragma once
// The match screen. Its fields outlive a match (a later match in the same run finds what neither
// the match start nor the round start resets); its window and controls are built anew at every
// showing. Member functions live beside their subsystem: match/ builds the world, flight/ moves
// the projectile, impact/ handles what it hits and the scoring.
#include <QString>
#include <array>
#include <vector>

#include "match/Field.h"
#include "match/Overlays.h"
#include "modmain/modMain.h"
#include "ui/Form.h"
#include "ui/Input.h"
#include "ui/PictureBox.h"
#include "ui/Surface.h"
#include "ui/Timer.h"

class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;

class frmGrumbo : public ui::Form {
public:
    using Integer = grumbo::Integer;
    using Long = grumbo::Long;
    frmGrumbo();
    ~frmGrumbo() override;
    // The program's one match screen.
    static frmGrumbo& Instance();
    // The boxes the match shows over itself; without them it shows none.
    void SetOverlays(MatchOverlays* overlays) { overlays_ = overlays; }
    MatchOverlays& Overlays();

    // ---- Match state ----------------------------------------------------------------------
    Integer intCurrentPlayer = 0;
    Integer intProjectileKind = 0;  // 0 normal, 1 nuke, 2 war, 3 magnetic
    Integer intHandX = 0, intHandY = 0;
    Integer intFlightTime = 0;
    Integer intTickDivisor = 0;
    Integer intFrame = 0;
    double dblVelX = 0, dblVelY = 0;
    Integer intAngle = 0;
    std::array<Long, 4> lngPoints{};
    std::array<Integer, 4> intFrags{};
    std::array<Integer, 4> intMisses{};
    std::array<Integer, 4> intMissMark{};
    QString strFragged;
    std::array<std::array<Integer, 4>, 4> intSpecials{};  // [player][kind]
    bool blnDay = false;
    bool blnRoundOver = false;
    bool blnWarHit = false, blnNukedPlayer = false, blnAllProjectiles = false;
    QString strCode;
    bool blnInvulnerable = false, blnFlying = false;
    Integer intTune = 0;
    Integer intTuneSeconds = 0;
    Integer intPindCount = 0;

    // ---- Controls (valid while the screen is loaded) ----------------------------------------
    ui::PictureBox* picBg = nullptr;   // sky layer
    ui::PictureBox* picBld = nullptr;  // scene layer: sky copy plus the city
    std::vector<ui::PictureBox*> Player;
    ui::PictureBox* picArrow = nullptr;
    QLabel* lblWind = nullptr;
    ui::PictureBox* picPlayerpoints = nullptr;
    std::array<QLabel*, 4> lblPlayerPoints{};
    ui::PictureBox* imgPind = nullptr;
    QLabel* lblPind = nullptr;
    ui::PictureBox* imgProjectile = nullptr;
    QLabel* lblPoint = nullptr;

    QWidget* picUI = nullptr;
    QLineEdit* txtAngle = nullptr;
    QLineEdit* txtVel = nullptr;
    QPushButton* cmdThrow = nullptr;
    std::array<ui::PictureBox*, 4> picSelect{};
    QFrame* boxSelect = nullptr;
    QLabel *Label2 = nullptr, *lblFlimit = nullptr, *Label6 = nullptr, *lblcRound = nullptr;
    QLabel *lblScore = nullptr, *lblLeft = nullptr, *Label7 = nullptr, *lblRight = nullptr;

    // Final board.
    QLabel *lbl1 = nullptr, *lbl2 = nullptr, *lbl3 = nullptr, *lbl4 = nullptr;
    QLabel *lbl5 = nullptr, *lbl6 = nullptr, *lbl7 = nullptr, *lbl8 = nullptr;
    std::array<QLabel*, 4> lblFrags{}, lblPoints{}, lblAccuracy{}, lblName{};

    // Projectile frames per kind: Projectile, nuke, war, mag.
    std::array<ui::Surface, 4> Projectile, nuke, war, mag;

    ui::Timer tmrMain;
    ui::Timer tmrCollision;
    ui::Timer tmrTrap;
    ui::Timer tmrPind;
    ui::Timer tmrMIDI;

    // ---- Match world (match/) ---------------------------------------------------------------
    void GameLoad();
    void DrawBuildings();
    void DrawWind();
    void pIndication();
    void tmrPind_Timer();
    void tmrMIDI_Timer();
    void CloseAndLoadMIDI();
    void MakeTransparent(ui::PictureBox& pic, float StartX, float StartY, float EndX, float EndY);
    // The whole box. The rectangle reaches one pixel past the box on the right and at the bottom,
    // where reading gives no colour, so nothing happens there.
    void MakeTransparent(ui::PictureBox& pic);

    // ---- Throwing and flight (flight/) ------------------------------------------------------
    void AlignBanana();
    void txtAngle_KeyPress(ui::CharCode& KeyAscii);
    void txtVel_KeyPress(ui::CharCode& KeyAscii);
    void txtAngle_Change();
    void txtVel_Change();
    void picSelect_Click(Integer Index);
    void cmdThrow_Click();
    void tmrMain_Timer();
    void Magnetic();
    void tmrCollision_Timer();
    void BuildingCollision(Integer intNuke);
    void tmrTrap_Timer();

    // ---- Impacts and scoring (impact/) ------------------------------------------------------
    void PlayerCollision(Integer intPlayer);
    void HitBuilding();
    void VaporizeBuilding(Integer intX);
    void Explode(ui::PictureBox& pic);
    void Vaporize(ui::PictureBox& pic);
    void Afterthrow();
    void Points();
    void ShowPoints(Integer intPoints);
    void EndGame();

protected:
    void CreateControls(QWidget* window) override;
    void Form_Load() override;
    void Form_Unload(bool& cancel) override;

private:
    // Colours sampled by the collision checks and the points popup.
    Long lngBgColor = 0, lngColor = 0, lngPlayerColor = 0;

    void CreatePlayField(QWidget* window);
    void CreateStatusStrip(QWidget* window);
    void CreateFinalBoard(QWidget* window);
    void LoadProjectileFrames();
    void ConnectHandlers();
    // Wires the aiming controls and the flight, collision and keyboard timers.
    void ConnectFlightHandlers();
    void StartMusic();
    void RunCalibration();
    void CreateExtraPlayers();
    // A character box, parked out of play until a roof is found for it.
    ui::PictureBox* NewCharacterBox();
    ui::Surface MissingPicture(const QString& path, int width, int height);
    void DrawSky();
    void BlendCharacters();
    void ResetWindBox();
    void ResetPointsBox();
    void DrawRoundWind();
    // A new wind strength within the wind extremity.
    void DrawWindStrength();

    // Window title of the turn: the current player's name and points.
    void ShowTurnTitle();
    // Loads a character picture, or tells the players which file is missing.
    bool LoadCharacterPicture(Integer player, const QString& suffix);
    // True when the current thrower stands on the right side of the city.
    bool ThrowerOnRight() const;
    // Length of tune n in seconds, 0 for a number that is no tune.
    static int TuneSeconds(int n);
    static QString TunePath(int n);

    // True once a character hit has been reported.
    bool CheckCharacters();
    void CheckBuildings();
    // True while the flight of `thrower` goes on.
    bool SameFlight(Integer thrower) const;
    // The thrower's twelve frames alternating his two throwing poses.
    void VictoryDance(Integer thrower);

    MatchOverlays* overlays_ = nullptr;
};
